// Which number which sale gets, whatever happens meanwhile.

#include "delivery/Lieferscheinnummern.h"
#include "tests/delivery/Lieferscheinfenster.h"
#include "tests/support/Child.h"

#include <QElapsedTimer>

#include <csignal>

using namespace Qt::StringLiterals;

namespace {

class Nummern : public Lieferscheinfenster {
protected:
    bool vergib() const { return Lieferscheinnummern(2024).vergib(); }
    /// Recipient and number of all rows, as they were booked.
    QStringList vergeben() const
    {
        return hof.zeigt(2024, u"SELECT Uberstallt_alt, Lieferscheinnummer FROM LAGERJOURNAL ORDER BY ID"_s);
    }
    /// So many deliveries of two sales each.
    void verkauftViel(int lieferungen) const
    {
        QStringList zeilen;
        for (int i = 0; i < 2 * lieferungen; ++i) {
            const QDate tag = QDate(2024, 1, 1).addDays(i / 2 % 366);
            zeilen.append(tag.toString(u"dd.MM."_s) + u" | KUNDE"_s + QString::number(i / 2 / 366) + u" | Ware | 1"_s);
        }
        verkauft(zeilen.join(u'\n'));
    }
    /// What is wrong with the numbers of so many deliveries: how many numbers there are, from which to which, and how many
    /// sales have none or share one that is not theirs.
    QString stand() const
    {
        const QStringList summe = hof.zeigt(
            2024,
            u"SELECT Count(Lieferscheinnummer), Min(Lieferscheinnummer), Max(Lieferscheinnummer) FROM LAGERJOURNAL"_s);
        const QStringList nummern = hof.zeigt(2024, u"SELECT DISTINCT Lieferscheinnummer FROM LAGERJOURNAL"_s);
        const QStringList lieferungen =
            hof.zeigt(2024, u"SELECT DISTINCT Datum, Uberstallt_alt, Lieferscheinnummer FROM LAGERJOURNAL"_s);
        return summe[0] + u" | "_s + QString::number(nummern.size()) + u" | "_s + QString::number(lieferungen.size());
    }
};

/// Looks on at a message whether another connection can book, and ignores it.
class Zuschauer final : public sys::Messages {
public:
    explicit Zuschauer(QString datei) : m_datei(std::move(datei)) {}
    sys::Answer show(const QString&, int) override
    {
        jet::engine()
            .OpenDatabase(m_datei, u";pwd=anderer"_s)
            ->Execute(u"INSERT INTO LAGERJOURNAL (Menge) VALUES (1)"_s);
        ++gebucht;
        return sys::Answer::Ignore;
    }
    int gebucht = 0;

private:
    QString m_datei;
};

} // namespace

TEST_F(Nummern, FolgenDenTagenUndDenEmpfaengern)
{
    struct Fall {
        const char* name;
        QString verkaeufe;
        QStringList nummern;
    };
    const Fall faelle[] = {
        {"by day, then by recipient, whatever the order of booking",
         u"02.05. | Berger | Weizen | 5\n02.05. | Adler | Hafer | 1\n01.05. | Zoller | Heu | 1"_s,
         {u"Berger | 3"_s, u"Adler | 2"_s, u"Zoller | 1"_s}},
        {"sales of a day to one recipient are one delivery, whatever his case and blanks behind",
         u"02.05. | Berger | Weizen | 5\n02.05. | berger  | Hafer | 1\n03.05. | Berger | Heu | 1"_s,
         {u"Berger | 1"_s, u"berger  | 1"_s, u"Berger | 2"_s}},
        {"a blank in front is another recipient",
         u"02.05. | Berger | Weizen | 5\n02.05. |  Berger | Hafer | 1"_s,
         {u"Berger | 2"_s, u" Berger | 1"_s}},
        {"another time of the day is another delivery",
         u"02.05. 14:30 | Berger | Weizen | 5\n02.05. | Berger | Hafer | 1\n02.05. 14:30 | Berger | Heu | 1"_s,
         {u"Berger | 2"_s, u"Berger | 1"_s, u"Berger | 2"_s}},
        {"no day, no number, and the recipient's other deliveries have theirs",
         u"NULL | Berger | Weizen | 5\n02.05. | Berger | Hafer | 1\n03.05. | Berger | Heu | 1"_s,
         {u"Berger | NULL"_s, u"Berger | 1"_s, u"Berger | 2"_s}},
        {"no recipient, no number",
         u"02.05. | NULL | Weizen | 5\n02.05. |     | Hafer | 1\n02.05. | Berger | Heu | 1"_s,
         {u"NULL | NULL"_s, u"    | NULL"_s, u"Berger | 1"_s}},
    };
    for (const Fall& fall : faelle) {
        SCOPED_TRACE(fall.name);
        hof.fuehreAus(2024, u"DELETE * FROM LAGERJOURNAL"_s);
        verkauft(fall.verkaeufe);
        hof.bucht(2024, "02.05. | H1 | Weizen | 9 | Zukauf");
        hof.fuehreAus(2024, u"UPDATE LAGERJOURNAL SET Uberstallt_alt = 'Berger' WHERE Buchungsart = 'Zukauf'"_s);
        for (int lauf : {1, 2}) { // the second one finds nothing to do
            EXPECT_TRUE(vergib()) << lauf;
            EXPECT_EQ(vergeben(), fall.nummern + QStringList(u"Berger | NULL"_s)) << lauf;
        }
    }
    verkauft(u"01.01. | Adler | Hafer | 1\n05.05. | Berger | Heu | 1"_s); // an earlier day, but booked later
    hof.fuehreAus(2024, u"UPDATE LAGERJOURNAL SET Lieferscheinnummer = 0 WHERE Uberstallt_alt = 'Adler'"_s);
    hof.fuehreAus(2024, u"UPDATE LAGERJOURNAL SET Lieferscheinnummer = 41 WHERE Artikel = 'Heu' AND Menge = -1 AND"
                        u" Lieferscheinnummer = 1"_s);
    EXPECT_TRUE(vergib());
    EXPECT_EQ(vergeben().mid(2),
              (QStringList{u"Berger | 41"_s, u"Berger | NULL"_s, u"Adler | 42"_s, u"Berger | 43"_s}));
}

TEST_F(Nummern, EinApostrophHaeltDieAnderenNichtAuf)
{
    const QString bericht = u"Es ist ein kritischer Zustand aufgetreten.\r\rFehler: 3075"_s;
    verkauft(u"01.05. | Adler | Hafer | 1\n02.05. | O'Brien | Hafer | 1\n03.05. | Zoller | Hafer | 1\n"
             u"04.05. | O'Brien | Hafer | 1"_s); // he is told of once
    hof.meldungen().beantworteAlle(sys::Answer::Abort);
    EXPECT_FALSE(vergib());
    EXPECT_EQ(vergeben(), (QStringList{u"Adler | 1"_s, u"O'Brien | NULL"_s, u"Zoller | NULL"_s, u"O'Brien | NULL"_s}));
    hof.meldungen().beantworteAlle(sys::Answer::Ignore);
    EXPECT_TRUE(vergib());
    EXPECT_EQ(vergeben(), (QStringList{u"Adler | 1"_s, u"O'Brien | NULL"_s, u"Zoller | 2"_s, u"O'Brien | NULL"_s}));
    const QStringList meldungen = hof.meldungen().abgeholt();
    ASSERT_EQ(meldungen.size(), 2);
    for (const QString& meldung : meldungen)
        EXPECT_TRUE(meldung.startsWith(bericht) && meldung.contains(u"O'Brien")) << meldung.toStdString();

    verkauft(u"04.05. | Adler | Hafer | 1\n05.05. | O'Hara | Hafer | 1"_s);
    Zuschauer zuschauer(hof.journaldatei(2024));
    const sys::MessageScope umleitung(zuschauer);
    EXPECT_TRUE(vergib());
    EXPECT_EQ(zuschauer.gebucht, 2) << "while the message stands others can book";
    EXPECT_EQ(vergeben()[4], u"Adler | 3"_s);
}

TEST_F(Nummern, NachEinemAbbruchZaehltDieNaechsteOeffnungWeiter)
{
    constexpr int Lieferungen = 5000;
    verkauftViel(Lieferungen);
    const QString ganz = u"10000 | 1 | 5000 | 5000 | 5000"_s;
    const auto starte = [&] {
        jet::engine().release();
        return startChild([&] { return vergib() ? 0 : 1; });
    };
    QElapsedTimer uhr;
    uhr.start();
    EXPECT_EQ(exitCode(starte()), 0);
    const qint64 dauer = uhr.nsecsElapsed() / 1000;
    EXPECT_EQ(stand(), ganz);

    int mittenDrin = 0;
    constexpr int Abbrueche = 8;
    for (int i = 0; i < Abbrueche; ++i) {
        hof.fuehreAus(2024, u"UPDATE LAGERJOURNAL SET Lieferscheinnummer = NULL"_s);
        const pid_t kind = starte();
        usleep(static_cast<useconds_t>(dauer * (i + 1) / (Abbrueche + 1)));
        kill(kind, SIGKILL);
        exitCode(kind);
        mittenDrin += stand() != ganz;
        EXPECT_TRUE(vergib());
        EXPECT_EQ(stand(), ganz) << i;
    }
    EXPECT_GT(mittenDrin, 0) << "no kill came in time";

    hof.fuehreAus(2024, u"UPDATE LAGERJOURNAL SET Lieferscheinnummer = NULL"_s);
    const pid_t einer = starte();
    const pid_t anderer = starte();
    EXPECT_EQ(exitCode(einer) + exitCode(anderer), 0);
    EXPECT_EQ(stand(), ganz) << "two programs at once";
}
