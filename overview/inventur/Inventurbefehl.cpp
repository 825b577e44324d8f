#include "overview/inventur/Inventurbefehl.h"

#include "overview/inventur/InventurForm.h"
#include "platform/controls/Wiring.h"

using namespace Qt::StringLiterals;

Inventurbefehl::Inventurbefehl(const std::function<void()>& danach, QWidget* bildschirm)
    : QAction(u"&Inventur ..."_s, bildschirm)
{
    setObjectName(u"M_Inventur"_s);
    verdrahte(this, &QAction::triggered, this, [danach, bildschirm] {
        InventurForm fenster(bildschirm);
        fenster.exec();
        if (fenster.gebucht() > 0) danach();
    });
}
