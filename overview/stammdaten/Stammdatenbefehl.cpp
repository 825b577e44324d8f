#include "overview/stammdaten/Stammdatenbefehl.h"

#include "overview/stammdaten/StammdatenForm.h"
#include "platform/controls/Wiring.h"

using namespace Qt::StringLiterals;

Stammdatenbefehl::Stammdatenbefehl(const std::function<void()>& danach, QWidget* bildschirm)
    : QAction(u"Artikel und &Lagerorte ..."_s, bildschirm)
{
    setObjectName(u"M_Stammdaten"_s);
    verdrahte(this, &QAction::triggered, this, [danach, bildschirm] {
        StammdatenForm(bildschirm).exec();
        danach();
    });
}
