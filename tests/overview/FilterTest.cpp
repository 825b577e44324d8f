#include "overview/Filter.h"

#include "overview/Kurzelliste.h"
#include "tests/support/Print.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(Filter, WirdZurEingrenzungBeiderAnsichten)
{
    const QDate von(2024, 3, 1);
    const QDate bis(2024, 12, 31);
    struct Fall {
        Filter filter;
        QString text;
    };
    const Fall faelle[] = {
        {{}, u" WHERE ARTIKEL <> 'xx'"_s},
        {{.Lagerort = u"H1"_s, .von = von, .bis = bis},
         u" WHERE ARTIKEL <> 'xx' AND LAGERORTKURZKU = 'H1' AND DATUM >= #03/01/2024# AND DATUM <= #12/31/2024#"_s},
        {{.Artikelgruppe = u"Futtermittel"_s, .Artikel = u"Bauer's Mix"_s},
         u" WHERE ARTIKEL <> 'xx' AND ARTIKELART = 'Futtermittel' AND ARTIKEL = 'Bauer's Mix'"_s}, // sic: as it is
        {{.von = von}, u" WHERE ARTIKEL <> 'xx'"_s}, // half a range limits nothing
        {{.bis = bis}, u" WHERE ARTIKEL <> 'xx'"_s},
        {{.Lagerort = u"alle lagerorte"_s}, u" WHERE ARTIKEL <> 'xx' AND LAGERORTKURZKU = 'alle lagerorte'"_s},
    };
    for (const Fall& fall : faelle)
        EXPECT_EQ(eingrenzung(fall.filter), fall.text);
}

TEST(Kurzelliste, KenntNeunKuerzelUndKNicht)
{
    QString kurzel;
    for (const Kurzel& zeile : kurzelliste())
        kurzel += zeile.kurzel;
    EXPECT_EQ(kurzel, u"LAZPSEGVU"_s);
    EXPECT_EQ(kurzelZu(u"L")->Buchungsart, u"Korrektur");
    EXPECT_EQ(kurzelZu(u"U")->maske, Maske::Umbuchung);
    for (const QStringView fremd : {u"K", u"X", u"z", u"", u"LA"})
        EXPECT_EQ(kurzelZu(fremd), nullptr) << fremd.toUtf8().toStdString();
}
