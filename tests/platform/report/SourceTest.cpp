#include "platform/jet/Engine.h"
#include "tests/platform/report/Desk.h"
#include "tests/support/Print.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr char Plain[] = R"(<data table="J"><sort column="Nr" direction="descending"/></data>
    <detail><text x="0" width="100">{J.Artikel} {J.Nr}</text></detail>
)";
constexpr char Summarised[] = R"xml(<formula name="Orte">'J'</formula>
    <data table="J" show="{J.Menge} &lt;&gt; 0">
      <summarise column="Artikel"/>
      <summarise column="Ort" show="{@Orte} = 'J'"/>
      <column name="Menge" value="Sum(Menge)"/>
      <column name="Zeilen" value="Count(*)"/>
    </data>
    <detail><text x="0" width="100">{J.Artikel} {J.Ort} {J.Menge} {J.Zeilen}</text></detail>
    <report-footer><text x="0" width="100">{count} {sum(J.Menge)}</text></report-footer>
)xml";

void fill(const Desk& desk)
{
    QStringList statements = {u"CREATE TABLE J (Nr Long, Artikel Text(20), Ort Text(5), Menge Double)"_s};
    const char* const rows[] = {"1, 'Öl', 'H2', 4",  "2, 'Ofen', 'H1', 1",  "3, 'Zucker', 'H1', 9",
                                "4, 'Öl', 'H1', 3",  "5, 'Apfel', NULL, 2", "6, 'Apfel', NULL, -2",
                                "7, 'öl', 'H1', 0.5"};
    for (const char* const row : rows)
        statements.append(u"INSERT INTO J (Nr, Artikel, Ort, Menge) VALUES ("_s + QString::fromUtf8(row) + u')');
    desk.execute(statements);
}

} // namespace

TEST(Source, SortsInGermanOrderOrByASum)
{
    NEEDS_PDFTOTEXT;
    const Desk desk;
    fill(desk);
    const QStringList down = {u"öl 7"_s, u"Apfel 6"_s, u"Apfel 5"_s, u"Öl 4"_s, u"Zucker 3"_s, u"Ofen 2"_s, u"Öl 1"_s};
    const struct {
        const char* name;
        QByteArray form;
        QString field;
        QStringList lines;
    } cases[] = {
        {"the form's own order", Plain, {}, down},
        {"by text, and then as the form says",
         Plain,
         u"+{j.ARTIKEL}"_s,
         {u"Apfel 6"_s, u"Apfel 5"_s, u"Ofen 2"_s, u"öl 7"_s, u"Öl 4"_s, u"Öl 1"_s, u"Zucker 3"_s}},
        {"downwards", Plain, u"-{J.Nr}"_s, down},
        {"by a sum that the table has not",
         Summarised,
         u"+{J.Zeilen}"_s,
         {u"Ofen H1 1 1"_s, u"Öl H2 4 1"_s, u"Zucker H1 9 1"_s, u"Öl H1 3,5 2"_s, u"4 17,5"_s}},
        {"by a sum with the name of a column",
         Summarised,
         u"-{J.Menge}"_s,
         {u"Zucker H1 9 1"_s, u"Öl H2 4 1"_s, u"Öl H1 3,5 2"_s, u"Ofen H1 1 1"_s, u"4 17,5"_s}},
        {"by a column that only single rows have",
         Summarised,
         u"+{J.Nr}"_s,
         {u"Ofen H1 1 1"_s, u"Öl H1 3,5 2"_s, u"Öl H2 4 1"_s, u"Zucker H1 9 1"_s, u"4 17,5"_s}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        report::Job job = desk.job(desk.form(c.form));
        if (!c.field.isEmpty()) job.sortFields[0] = c.field;
        EXPECT_EQ(desk.printedLines(job), c.lines);
    }

    report::Job inSum = desk.job(desk.form(Summarised));
    inSum.formulas[0] = u"Orte = 'N'"_s;
    inSum.sortFields[0] = u"+{J.Ort}"_s;
    inSum.selection = u"{J.Artikel} <> 'ofen'"_s;
    EXPECT_EQ(desk.printedLines(inSum), (QStringList{u"Öl 7,5 3"_s, u"Zucker 9 1"_s, u"2 16,5"_s}));
}

TEST(Source, IsSummedUpBeforeTheFirstPage)
{
    NEEDS_PDFTOTEXT;
    const Desk desk;
    fill(desk);
    const QString form =
        desk.form(R"xml(<data table="J" show="{J.Nr} &lt; 4"><column name="Doppelt" value="Menge * 2"/></data>
        <report-header><text x="0" width="100">{total(J.Menge)} {total(J.Doppelt)}</text></report-header>
        <page-header show="{total(J.Menge)} = 14"><text x="0" width="100">vierzehn</text></page-header>
        <detail><text x="0" width="100">{sum(J.Menge)} von {total(J.Menge)}</text></detail>)xml");
    EXPECT_EQ(desk.printedLines(desk.job(form)),
              (QStringList{u"14 28"_s, u"vierzehn"_s, u"4 von 14"_s, u"5 von 14"_s, u"14 von 14"_s}));
}

TEST(Source, LooksUpSingleRowsOfOtherTables)
{
    NEEDS_PDFTOTEXT;
    const Desk desk;
    fill(desk);
    const QString other = desk.path(u"stamm.mdb"_s);
    const auto master = jet::engine().CreateDatabase(other, u";pwd=geheim"_s);
    master->Execute(u"CREATE TABLE HANDLER (KurzKu Text(15), Name Text(20))"_s);
    master->Execute(u"INSERT INTO HANDLER (KurzKu, Name) VALUES ('X', 'Falsch')"_s);
    master->Execute(u"INSERT INTO HANDLER (KurzKu, Name) VALUES ('O''B', 'O''Brien')"_s);
    master->Close();
    desk.execute({u"CREATE TABLE Kopf (Kunde Text(15), Datum Date)"_s,
                  u"INSERT INTO Kopf (Kunde, Datum) VALUES ('O''B', #3/5/2024#)"_s});
    jet::engine()
        .OpenDatabase(desk.path(u"daten.mdb"_s))
        ->CreateTableDef(u"HANDLER"_s, u"Ms Access;pwd=geheim;DATABASE="_s + other, u"HANDLER"_s);

    const QString form = desk.form(R"(<data table="J" show="{J.Nr} = 3"/>
        <lookup table="Kopf"/>
        <lookup table="HANDLER" column="KurzKu" equals="{Kopf.Kunde}"/>
        <detail><text x="0" width="100" format="d.m.yy">{J.Artikel} {HANDLER.Name} {Kopf.Datum}</text></detail>
    )");
    EXPECT_EQ(desk.printedLines(desk.job(form)), QStringList(u"Zucker O'Brien 5.3.24"_s));
    desk.execute({u"UPDATE Kopf SET Kunde = 'niemand'"_s});
    EXPECT_EQ(desk.printedLines(desk.job(form)), QStringList(u"Zucker 5.3.24"_s));
}

TEST(Source, IsNamedWhereItIsMissing)
{
    const Desk desk;
    fill(desk);
    const QString form = desk.form(Plain);
    const QString prefix = u"Das Berichtsformular '"_s + form + u"' braucht die "_s;

    report::Job job = desk.job(form);
    job.dataFiles[0] = desk.path(u"weg.mdb"_s);
    EXPECT_EQ(Desk::refusal(job), u"Datei '"_s + desk.path(u"weg.mdb"_s) + u"' nicht gefunden."_s);
    job.dataFiles.clear();
    EXPECT_EQ(Desk::refusal(job), u"Das Berichtsformular '"_s + form + u"': Es ist keine Datendatei angegeben."_s);

    job = desk.job(form);
    job.sortFields[0] = u"+{J.Farbe}"_s;
    EXPECT_EQ(Desk::refusal(job), prefix + u"Spalte 'Farbe', die die Tabelle 'J' nicht hat."_s);
    job.sortFields[0] = u"{J.Nr}"_s;
    EXPECT_EQ(Desk::refusal(job), u"Das Sortierfeld '{J.Nr}': Es beginnt nicht mit + oder -."_s);

    job = desk.job(form);
    job.selection = u"{@Kopf} = 'J'"_s;
    EXPECT_EQ(Desk::refusal(job), u"Die Auswahl der Zeilen: Die Formel 'Kopf' ist nicht mit <formula> angegeben."_s);

    desk.form(R"(<data table="J"/><detail><text x="0" width="9">{J.Preis}</text></detail>)");
    EXPECT_EQ(Desk::refusal(desk.job(form)), prefix + u"Spalte 'Preis', die die Tabelle 'J' nicht hat."_s);
    desk.form(R"(<data table="K"/>)");
    EXPECT_EQ(Desk::refusal(desk.job(form)),
              prefix + u"Tabelle 'K', die es in der Datei '"_s + desk.path(u"daten.mdb"_s) + u"' nicht gibt."_s);
}
