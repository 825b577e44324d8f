#include "overview/jahresliste/Jahresbefehl.h"

#include "overview/jahresliste/JahreslisteForm.h"
#include "platform/controls/Wiring.h"

using namespace Qt::StringLiterals;

Jahresbefehl::Jahresbefehl(QWidget* bildschirm) : QAction(u"&Jahresliste ..."_s, bildschirm)
{
    setObjectName(u"M_Jahresliste"_s);
    verdrahte(this, &QAction::triggered, this, [bildschirm] { JahreslisteForm(bildschirm).exec(); });
}
