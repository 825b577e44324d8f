// A scenario file holds cases, each on a fresh Musterhof. Its first line is "fall" with the fault it would
// catch; the steps follow, one a line, or several with " ; " between them. Lines that begin with blanks
// belong to the step before. "#" begins a remark, behind a step after two blanks. In what is expected "..."
// stands for anything, \r and \n for line breaks.
//
//   bucht 2024  05.03. | H1 | Weizen | 100 | Zukauf      rows, more of them below
//   fuellt 2024 LAGERJOURNAL     rows of any table: its columns stand below, then the rows; NULL: left out
//   sql 2024 UPDATE ...          in a year file, Grundstamm, Stammdaten or Anlagen, by another program
//   heute 5.3.2024               the day
//   stichtag 1.6.2024            what a host has set; lagername and betriebsname too
//   einstellung Name = 1         a setting of the user; "einstellung Name zeigt 1"
//   datei weg Grundstamm         a file cannot be found, or "kaputt", until "da"; also the Lieferschein
//   sperre 2024                  another program writes in a file, until "frei"; with "ganz" none can read it
//
// The first of other steps opens the main screen. Fields are those of the window in front, by their object
// names.
//
//   oeffne                       the main screen anew
//   tasten z{Tab}12,5{Alt+B}     keys where the focus is; each waits for the window that the one before opens
//                                or closes
//   {Strg+1}{Eingabe}            the same
//   feld drpArtikel              the focus goes there, what stands there is selected
//   drpArtikel = Weizen          types over it and leaves by Tab; a tick becomes "an" or not
//   klick Journalliste 3         the mouse, on a field or a row of a list; doppelklick
//   kopf Journalliste Artikel    the mouse on the head of a column
//   papier {Strg+P}              what the key prints, whose lines stand below; "..." is any number of them
//   oeffnet {F12} ... 2024.xlsx  the file that the user's own program is to open, or what is said instead;
//                                the rows of a table stand below, see tests/platform/family/Tabellenblatt.h
//
//   antwort Ja  text             before a question: it is asked once and answered so: Ja, Nein, Abbruch,
//                                Ignorieren or Abbrechen, which is milder; steps below it are done meanwhile
//   stets Ignorieren  text       the same for a question that may come often
//   meldung text                 what was said, or its lines below; one that nobody expects is a failure
//
//   fenster Zukauf erfassen      the title of the window in front
//   fokus txtMenge               where the focus is; "markiert 7": what is selected there
//   txtMenge zeigt 12,50         the text of a field, label, tab, heading of a list; of a lamp "rot"
//   Journalliste zeigt           the rows of a list, which stand below
//   Journalliste hat Artikel: Weizen | Hafer      a column of it, from above
//   Journalliste steht auf ...   its current row, or "keine"
//   drpArtikel bietet A | B      what drops down
//   VonDatum sagt Strg+T         its tool tip
//   txtPreis ist sichtbar        or an, offen, frei; "ist nicht frei"
//
//   neu 06.03.2024 | H2 | ...    the rows of 2024 since the farm was set up: day, place, article, kind,
//                                Menge, Buchungsmenge, unit, price, factor, Buchungsart, BuchungsID,
//                                Uberstallt_alt, Verfuttert_an, comment
//   zeigt 2024 SELECT ...        the rows of a query

#include "overview/LagerbestandNeu.h"
#include "platform/controls/DataGrid.h"
#include "platform/report/PrintControl.h"
#include "platform/system/Clock.h"
#include "platform/system/Settings.h"
#include "tests/platform/family/Tabellenblatt.h"
#include "tests/platform/jet/Fremdprogramm.h"
#include "tests/platform/report/Pdf.h"
#include "tests/platform/system/Rekorder.h"
#include "tests/support/Bildschirm.h"
#include "tests/support/Print.h"
#include "tests/szenario/Bedienung.h"
#include "tests/szenario/Musterhof.h"

#include <QApplication>
#include <QComboBox>
#include <QDeadlineTimer>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QPushButton>
#include <QRegularExpression>
#include <QScopedValueRollback>
#include <QTest>
#include <QTimer>

#include <deque>
#include <map>

using namespace Qt::StringLiterals;

namespace {

constexpr int Geduld = 5000; // ms, for a window to open or close

const QString Neue =
    u"SELECT Datum, LagerortKurzKu, Artikel, Artikelart, Menge, Buchungsmenge, Einheit, Preis, Preisfaktor,"
    u" Buchungsart, BuchungsID, Uberstallt_alt, Verfuttert_an, Kommentar FROM LAGERJOURNAL WHERE ID > 6"
    u" ORDER BY ID"_s;

struct Anweisung {
    int zeile; ///< Of the file, from 1.
    QString text;
    QStringList darunter;
};

struct Fall {
    QString name;
    std::deque<Anweisung> anweisungen;
};

std::vector<Fall> leseFaelle(const QString& datei)
{
    QFile quelle(datei);
    EXPECT_TRUE(quelle.open(QIODevice::ReadOnly));
    std::vector<Fall> faelle;
    int nummer = 0;
    for (QString zeile : QString::fromUtf8(quelle.readAll()).split(u'\n')) {
        ++nummer;
        if (const qsizetype bemerkung = zeile.indexOf(u"  # "_s); bemerkung >= 0) zeile.truncate(bemerkung);
        if (zeile.trimmed().isEmpty() || zeile.startsWith(u'#')) continue;
        if (zeile.startsWith(u'{')) zeile.prepend(u"tasten "_s);
        if (zeile.startsWith(u"fall "_s))
            faelle.push_back({zeile.mid(5), {}});
        else if (zeile.startsWith(u' '))
            faelle.at(faelle.size() - 1).anweisungen.back().darunter.append(zeile.trimmed());
        else
            for (const QString& teil : zeile.split(u" ; "_s))
                faelle.at(faelle.size() - 1).anweisungen.push_back({nummer, teil.trimmed(), {}});
    }
    return faelle;
}

QString lesbar(QString text)
{
    return text.replace(u'\r', u"\\r"_s).replace(u'\n', u"\\n"_s).trimmed();
}

bool passt(const QString& erwartet, const QString& text)
{
    const QString muster = QRegularExpression::escape(erwartet).replace(u"\\.\\.\\."_s, u".*"_s);
    return QRegularExpression(QRegularExpression::anchoredPattern(muster)).match(lesbar(text)).hasMatch();
}

void vergleiche(const QStringList& erwartet, QStringList ist)
{
    if (std::equal(erwartet.begin(), erwartet.end(), ist.begin(), ist.end(), passt)) return;
    std::transform(ist.begin(), ist.end(), ist.begin(), lesbar);
    scheitere(u"there is\n    "_s + ist.join(u"\n    "_s) + u"\ninstead of\n    "_s +
              erwartet.join(u"\n    "_s));
}

QDate tag(const QString& text)
{
    return QDate::fromString(text, u"d.M.yyyy"_s);
}

struct Antwort {
    Anweisung anweisung;
    QString wort, frage;
    bool oft, gegeben = false;
};

sys::Answer gemeint(const QString& wort)
{
    using enum sys::Answer;
    static const std::map<QString, sys::Answer> antworten{{u"Ja"_s, Yes},
                                                          {u"Nein"_s, No},
                                                          {u"Abbrechen"_s, Cancel},
                                                          {u"Abbruch"_s, Abort},
                                                          {u"Ignorieren"_s, Ignore}};
    return antworten.at(wort);
}

/// One case, from the fresh farm to the last of its steps.
class Lauf final : public sys::Messages {
public:
    Lauf(const QString& quelle, const Fall& fall)
        : m_quelle(quelle), m_name(fall.name), m_schritte(fall.anweisungen)
    {}

    void fuehreAus()
    {
        const sys::MessageScope umleitung(*this);
        QTimer::singleShot(0, &m_takt, [this] { takt(); });
        m_schleife.exec();
        m_fenster.reset();
    }

    sys::Answer show(const QString& text, int flags) override
    {
        const auto antwort = std::find_if(m_antworten.begin(), m_antworten.end(),
                                          [&](const Antwort& eine) { return passt(eine.frage, text); });
        if (antwort != m_antworten.end()) {
            antwort->gegeben = true;
            const Antwort diese = *antwort;
            if (!diese.oft) m_antworten.erase(antwort);
            for (const QString& dabei : diese.anweisung.darunter)
                tue({diese.anweisung.zeile, dabei, {}});
            return gemeint(diese.wort);
        }
        const bool frage = (flags & (sys::YesNo | sys::AbortRetryIgnore)) != 0;
        if (frage && !m_zuEnde) versage(u"a question without an answer: "_s + lesbar(text));
        if (!frage) m_meldungen.append(text);
        return frage ? sys::Answer::Cancel : sys::Answer::OK;
    }

private:
    /// Runs again and again, also in the loop of a modal window that a step has opened.
    void takt()
    {
        QTimer::singleShot(m_wartet ? 1 : 0, &m_takt, [this] { takt(); });
        if (m_zuEnde) return beende(); // once more: a window may have come since
        m_wartet = !bereit();
        if (m_wartet)
            return m_geduld.hasExpired() ? versage(u"the window has not opened or closed"_s) : void();
        if (m_schritte.empty()) return pruefeEnde();
        static const QRegularExpression vorher(
            u"^((bucht|fuellt|sql|lagername|betriebsname|stichtag|heute|einstellung|datei|sperre|antwort"
            u"|stets) |oeffne$)"_s);
        if (!m_fenster && !m_schritte.front().text.contains(vorher))
            m_schritte.push_front({m_schritte.front().zeile, u"oeffne"_s, {}});
        const Anweisung schritt = m_schritte.front();
        m_schritte.pop_front();
        const QScopedValueRollback laeuft(m_laeuft, true);
        const QScopedValueRollback davor(m_davor, vorn());
        m_geduld.setRemainingTime(Geduld);
        tue(schritt);
        m_geduld.setRemainingTime(Geduld);
    }

    /// A step that has not come back is in the loop of a window it has opened, or on the way there.
    bool bereit() const
    {
        if (m_laeuft && (!vorn() || vorn() == m_davor)) return false;
        if (!vorn() && m_fenster && m_fenster->isHidden()) return true; // the user has closed it
        QWidget* const fenster = vorn() ? vorn() : m_fenster.get();
        if (!fenster || fenster == QApplication::activePopupWidget() || fenster->isActiveWindow())
            return true;
        fenster->activateWindow(); // as a window manager does when another one has closed
        return false;
    }

    void tue(const Anweisung& schritt)
    {
        if (m_zuEnde) return;
        m_zeile = schritt.zeile;
        try {
            fuehreAus(schritt);
        } catch (const std::exception& fehler) {
            versage(QString::fromUtf8(fehler.what()));
        }
    }

    void pruefeEnde()
    {
        for (const Antwort& antwort : m_antworten)
            if (!antwort.gegeben) return versage(u"it was not asked: "_s + antwort.frage);
        if (!m_meldungen.isEmpty()) return versage(u"nobody expected: "_s + lesbar(m_meldungen.first()));
        if (QApplication::overrideCursor()) return versage(u"the mouse still shows an hourglass"_s);
        beende();
    }

    void versage(const QString& grund)
    {
        ADD_FAILURE_AT(m_quelle.toUtf8(), m_zeile) << m_name.toStdString() << ": " << grund.toStdString();
        beende();
    }

    void beende()
    {
        m_zuEnde = true;
        m_sperre.reset();
        while (vorn())
            vorn()->hide(); // ends its loop, whatever it would say to a close
        m_schleife.quit();
    }

    QString datei(const QString& name) const
    {
        if (name == u"Grundstamm") return m_hof.ort().daten() + u"/Grundstamm.mdb"_s;
        if (name == u"Anlagen") return m_hof.ort().anlagen() + u"/Anlagen.mdb"_s;
        if (name == u"Stammdaten") return m_hof.ort().programm() + u"/ZABStammdaten_2024.mdb"_s;
        if (name == u"Lieferschein")
            return m_hof.ort().lieferscheinformulare() + u"/Standardlieferschein.rpt"_s;
        return m_hof.journaldatei(name.toInt());
    }

    std::unique_ptr<jet::Database> oeffne(const QString& name)
    {
        static const QMap<QString, QString> kennworte{
            {u"Grundstamm"_s, u"RT-58KX"_s}, {u"Stammdaten"_s, u"RT-58KX"_s}, {u"Anlagen"_s, u"volmira"_s}};
        m_fremdes = std::make_unique<jet::Engine>(); // as another program does
        return m_fremdes->OpenDatabase(datei(name), u";pwd="_s + kennworte.value(name));
    }

    void fuelle(const QString& name, const QString& tabelle, const QStringList& zeilen)
    {
        const auto datei = oeffne(name);
        const auto ziel = datei->OpenRecordset(tabelle);
        const QStringList spalten = zeilen.first().split(u" | "_s);
        for (const QString& zeile : zeilen.mid(1)) {
            const QStringList zellen = zeile.split(u" | "_s);
            ziel->AddNew();
            for (qsizetype i = 0; i < zellen.size(); ++i)
                if (zellen[i] != u"NULL") ziel->Set(spalten.at(i), zellen[i]);
            ziel->Update();
        }
    }

    /// Out of its place, with rubbish there instead, and back.
    static void versetze(const QString& name, const QString& wie)
    {
        const QString dort = name + u".weg"_s;
        jet::engine().release();
        QFile::remove(wie == u"da" ? name : dort);
        QFile::rename(wie == u"da" ? dort : name, wie == u"da" ? name : dort);
        QFile kaputt(name);
        if (wie == u"kaputt" && kaputt.open(QIODevice::WriteOnly)) kaputt.write(QByteArray(5000, 'x'));
    }

    /// An answer that comes often replaces an earlier one to the same question.
    void antworte(const Antwort& antwort)
    {
        std::erase_if(m_antworten,
                      [&](const Antwort& eine) { return eine.oft && eine.frage == antwort.frage; });
        m_antworten.push_back(antwort);
    }

    static void einstellung(const QString& name, const QString& was)
    {
        const QString abschnitt = u"Lagerverwaltung"_s, wert = was.section(u' ', 1);
        if (was.startsWith(u'=')) return sys::SaveSetting(abschnitt, name, wert);
        vergleiche({wert}, {sys::GetSetting(abschnitt, name)});
    }

    void oeffneBildschirm()
    {
        m_fenster.reset(); // what it remembers is read by the next one
        m_fenster = std::make_unique<LagerbestandNeu>();
        m_fenster->show();
        m_fenster->activateWindow();
        if (!QTest::qWaitForWindowActive(m_fenster.get())) scheitere(u"the main screen has not come"_s);
        QCoreApplication::processEvents(); // the stock list comes after the first painting
    }

    QWidget& fenster() const
    {
        QWidget* const modal = QApplication::activeModalWidget();
        return modal ? *modal : *m_fenster;
    }

    template <class Ding = QWidget>
    Ding& feld(const QString& name) const
    {
        auto* const gefunden = fenster().findChild<Ding*>(name);
        if (!gefunden) scheitere(u"no step, and no field: "_s + name);
        return *gefunden;
    }

    void setze(QWidget& ziel, const QString& text)
    {
        geheIn(ziel);
        if (const auto* const knopf = qobject_cast<QAbstractButton*>(&ziel))
            return knopf->isChecked() == (text == u"an") ? void() : tippe(u"{Leer}");
        tippe(text.isEmpty() ? QString(u"{Entf}"_s) : text);
        m_schritte.push_front({m_zeile, u"tasten {Tab}"_s, {}});
    }

    /// Only the first: it may open a window that the next one goes to.
    void drueckeErste(const QString& tasten)
    {
        static const QRegularExpression eine(u"^(\\{[^}]+\\}|.)"_s);
        const QString diese = eine.match(tasten).captured();
        const QString weitere = tasten.mid(diese.size());
        if (!weitere.isEmpty()) m_schritte.push_front({m_zeile, u"tasten "_s + weitere, {}});
        tippe(diese);
    }

    void meldung(const QStringList& zeilen)
    {
        if (m_meldungen.isEmpty()) scheitere(u"nothing was said"_s);
        const QString text = m_meldungen.takeFirst();
        vergleiche(zeilen,
                   zeilen.size() == 1 ? QStringList(text) : text.split(u"\r\n"_s, Qt::SkipEmptyParts));
    }

    void papier(const QString& taste, const QStringList& zeilen) const
    {
        NEEDS_PDFTOTEXT;
        auto& Report = feld<report::PrintControl>(u"Report"_s);
        const QString datei = m_hof.ort().verzeichnis() + u"/papier.pdf"_s;
        QFile::remove(datei);
        Report.setDestination(report::PrintControl::ToFile);
        Report.setPrintFileName(datei);
        tippe(taste);
        QStringList gelesen;
        if (QFile::exists(datei))
            for (const QStringList& seite : readPdf(datei))
                gelesen += seite;
        // As one text, where a line "..." is any number of lines.
        vergleiche({zeilen.join(u"\\n"_s)}, {gelesen.join(u'\n')});
    }

    void oeffnet(const QString& taste, const QString& was, const QStringList& zeilen)
    {
        auto programm = std::make_unique<Rekorder>(u"xdg-open"_s);
        tippe(taste);
        const QString datei = m_meldungen.isEmpty() ? programm->aufruf().value(0) : m_meldungen.takeFirst();
        programm.reset();
        vergleiche({was}, {datei});
        if (zeilen.isEmpty()) return;
        NEEDS_OPENPYXL;
        vergleiche(zeilen, tabellenblatt(datei));
        QFile::remove(datei);
        QDir().rmdir(QFileInfo(datei).path());
    }

    void fuehreAus(const Anweisung& schritt)
    {
        const QString wort = schritt.text.section(u' ', 0, 0), rest = schritt.text.mid(wort.size() + 1);
        const QString erstes = rest.section(u' ', 0, 0), weiteres = rest.section(u' ', 1).trimmed();
        const QStringList& zeilen = schritt.darunter;
        const QStringList angaben = rest.isEmpty() ? zeilen : QStringList(rest);
        const auto alle = [&](const QString& davor) {
            return (QStringList(davor) + zeilen).join(u'\n').toUtf8();
        };
        using enum Fremdprogramm::Sperre;
        const auto wie = weiteres == u"ganz" ? Alles : Schreiben;
        // clang-format off
        const std::map<QString, std::function<void()>> worte = {
            {u"bucht"_s, [&] { m_hof.bucht(erstes.toInt(), alle(weiteres)); }},
            {u"fuellt"_s, [&] { fuelle(erstes, weiteres, zeilen); }},
            {u"sql"_s, [&] { oeffne(erstes)->Execute(QString::fromUtf8(alle(weiteres))); }},
            {u"lagername"_s, [&] { modulzustand().Lagername = rest; }},
            {u"betriebsname"_s, [&] { modulzustand().Betriebsname = rest; }},
            {u"stichtag"_s, [&] { modulzustand().Stichdatum = tag(rest); }},
            {u"heute"_s, [&] { sys::stelleUhr(tag(rest)); }},
            {u"einstellung"_s, [&] { einstellung(erstes, weiteres); }},
            {u"datei"_s, [&] { versetze(datei(weiteres), erstes); }},
            {u"sperre"_s, [&] { m_sperre = std::make_unique<Fremdprogramm>(datei(erstes), wie); }},
            {u"frei"_s, [&] { m_sperre.reset(); }},
            {u"antwort"_s, [&] { antworte({schritt, erstes, weiteres, false}); }},
            {u"stets"_s, [&] { antworte({schritt, erstes, weiteres, true}); }},
            {u"meldung"_s, [&] { meldung(angaben); }},
            {u"oeffne"_s, [&] { oeffneBildschirm(); }},
            {u"tasten"_s, [&] { drueckeErste(rest); }},
            {u"papier"_s, [&] { papier(erstes, zeilen); }},
            {u"oeffnet"_s, [&] { oeffnet(erstes, weiteres, zeilen); }},
            {u"feld"_s, [&] { geheIn(feld(rest)); }},
            {u"klick"_s, [&] { klicke(feld(erstes), weiteres.toInt(), false); }},
            {u"doppelklick"_s, [&] { klicke(feld(erstes), weiteres.toInt(), true); }},
            {u"kopf"_s, [&] { klickeKopf(feld<DataGrid>(erstes), weiteres); }},
            {u"fenster"_s, [&] { vergleiche({rest}, {fenster().windowTitle()}); }},
            {u"fokus"_s, [&] { vergleiche({rest}, {fokus().objectName()}); }},
            {u"markiert"_s, [&] { vergleiche({rest}, {markierter()}); }},
            {u"zeigt"_s, [&] { vergleiche(zeilen, gezeigt(*oeffne(erstes), weiteres)); }},
            {u"neu"_s, [&] { vergleiche(angaben, gezeigt(*oeffne(u"2024"_s), Neue)); }},
        };
        // clang-format on
        const auto gemeint = worte.find(wort);
        gemeint != worte.end() ? gemeint->second() : amFeld(wort, erstes, weiteres, zeilen);
    }

    void amFeld(const QString& name, const QString& wort, const QString& text, const QStringList& zeilen)
    {
        if (wort == u"=") return setze(feld(name), text);
        if (wort == u"zeigt" && !zeilen.isEmpty())
            return vergleiche(zeilen, rasterzeilen(feld<QTableView>(name)));
        if (wort == u"zeigt") return vergleiche({text}, {gesehen(feld<QObject>(name))});
        if (wort == u"hat")
            return vergleiche({text.section(u": "_s, 1)},
                              {rasterspalte(feld<DataGrid>(name), text.section(u": "_s, 0, 0))});
        if (wort == u"bietet") return vergleiche({text}, {angebot(feld<QComboBox>(name))});
        if (wort == u"sagt") return vergleiche({text}, {feld(name).toolTip()});
        if (wort == u"steht") return vergleiche({text.mid(4)}, {aktuelleZeile(feld<DataGrid>(name))});
        if (wort != u"ist" || !ist(feld<QObject>(name), text)) scheitere(name + u" is not "_s + text);
    }

    const QString m_quelle, m_name;
    std::deque<Anweisung> m_schritte;
    std::vector<Antwort> m_antworten;
    QStringList m_meldungen;
    Musterhof m_hof;
    std::unique_ptr<jet::Engine> m_fremdes;
    std::unique_ptr<LagerbestandNeu> m_fenster;
    std::unique_ptr<Fremdprogramm> m_sperre;
    QObject m_takt;
    QEventLoop m_schleife;
    QDeadlineTimer m_geduld{Geduld};
    QWidget* m_davor = nullptr; ///< What had the keys when the step began that is running.
    int m_zeile = 0;
    bool m_laeuft = false, m_wartet = false, m_zuEnde = false;
};

} // namespace

/// Each file of the room's folder is a test.
class Szenario : public testing::TestWithParam<QString> {};

TEST_P(Szenario, GehtWieGeschrieben)
{
    const QString datei = QStringLiteral(SZENARIEN) + u'/' + GetParam();
    for (const Fall& fall : leseFaelle(datei))
        Lauf(datei, fall).fuehreAus();
}

INSTANTIATE_TEST_SUITE_P(, Szenario,
                         testing::ValuesIn(QDir(QStringLiteral(SZENARIEN)).entryList({u"*.szenario"_s})),
                         [](const auto& datei) { return datei.param.section(u'.', 0, 0).toStdString(); });
