#include "overview/Tabellenuebergabe.h"

#include "core/Modulzustand.h"
#include "platform/controls/DataGrid.h"
#include "platform/controls/Wiring.h"
#include "platform/report/ProgressBox.h"
#include "platform/system/Pointer.h"

#include <QPushButton>

using namespace Qt::StringLiterals;

Tabellenuebergabe::Tabellenuebergabe(QPushButton& ExcelButton, DataGrid& Journalliste, QPushButton& Command3,
                                     DataGrid& BestandListe, QObject* bildschirm)
    : QObject(bildschirm)
{
    verdrahte(&ExcelButton, &QPushButton::clicked, this, [&] { uebergib(Journalliste, u"Journal"_s); });
    verdrahte(&Command3, &QPushButton::clicked, this, [&] { uebergib(BestandListe, u"Lagerbestand"_s); });
}

void Tabellenuebergabe::uebergib(DataGrid& liste, const QString& titel)
{
    const sys::Hourglass warten;
    liste.setTitle(titel + u' ' + modulzustand().Jahr);
    report::ProgressBox fortschritt(u"Die Tabelle wird geschrieben ..."_s, liste.window());
    m_uebergabe.Export(liste, {}, {}, fortschritt.progress());
}
