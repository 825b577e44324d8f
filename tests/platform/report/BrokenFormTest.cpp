#include "tests/platform/report/Desk.h"
#include "tests/support/Print.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

struct Case {
    const char* name;
    QByteArray elements; // from the form's second line on
    QString text;        // behind file name and "ist fehlerhaft, "
};

const QString NotXml =
    u"Hier ist das XML nicht richtig geschrieben, zum Beispiel ein Element <%1> falsch geschlossen, ein "
    "Anführungszeichen vergessen oder ein < im Text. Die Zeichen < und & werden als &lt; und &amp; geschrieben."_s;

const Case Cases[] = {
    {"an element that does not exist", "<data table='J'/>\n<detail><txt x='0'/></detail>",
     u"Zeile 3: Das Element <txt> ist hier nicht zulässig. In <detail> darf nur stehen: <text>, <line>, <box>."_s},
    {"an attribute that does not exist", "<data tabel='J'/>",
     u"Zeile 2: Dem Element <data> fehlt die Angabe 'table'."_s},
    {"an attribute too many", "<data table='J'/><detail hight='3'/>",
     u"Zeile 2: Die Angabe 'hight' gibt es bei <detail> nicht. Möglich sind: height, show."_s},
    {"a German number", "<data table='J'/>\n\n<detail height='4,5'/>",
     u"Zeile 4: Die Angabe height=\"4,5\" ist nicht zulässig. Möglich ist: eine Zahl ab 0, mit Punkt statt Komma."_s},
    {"an alignment that does not exist", "<data table='J'/><detail><text x='0' width='9' align='mitte'/></detail>",
     u"Zeile 2: Die Angabe align=\"mitte\" ist nicht zulässig. Möglich ist: left, right, center."_s},
    {"a format that does not exist", "<data table='J'/><detail><text x='0' width='9' format='%d'/></detail>",
     u"Zeile 2: Das Format \"%d\" ist unbekannt. Möglich sind Formate wie ##,##0.00 und dd.mm.yyyy."_s},
    {"a tag that is not closed", "<data table='J'>\n<sort column='A'>\n</data>",
     u"Zeile 4: "_s + NotXml.arg(u"sort"_s)},
    {"another encoding", "<data table='J'/>\n<detail>\xC4pfel</detail>",
     u"Zeile 3: Die Datei ist nicht in UTF-8 gespeichert: <detail>\uFFFDpfel</detail></report>"_s},
    {"text between the bands", "<data table='J'/>\nTitel", u"Zeile 3: Text steht hier an falscher Stelle: Titel"_s},
    {"no data", "<detail/>", u"Zeile 1: Das Element <data> fehlt."_s},
    {"data behind the bands", "<detail/>\n<data table='J'/>", u"Zeile 3: <data> steht vor den Bändern."_s},
    {"a field beyond the paper", "<data table='J'/><detail><text x='100' width='30'/></detail>",
     u"Zeile 2: <text> ragt über den rechten Rand: Es endet bei 130 mm, bedruckbar sind 128 mm."_s},
    {"a formula that is not declared", "<data table='J'/>\n<detail show=\"{@Kopf} = 'J'\"/>",
     u"Zeile 3: Die Formel 'Kopf' ist nicht mit <formula> angegeben."_s},
    {"a table that is not the form's", "<data table='J'/><detail><text x='0' width='9'>{K.A}</text></detail>",
     u"Zeile 2: Die Tabelle 'K' ist nicht die von <data> und nicht die eines <lookup>."_s},
    {"a reference without end", "<data table='J'/><detail><text x='0' width='9'>Wert {J.A</text></detail>",
     u"Zeile 2: Nach '{J.A' fehlt die schließende Klammer }."_s},
    {"a condition without comparison", "<data table='J'/><detail show='{J.A}'/>",
     u"Zeile 2: Hier fehlt ein Vergleich (=, <>, <, >, <=, >=) (am Ende von \"{J.A}\")."_s},
    {"a sum in a head", "<data table='J'/><group by='{J.A}'>\n<header show='{count} = 0'/></group>",
     u"Zeile 3: Summen und Zählungen stehen nur in Fußzeilen, im Detail und in Seitenköpfen."_s},
    {"rows chosen by their sum", "<data table='J' show='{total(J.A)} = 0'/>",
     u"Zeile 2: Die Gesamtsumme steht nur in Bändern."_s},
    {"a group by a text", "<data table='J'/><group by=\"'A'\"/>",
     u"Zeile 2: Gruppiert wird nach {TABELLE.Spalte} oder {@Formel}."_s},
    {"a column that cannot be computed", "<data table='J'>\n<column name='S' value='Summ(Menge)'/></data>",
     u"Zeile 3: Die Spalte 'S' lässt sich nicht berechnen. Undefinierte Funktion 'Summ' in Ausdruck."_s},
};

} // namespace

TEST(BrokenForm, IsRefusedWithFileAndLine)
{
    const Desk desk;
    desk.execute({u"CREATE TABLE J (A Text(20))"_s});
    for (const Case& broken : Cases) {
        SCOPED_TRACE(broken.name);
        const QString file = desk.form(broken.elements);
        EXPECT_EQ(Desk::refusal(desk.job(file)),
                  u"Das Berichtsformular '"_s + file + u"' ist fehlerhaft, "_s + broken.text);
    }
}

TEST(BrokenForm, IsToldApartFromWhatIsNoForm)
{
    const Desk desk;
    const QString fault = u"Das Berichtsformular '"_s + desk.path(u"form.rpt"_s) + u"' ist fehlerhaft, Zeile "_s;
    EXPECT_EQ(Desk::refusal(desk.job(desk.write(u"form.rpt"_s, "<html/>"))),
              fault + u"1: Die Datei ist kein Berichtsformular, sie beginnt nicht mit <report>."_s);
    EXPECT_EQ(Desk::refusal(desk.job(desk.write(u"form.rpt"_s, "<report>\n<data table='J'/>\n"))),
              fault + u"3: Die Datei ist unvollständig: Das Ende von <report> fehlt."_s);
    EXPECT_EQ(Desk::refusal(desk.job(desk.write(u"form.rpt"_s, "<report><data table='J'/></report>\n<rest/>"))),
              fault + u"2: "_s + NotXml.arg(u"report"_s));
    EXPECT_EQ(Desk::refusal(desk.job(desk.path(u"kein.rpt"_s))),
              u"Das Berichtsformular '"_s + desk.path(u"kein.rpt"_s) + u"' gibt es nicht."_s);
}
