#include "core/farm/Schema.h"

#include "platform/system/Files.h"
#include "tests/platform/jet/Fremdprogramm.h"
#include "tests/platform/jet/Plattenstoerung.h"
#include "tests/support/Print.h"
#include "tests/support/Testbetrieb.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// A year's file as it was before there were versions: a column, an index and a table are missing, an index
/// is another.
class AlteDatei : public testing::Test {
protected:
    AlteDatei()
    {
        const auto alt = jet::engine().CreateDatabase(m_datei, {});
        for (const QString& anweisung :
             {u"CREATE TABLE LAGERJOURNAL (ID Counter PRIMARY KEY, Datum Date, Artikel Text(50), Artikelart "
              u"Text(25),"
              u" LagerortKurzKu Text(15), Menge Double, Buchungsmenge Double, Preis Double, Preisfaktor "
              u"Text(3),"
              u" Einheit Text(15), Buchungsart Text(20), BuchungsID Long, BEErfassungsnummer Long, Kommentar "
              u"Text(255),"
              u" Uberstallt_alt Text(15), Verfuttert_an Text(15), Lieferscheinnummer Long)"_s,
              u"CREATE TABLE Einstellungen (Farbe Text(5))"_s, // without the key, which rows cannot be given
              u"CREATE INDEX Lieferscheine ON LAGERJOURNAL (Lieferscheinnummer)"_s,
              u"INSERT INTO LAGERJOURNAL (Datum, Artikel, Menge) VALUES (#5/5/2024#, 'Weizen', 12.5)"_s})
            alt->Execute(anweisung);
    }

    QString gezeigtes() ///< The row, and the columns and versions of the file.
    {
        const auto datei = oeffne(Dateiart::Lager, m_datei);
        QString text = gezeigt(*datei, u"SELECT ID, Datum, Artikel, Menge FROM LAGERJOURNAL"_s).join(u' ');
        auto tabellen = datei->TableDefs();
        std::ranges::sort(tabellen, {}, &jet::TableDef::name);
        for (const jet::TableDef& tabelle : tabellen)
            text += u" %1 %2"_s.arg(tabelle.name).arg(tabelle.fields.size());
        return text + u" Stand "_s + QString::number(datei->SchemaVersion());
    }

    Testbetrieb m_hof;
    QString m_datei = m_hof.ort().verzeichnis() + u"/Lager.alt"_s;
};

const QString Vorher = u"1 | 05.05.2024 | Weizen | 12,5 Einstellungen 1 LAGERJOURNAL 17 Stand 0"_s;
// Not the column OhneVorjahr: that it is missing means something.
const QString Nachher =
    u"1 | 05.05.2024 | Weizen | 12,5 Einstellungen 1 LAGERJOURNAL 18 Liefereinstellungen 6 Stand 6"_s;

} // namespace

TEST_F(AlteDatei, WirdGanzOderGarNichtAufStandGebrachtUndBehaeltIhreZeilen)
{
    EXPECT_EQ(gezeigtes(), Vorher);
    const QString kopie = m_datei + u".kopie"_s;
    sys::FileCopy(m_datei, kopie);
    const auto bringe = [&] { bringeAufStand(*oeffne(Dateiart::Lager, m_datei), Dateiart::Lager); };
    stoereUeberall([&] { sys::FileCopy(kopie, m_datei); }, bringe,
                   [&](bool fertig) {
                       const QString gefunden = gezeigtes();
                       EXPECT_TRUE(gefunden == Nachher || (!fertig && gefunden == Vorher))
                           << gefunden.toStdString();
                       EXPECT_EQ(befund(m_datei), u"ok"_s);
                       bringe();
                       EXPECT_EQ(gezeigtes(), Nachher);
                   });
    const auto datei = oeffne(Dateiart::Lager, m_datei);
    datei->Execute(u"DROP INDEX Suche ON LAGERJOURNAL"_s); // by hand, at the present version
    bringe();
    EXPECT_THROW(datei->Execute(u"CREATE INDEX Suche ON LAGERJOURNAL (Artikel)"_s), jet::Error);
}

TEST_F(AlteDatei, GesperrteWirdBenutztWieSieIstUndNeuereVerweigert)
{
    const auto wennMoeglich = [&] { bringeAufStandWennMoeglich(Dateiart::Lager, m_datei, {}); };
    {
        const Fremdprogramm anderes(m_datei);
        wennMoeglich();
        EXPECT_THROW(bringeAufStand(*oeffne(Dateiart::Lager, m_datei), Dateiart::Lager), jet::Error);
    }
    EXPECT_EQ(gezeigtes(), Vorher);
    wennMoeglich();
    EXPECT_EQ(gezeigtes(), Nachher);
    oeffne(Dateiart::Lager, m_datei)->setSchemaVersion(7);
    jet::engine().release();
    EXPECT_THROW(wennMoeglich(), jet::Error);
    EXPECT_THROW(oeffne(Dateiart::Lager, m_datei), jet::Error);
    EXPECT_THROW(oeffneFuerBestand(m_datei), jet::Error);
}
