#include "overview/dateien/Pruefbefehl.h"

#include "overview/Buchungssprung.h"
#include "overview/dateien/PruefungForm.h"
#include "platform/controls/Wiring.h"

using namespace Qt::StringLiterals;

Pruefbefehl::Pruefbefehl(const Buchungssprung& sprung, QWidget* bildschirm)
    : QAction(u"&Dateien prüfen ..."_s, bildschirm)
{
    setObjectName(u"M_Dateipruefung"_s);
    verdrahte(this, &QAction::triggered, this, [&sprung, bildschirm] {
        PruefungForm fenster(bildschirm);
        fenster.exec();
        const auto& befund = fenster.gewaehlter();
        if (befund && befund->jahr) sprung.geheZu(*befund->jahr, befund->ID);
    });
}
