#include "core/SQLTexte.h"

#include "core/Datumstext.h"
#include "core/ZeilenumbruchEntfernen.h"
#include "tests/support/Print.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(SQLTexte, EinDatumStehtMitDemMonatVorn)
{
    EXPECT_EQ(SQLDatum(u"05.03.2024"_s), u"#03/05/2024#"_s);
    EXPECT_EQ(SQLDatum(u"  31.12.2024 "_s), u"#12/31/2024#"_s);
    EXPECT_EQ(SQLDatum(u"05.03.2024 13:45:00"_s), u"#03/05/2024 13:45:00#"_s);
    EXPECT_EQ(SQLDatum(u"00:00:00"_s), u"#00/00/00#"_s); // no date: the database refuses it
    EXPECT_EQ(SQLDatum(datumText(QDate(987, 3, 5))), u"#03/05/0987#"_s);
}

TEST(SQLTexte, QuellenWerdenBeiWhereUndOrderGeschnitten)
{
    struct Fall {
        QStringView quelle, vorWhere, whereTeil, abOrder;
    };
    const Fall faelle[] = {
        {u"SELECT * FROM J WHERE A = 1 ORDER BY B", u"SELECT * FROM J", u"WHERE A = 1", u" ORDER BY B"},
        {u"select * from J  where A = 1 ", u"select * from J", u"where A = 1 ", u""},
        {u"SELECT * FROM J Order by B", u"SELECT * FROM J", u"", u" Order by B"},
        {u" SELECT * FROM J ", u" SELECT * FROM J ", u"", u""},
        {u"", u"", u"", u""},
        // sic: the letters count wherever they stand
        {u"SELECT * FROM J WHERE A = 'Vorderachsöl' ORDER BY B", u"SELECT * FROM J", u"WHERE A = 'V",
         u" orderachsöl' ORDER BY B"},
        {u"SELECT 'nowhere' FROM J ORDER BY B", u"SELECT 'no", u"where' FROM J", u" ORDER BY B"},
    };
    for (const Fall& fall : faelle) {
        const QString quelle = fall.quelle.toString();
        SCOPED_TRACE(quelle.toStdString());
        EXPECT_EQ(SQLVorWhere(quelle), fall.vorWhere.toString());
        EXPECT_EQ(SQLWhereTeil(quelle), fall.whereTeil.toString());
        EXPECT_EQ(SQLAbOrder(quelle), fall.abOrder.toString());
    }
}

TEST(ZeilenumbruchEntfernen, MachtEineZeileUndLaesstAndereZwischenraeume)
{
    EXPECT_EQ(ZeilenumbruchEntfernen(u" eins\r\nzwei\ndrei\r "_s), u"eins  zwei drei"_s);
    EXPECT_EQ(ZeilenumbruchEntfernen(u"\n\teins\t \r"_s), u"\teins\t"_s); // blanks go, tabs stay
    EXPECT_EQ(ZeilenumbruchEntfernen(u" \r\n "_s), u""_s);
}
