#include "core/SQLTexte.h"

#include "core/ZeilenumbruchEntfernen.h"
#include "tests/support/Print.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(SQLTexte, WerdenGeschnittenWoDieBuchstabenStehen)
{
    EXPECT_EQ(SQLDatum(u"  05.03.2024 13:45:00 "_s), u"#03/05/2024 13:45:00#"_s);
    EXPECT_EQ(SQLDatum(u"00:00:00"_s), u"#00/00/00#"_s);                            // no date: the database refuses it
    EXPECT_EQ(ZeilenumbruchEntfernen(u"\n\teins\r\nzwei\n "_s), u"\teins  zwei"_s); // blanks go, tabs stay
    const struct {
        QString quelle, vorWhere, whereTeil, abOrder;
    } faelle[] = {
        {u"select * from J  where A = 1  Order by B"_s, u"select * from J"_s, u"where A = 1"_s, u" Order by B"_s},
        {u" SELECT * FROM J ORDER BY B"_s, u"SELECT * FROM J"_s, u""_s, u" ORDER BY B"_s},
        {u" SELECT * FROM J "_s, u" SELECT * FROM J "_s, u""_s, u""_s},
        // sic: the letters count wherever they stand
        {u"SELECT 'nowhere' FROM J WHERE A = 'Vorderachsöl'"_s, u"SELECT 'no"_s, u"where' FROM J WHERE A = 'V"_s,
         u" orderachsöl'"_s},
    };
    for (const auto& fall : faelle) {
        EXPECT_EQ(SQLVorWhere(fall.quelle), fall.vorWhere);
        EXPECT_EQ(SQLWhereTeil(fall.quelle), fall.whereTeil);
        EXPECT_EQ(SQLAbOrder(fall.quelle), fall.abOrder);
    }
}
