#include "tests/overview/Hauptbildschirm.h"
#include "tests/support/Rekorder.h"
#include "tests/support/Tabellenblatt.h"

#include <QDir>
#include <QFileInfo>
#include <QTabWidget>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// The sheet that the user's program was asked to open, under the file's name.
QStringList uebergeben(Rekorder& oeffner)
{
    const QFileInfo datei(oeffner.aufruf().value(0));
    const QStringList blatt = tabellenblatt(datei.filePath());
    QDir(datei.path()).removeRecursively();
    return QStringList(datei.fileName()) + blatt;
}

} // namespace

TEST_F(Hauptbildschirm, GibtBeideAnsichtenWieGezeigtAnDieTabellenkalkulation)
{
    NEEDS_OPENPYXL;
    oeffne();
    Rekorder oeffner(u"xdg-open"_s);
    tippe("drpLagerOrte", u"H1"_s);
    klickeKopf("Journalliste", 6);
    drucke("ExcelButton", Qt::Key_Return);
    EXPECT_EQ(uebergeben(oeffner),
              (QStringList{
                  u"Journal 2024.xlsx"_s,
                  u"Journal 2024 A2 A1:K4 landscape $1:$1"_s,
                  u"*Datum*^ | *Artikel* | *Artikelgruppe* | *Buchungsart* | *Lagerort* | *Zugang*> | *Abgang*> | "
                  u"*Einheit* | *Preis*> | *Geschäftspartner* | *Kommentar*"_s,
                  u"2024-05-06 [dd.mm.yyyy] | Weizen | Pflanzliche Erzeugnisse | Verkauf | H1 |  | 20 [#,##0.00] | "
                  u"dt |  |  | "_s,
                  u"2024-05-09 [dd.mm.yyyy] | Hafer | Pflanzliche Erzeugnisse | Zukauf | H1 | 1e-05 [#,##0.00] |  | "
                  u"dt |  |  | "_s,
                  u"2024-03-05 [dd.mm.yyyy] | Weizen | Pflanzliche Erzeugnisse | Zukauf | H1 | 100 [#,##0.00] |  | "
                  u"dt |  |  | "_s,
              }));

    tippe("drpLagerOrte", u"Alle Lagerorte"_s);
    drucke("chkNurSumme", Qt::Key_Space);
    feld<QTabWidget>("SSTab1").setCurrentIndex(1);
    QTest::keyClick(fenster.get(), Qt::Key_E, Qt::AltModifier);
    EXPECT_EQ(
        uebergeben(oeffner),
        (QStringList{
            u"Lagerbestand 2024.xlsx"_s,
            u"Lagerbestand 2024 A2 A1:F4 landscape $1:$1"_s,
            u"*Artikel* | *Artikelgruppe* | *Summe Zugang*> | *Summe Abgang*> | *Aktueller Bestand*> | *Einheit*"_s,
            u"Diesel | Treib- und Brennstoffe | 1500 [#,##0.00] | 1500 [#,##0.00] |  | l"_s,
            u"Hafer | Pflanzliche Erzeugnisse |  |  |  | dt"_s,
            u"Weizen | Pflanzliche Erzeugnisse | 150 [#,##0.00] | 20 [#,##0.00] | 130 [#,##0.00] | dt"_s,
        }));
}
