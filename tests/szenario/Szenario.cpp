#include "tests/szenario/Szenario.h"

#include "overview/LagerbestandNeu.h"
#include "platform/report/PrintControl.h"
#include "platform/system/Clock.h"
#include "platform/system/Settings.h"
#include "tests/platform/family/Tabellenblatt.h"
#include "tests/platform/jet/Fremdprogramm.h"
#include "tests/platform/report/Pdf.h"
#include "tests/platform/system/Rekorder.h"
#include "tests/support/Bildschirm.h"
#include "tests/szenario/Bedienung.h"
#include "tests/szenario/Musterhof.h"

#include <QApplication>
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
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr int Geduld = 5000; // ms, for a window to open or close

const QString Zeilen = u"SELECT Datum, LagerortKurzKu, Artikel, Menge, Buchungsart FROM LAGERJOURNAL ORDER BY ID"_s;
const QString Spalten =
    u"SELECT Datum, LagerortKurzKu, Artikel, Artikelart, Menge, Buchungsmenge, Einheit, Preis, Preisfaktor,"
    u" Buchungsart, BuchungsID, Uberstallt_alt, Verfuttert_an, Kommentar FROM LAGERJOURNAL WHERE ID > %1 ORDER BY ID"_s;

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
    if (!quelle.open(QIODevice::ReadOnly)) throw std::runtime_error("cannot read " + datei.toStdString());
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
    scheitere(u"there is\n    "_s + ist.join(u"\n    "_s) + u"\ninstead of\n    "_s + erwartet.join(u"\n    "_s));
}

QDate tag(const QString& text)
{
    return QDate::fromString(text, u"d.M.yyyy"_s);
}

struct Antwort {
    Anweisung anweisung;
    QString wort, frage;
    bool gegeben = false;

    sys::Answer gib(int flags)
    {
        using enum sys::Answer;
        static const std::map<QString, sys::Answer> antworten{{u"OK"_s, OK},         {u"Ja"_s, Yes},
                                                              {u"Nein"_s, No},       {u"Wiederholen"_s, Retry},
                                                              {u"Abbruch"_s, Abort}, {u"Ignorieren"_s, Ignore}};
        constexpr int Knoepfe = 7;
        gegeben = true;
        return wort == u"Abbruch" && (flags & Knoepfe) != sys::AbortRetryIgnore ? Cancel : antworten.at(wort);
    }
};

/// One case, from the fresh farm to the last of its steps.
class Lauf final : public sys::Messages {
public:
    Lauf(const QString& quelle, const Fall& fall, Musterhof& hof)
        : m_quelle(quelle), m_name(fall.name), m_schritte(fall.anweisungen), m_hof(hof)
    {}

    void fuehreAus()
    {
        m_hof.stelleHer();
        const sys::MessageScope umleitung(*this);
        QTimer::singleShot(0, &m_takt, [this] { takt(); });
        m_schleife.exec();
        m_fenster.reset();
    }

    sys::Answer show(const QString& text, int flags) override
    {
        const auto erwartet = [&](const Antwort& antwort) { return passt(antwort.frage, text); };
        if (!m_antworten.empty() && erwartet(m_antworten.front())) {
            Antwort antwort = m_antworten.front();
            m_antworten.pop_front();
            for (const QString& dabei : antwort.anweisung.darunter)
                tue({antwort.anweisung.zeile, dabei, {}});
            return antwort.gib(flags);
        }
        const auto immer = std::find_if(m_immer.begin(), m_immer.end(), erwartet);
        if (immer != m_immer.end()) return immer->gib(flags);
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
        if (m_wartet) return m_geduld.hasExpired() ? versage(u"the window has not opened or closed"_s) : void();
        if (m_schritte.empty()) return pruefeEnde();
        static const QRegularExpression vorher(
            u"^((bucht|fuellt|sql|host|heute|einstellung|datei|sperre|antwort|stets) |oeffne$)"_s);
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
        if (!fenster || fenster == QApplication::activePopupWidget() || fenster->isActiveWindow()) return true;
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
        std::vector<Antwort> alle(m_antworten.begin(), m_antworten.end());
        alle.insert(alle.end(), m_immer.begin(), m_immer.end());
        for (const Antwort& antwort : alle)
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
        if (name == u"Formular") return m_hof.ort().programm() + u"/Report/Lagerverwaltung/Lagerjournal.rpt"_s;
        if (name == u"Lieferschein") return m_hof.ort().lieferscheinformulare() + u"/Standardlieferschein.rpt"_s;
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
        const auto ziel = datei->OpenRecordset(tabelle, jet::Kind::Table);
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
        if (wie == u"da") QFile::remove(name);
        if (QFile::exists(wie == u"da" ? dort : name) &&
            !QFile::rename(wie == u"da" ? dort : name, wie == u"da" ? name : dort))
            scheitere(u"cannot be renamed: "_s + name);
        QFile kaputt(name);
        if (wie == u"kaputt" && kaputt.open(QIODevice::WriteOnly)) kaputt.write(QByteArray(5000, 'x'));
    }

    void sperre(const QString& name, const QString& ganz)
    {
        using enum Fremdprogramm::Sperre;
        m_sperre = std::make_unique<Fremdprogramm>(datei(name), ganz.isEmpty() ? Schreiben : Alles);
    }

    static void setzeHost(const QString& was, const QString& wert)
    {
        if (was == u"Stichdatum")
            modulzustand().Stichdatum = tag(wert);
        else
            (was == u"Lagername" ? modulzustand().Lagername : modulzustand().Betriebsname) = wert;
    }

    static void einstellung(const QString& name, const QString& was)
    {
        const QString abschnitt = u"Lagerverwaltung"_s, wert = was.section(u' ', 1);
        if (was.startsWith(u'=')) return sys::SaveSetting(abschnitt, name, wert);
        vergleiche({wert}, {sys::GetSetting(abschnitt, name)});
    }

    void oeffneBildschirm()
    {
        try {
            if (!m_sperre) m_letzteID = gezeigt(*oeffne(u"2024"_s), u"SELECT Max(ID) FROM LAGERJOURNAL"_s).value(0);
        } catch (const jet::Error&) {
            m_letzteID.clear(); // the screen has to tell that
        }
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
        vergleiche(zeilen, zeilen.size() == 1 ? QStringList(text) : text.split(u"\r\n"_s, Qt::SkipEmptyParts));
    }

    void papier(const QString& taste, const QStringList& zeilen) const
    {
        NEEDS_PDFTOTEXT;
        auto* const Report = fenster().findChild<report::PrintControl*>();
        if (!Report) scheitere(u"there is nothing to print here"_s);
        const QString datei = m_hof.ort().verzeichnis() + u"/papier.pdf"_s;
        QFile::remove(datei);
        Report->setDestination(report::PrintControl::ToFile);
        Report->setPrintFileName(datei);
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
        QString datei;
        {
            Rekorder programm(u"xdg-open"_s);
            tippe(taste);
            datei = m_meldungen.isEmpty() ? programm.aufruf().value(0) : m_meldungen.takeFirst();
        }
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
        const auto alle = [&](const QString& davor) { return (QStringList(davor) + zeilen).join(u'\n').toUtf8(); };
        // clang-format off
        const std::map<QString, std::function<void()>> worte = {
            {u"bucht"_s, [&] { m_hof.bucht(erstes.toInt(), alle(weiteres)); }},
            {u"fuellt"_s, [&] { fuelle(erstes, weiteres, zeilen); }},
            {u"sql"_s, [&] { oeffne(erstes)->Execute(QString::fromUtf8(alle(weiteres))); }},
            {u"host"_s, [&] { setzeHost(erstes, weiteres); }},
            {u"heute"_s, [&] { sys::stelleUhr(tag(rest)); }},
            {u"einstellung"_s, [&] { einstellung(erstes, weiteres); }},
            {u"datei"_s, [&] { versetze(datei(weiteres), erstes); }},
            {u"sperre"_s, [&] { sperre(erstes, weiteres); }},
            {u"frei"_s, [&] { m_sperre.reset(); }},
            {u"antwort"_s, [&] { m_antworten.push_back({schritt, erstes, weiteres}); }},
            {u"stets"_s, [&] { m_immer.push_front({schritt, erstes, weiteres}); }},
            {u"meldung"_s, [&] { meldung(rest.isEmpty() ? zeilen : QStringList(rest)); }},
            {u"oeffne"_s, [&] { oeffneBildschirm(); }},
            {u"tasten"_s, [&] { drueckeErste(rest); }},
            {u"papier"_s, [&] { papier(erstes, zeilen); }},
            {u"oeffnet"_s, [&] { oeffnet(erstes, weiteres, zeilen); }},
            {u"feld"_s, [&] { geheIn(feld(rest)); }},
            {u"klick"_s, [&] { klicke(feld(erstes), weiteres.toInt(), false); }},
            {u"doppelklick"_s, [&] { klicke(feld(erstes), weiteres.toInt(), true); }},
            {u"kopf"_s, [&] { klickeKopf(feld(erstes), weiteres); }},
            {u"fenster"_s, [&] { vergleiche({rest}, {fenster().windowTitle()}); }},
            {u"fokus"_s, [&] { vergleiche({rest}, {fokus().objectName()}); }},
            {u"markiert"_s, [&] { vergleiche({rest}, {markierter()}); }},
            {u"zeigt"_s, [&] { vergleiche(zeilen, gezeigt(*oeffne(erstes), weiteres)); }},
            {u"journal"_s, [&] { vergleiche(zeilen, gezeigt(*oeffne(rest), Zeilen)); }},
            {u"neu"_s, [&] { vergleiche(rest.isEmpty() ? zeilen : QStringList(rest),
                                        gezeigt(*oeffne(u"2024"_s), Spalten.arg(m_letzteID))); }},
        };
        // clang-format on
        const auto gemeint = worte.find(wort);
        gemeint != worte.end() ? gemeint->second() : amFeld(wort, erstes, weiteres, zeilen);
    }

    void amFeld(const QString& name, const QString& wort, const QString& text, const QStringList& zeilen)
    {
        if (wort == u"=") return setze(feld(name), text);
        if (wort == u"zeigt" && !zeilen.isEmpty()) return vergleiche(zeilen, rasterzeilen(feld(name)));
        if (wort == u"zeigt") return vergleiche({text}, {gesehen(feld<QObject>(name))});
        if (wort == u"hat")
            return vergleiche({text.section(u": "_s, 1)}, {rasterspalte(feld(name), text.section(u": "_s, 0, 0))});
        if (wort == u"bietet") return vergleiche({text}, {angebot(feld(name))});
        if (wort == u"sagt") return vergleiche({text}, {feld(name).toolTip()});
        if (wort == u"steht") return vergleiche({text.mid(4)}, {aktuelleZeile(feld(name))});
        if (wort != u"ist" || !ist(feld<QObject>(name), text)) scheitere(name + u" is not "_s + text);
    }

    const QString m_quelle, m_name;
    std::deque<Anweisung> m_schritte;
    std::deque<Antwort> m_antworten;
    std::deque<Antwort> m_immer; ///< The latest first.
    QStringList m_meldungen;
    Musterhof& m_hof;
    QString m_letzteID; ///< In the open year, when the screen opened.
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

TEST_P(Szenario, GehtWieGeschrieben)
{
    Musterhof hof;
    const QString datei = QStringLiteral(SZENARIEN) + u'/' + QString::fromStdString(GetParam()) + u".szenario"_s;
    for (const Fall& fall : leseFaelle(datei))
        Lauf(datei, fall, hof).fuehreAus();
}

std::vector<std::string> Szenario::dateien()
{
    std::vector<std::string> namen;
    for (const QString& name : QDir(QStringLiteral(SZENARIEN)).entryList({u"*.szenario"_s}, QDir::Files, QDir::Name))
        namen.push_back(name.section(u'.', 0, 0).toStdString());
    return namen;
}

INSTANTIATE_TEST_SUITE_P(, Szenario, testing::ValuesIn(Szenario::dateien()),
                         [](const auto& datei) { return datei.param; });
