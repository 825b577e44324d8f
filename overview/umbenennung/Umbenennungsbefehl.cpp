#include "overview/umbenennung/Umbenennungsbefehl.h"

#include "overview/umbenennung/UmbenennenForm.h"
#include "platform/controls/Wiring.h"

using namespace Qt::StringLiterals;

Umbenennungsbefehl::Umbenennungsbefehl(const std::function<void()>& danach, QWidget* bildschirm)
    : QAction(u"&Umbenennen ..."_s, bildschirm)
{
    setObjectName(u"M_Umbenennen"_s);
    verdrahte(this, &QAction::triggered, this, [danach, bildschirm] {
        UmbenennenForm(bildschirm).exec();
        danach();
    });
}
