#include "tests/platform/report/Desk.h"
#include "tests/support/Print.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr char Form[] = R"(<formula name="Kopf">'ohne'</formula>
    <formula name="Wert"/>
    <data table="J"/>
    <report-header><text x="0" width="120">Kopf {@Kopf}</text></report-header>
    <group by="{@Gruppe}"><header><text x="0" width="100">Gruppe {@gruppe}</text></header></group>
    <detail show="{@Kopf} &lt;&gt; 'nichts' and {J.Menge} &gt; 1 or {J.Menge} = -5">
      <text x="0" width="100" format="0.0">{J.Artikel} {J.Menge} {{{@Wert}}</text>
    </detail>
)";

/// The lines of a print with these formulas, from index 0; an empty text leaves a gap.
QStringList lines(const Desk& desk, const QStringList& formulas)
{
    report::Job job = desk.job(desk.form("<formula name=\"Gruppe\"/>" + QByteArray(Form)));
    for (int i = 0; i < formulas.size(); ++i)
        if (!formulas[i].isEmpty()) job.formulas[i] = formulas[i];
    return desk.printedLines(job);
}

void fill(const Desk& desk)
{
    desk.execute({u"CREATE TABLE J (Artikel Text(20), Menge Double)"_s,
                  u"INSERT INTO J (Artikel, Menge) VALUES ('Weizen', 2)"_s,
                  u"INSERT INTO J (Artikel, Menge) VALUES ('Hafer', 1)"_s,
                  u"INSERT INTO J (Artikel, Menge) VALUES ('weizen', 3.25)"_s,
                  u"INSERT INTO J (Artikel, Menge) VALUES ('Raps', -5)"_s});
}

} // namespace

TEST(Formula, GivesTextsColumnsAndNumbers)
{
    NEEDS_PDFTOTEXT;
    const Desk desk;
    fill(desk);
    const QStringList all = {u"Weizen 2,0 {}"_s, u"weizen 3,3 {}"_s, u"Raps -5,0 {}"_s};
    const struct {
        const char* name;
        QStringList formulas;
        QStringList lines;
    } cases[] = {
        {"the form's own", {}, QStringList(u"Kopf ohne"_s) + all},
        {"of two with one name the later index",
         {u"Kopf = 'a'"_s, {}, u"KOPF = 'b'"_s, u"Fremd = 'c'"_s},
         QStringList(u"Kopf b"_s) + all},
        {"doubled and double marks",
         {u"Kopf='Sonne''s \"Hof\" = {J.A}'"_s},
         QStringList(u"Kopf Sonne's \"Hof\" = {J.A}"_s) + all},
        {"a condition by a formula", {u"Kopf = \"NICHTS\""_s}, {u"Kopf NICHTS"_s, u"Raps -5,0 {}"_s}},
        {"a column to group by, without regard to case",
         {u"Gruppe = {J.Artikel}"_s, u"Wert = 12.5"_s},
         {u"Kopf ohne"_s, u"Gruppe Hafer"_s, u"Gruppe Raps"_s, u"Raps -5,0 {12,5}"_s, u"Gruppe Weizen"_s,
          u"Weizen 2,0 {12,5}"_s, u"weizen 3,3 {12,5}"_s}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(lines(desk, c.formulas), c.lines);
    }
}

TEST(Formula, IsRefusedByItsName)
{
    const Desk desk;
    fill(desk);
    const struct {
        QString formula;
        QString text;
    } cases[] = {
        {u"Kopf = 'O'Brien'"_s, u"Die Formel 'Kopf' ist fehlerhaft: Ein Hochkomma (') beendet den Text zu früh (vor "
                                "\"Brien'\" von \" 'O'Brien'\")."_s},
        {u"Fremd = 'Hof''"_s, u"Die Formel 'Fremd' ist fehlerhaft: Das Zeichen ' am Ende eines Textes fehlt (vor "
                              "\"'Hof''\" von \" 'Hof''\")."_s},
        {u"Kopf = {J.Artikl}"_s, u"Das Berichtsformular '"_s + desk.path(u"form.rpt"_s) +
                                     u"' braucht die Spalte 'Artikl', die die Tabelle 'J' nicht hat."_s},
        {u"Kopf = {K.Artikel}"_s, u"Die Formel 'Kopf' ist fehlerhaft: Der Bericht hat keine Tabelle 'K'."_s},
        {u"Kopf = {count}"_s,
         u"Die Formel 'Kopf' ist fehlerhaft: Sie kann nur ein Text, eine Zahl oder eine {TABELLE.Spalte} sein."_s},
        {u"Kopf"_s, u"Die Formel 'Kopf': Sie hat nicht die Form \"Name = Ausdruck\"."_s},
    };
    for (const auto& c : cases) {
        report::Job job = desk.job(desk.form("<formula name=\"Gruppe\"/>" + QByteArray(Form)));
        job.formulas[3] = c.formula;
        EXPECT_EQ(Desk::refusal(job), c.text);
    }
}
