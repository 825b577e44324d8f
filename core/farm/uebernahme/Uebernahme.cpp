#include "core/farm/uebernahme/Uebernahme.h"

#include "core/farm/Jahresdateien.h"
#include "core/farm/Namenswarnung.h"
#include "core/farm/Schema.h"
#include "core/farm/Sicherung.h"
#include "core/farm/uebernahme/Bestandsaufnahme.h"
#include "core/farm/uebernahme/Uebertragung.h"
#include "platform/jet/Errors.h"
#include "platform/system/CaughtError.h"
#include "platform/system/Files.h"
#include "platform/system/Path.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>
#include <QTemporaryDir>

#include <algorithm>
#include <map>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype ArtikelAufLieferschein = 50; // letters

/// An old file that can come.
struct Altquelle {
    oldfile::File datei;
    Dateiart art;
    std::optional<int> jahr; ///< Of a journal and a register.
    std::vector<Tabellenplan> plaene;
    Bestandsaufnahme fund;

    QString name() const { return QFileInfo(datei.path()).fileName(); }
};

bool istLeer(jet::Database& datei)
{
    return std::ranges::all_of(datei.TableDefs(), [&](const jet::TableDef& tabelle) {
        return datei.OpenRecordset(u"SELECT TOP 1 * FROM ["_s + tabelle.name + u']', jet::Kind::Snapshot)
            ->Eof();
    });
}

QString zeileVon(const Probe& probe)
{
    QString text = u"    %1: %2 Zeilen, Prüfzahl %3"_s.arg(probe.tabelle)
                       .arg(probe.zeilen)
                       .arg(probe.pruefzahl, 16, 16, QChar(u'0'));
    if (probe.bestaende > 0) text += u", %1 Bestände"_s.arg(probe.bestaende);
    if (!probe.ersterTag.isEmpty()) text += u", %1 bis %2"_s.arg(probe.ersterTag, probe.letzterTag);
    return text + (probe.unterschied.isEmpty() ? u": gleich"_s : u": "_s + probe.unterschied);
}

class Uebernahme {
public:
    explicit Uebernahme(const Uebernahmeauftrag& auftrag) : m_auftrag(auftrag) {}

    bool laufe()
    {
        for (const QString& pfad : altdateien(m_auftrag.suche))
            unterAufsicht(pfad, [&] { nimmAuf(pfad); });
        nenneVerluste();
        nenneNamen();
        nenneSpaetereJahre();
        if (m_auftrag.probe) return m_alles;
        for (const Altquelle& quelle : m_quellen)
            unterAufsicht(quelle.datei.path(), [&] { uebernimm(quelle); });
        verbreitere();
        return m_alles;
    }

private:
    void unterAufsicht(const QString& pfad, const std::function<void()>& arbeit);
    void klage(const QString& text)
    {
        m_alles = false;
        m_auftrag.klage(text);
    }
    void verlangeKennwort(const oldfile::File& datei) const;
    std::vector<jet::TableDef> tabellenHier(Dateiart art);
    void nimmAuf(const QString& pfad);
    void nenneVerluste();
    void nenneNamen() const;
    void nenneSpaetereJahre() const;
    QString ziel(const Altquelle& quelle) const;
    void uebernimm(const Altquelle& quelle);
    void legeAn(const Altquelle& quelle, const QString& datei);
    void fuelle(const Altquelle& quelle, const QString& datei);
    void vergleiche(const Altquelle& quelle, jet::Database& neu) const;
    void verbreitere();

    const Uebernahmeauftrag& m_auftrag;
    QTemporaryDir m_muster; // new files, which tell what tables there are
    std::vector<Altquelle> m_quellen;
    Breiten m_breiten;
    bool m_alles = true;
};

/// One file that cannot come keeps no other from coming.
void Uebernahme::unterAufsicht(const QString& pfad, const std::function<void()>& arbeit)
{
    try {
        arbeit();
    } catch (...) {
        const sys::CaughtError fehler = sys::caughtError();
        const QString name = QFileInfo(pfad).fileName();
        klage(name + u": "_s + fehler.text + u" (Fehler "_s + QString::number(fehler.number) + u')');
    }
}

/// The family's own passwords are known; another one is asked for.
void Uebernahme::verlangeKennwort(const oldfile::File& datei) const
{
    const QString bekannte[] = {kennwort(Dateiart::Grundstamm), kennwort(Dateiart::Anlagen),
                                verbindung(Dateiart::Lager).section(u'=', 1), m_auftrag.kennwort};
    if (std::ranges::any_of(bekannte, [&](const QString& eines) { return datei.accepts(eines); })) return;
    if (m_auftrag.frageKennwort && datei.accepts(m_auftrag.frageKennwort(datei.path()))) return;
    jet::raise(jet::ErrorNumber::WrongPassword);
}

std::vector<jet::TableDef> Uebernahme::tabellenHier(Dateiart art)
{
    const QString muster = m_muster.filePath(QString::number(int(art)));
    ::legeAn(art, muster);
    return oeffne(art, muster)->TableDefs();
}

void Uebernahme::nimmAuf(const QString& pfad)
{
    oldfile::File datei(pfad);
    if (!datei.header().isEncrypted) verlangeKennwort(datei); // of such a file nobody could try one
    const auto inhalt = datei.contents();
    const auto art = dateiart(inhalt);
    if (!art) return klage(QFileInfo(pfad).fileName() + u": Sie hat keine Tabelle eines Betriebes."_s);
    QStringList fremd = inhalt.links;
    auto plaene = tabellenplaene(inhalt, *art, tabellenHier(*art), fremd);
    auto fund = ::nimmAuf(datei, *art, plaene, m_breiten);
    auto jahr = jahrImNamen(pfad);
    if (!jahr && fund.jahre.size() == 1) jahr = *fund.jahre.begin();
    Altquelle quelle{std::move(datei), *art, jahr, std::move(plaene), std::move(fund)};
    if (!jahr && (art == Dateiart::Lager || art == Dateiart::ZABStammdaten))
        return klage(quelle.name() + u": Von welchem Jahr sie ist, sagen weder ihr Name noch ihre Tage."_s);
    for (const QString& tabelle : fremd)
        m_auftrag.sage(quelle.name() + u": Die Tabelle '"_s + tabelle +
                       u"' kennt dieses Programm nicht; sie bleibt"_s
                       u" in der alten Datei."_s);
    m_quellen.push_back(std::move(quelle));
}

void Uebernahme::nenneVerluste()
{
    for (const Altquelle& quelle : m_quellen) {
        if (quelle.fund.verluste_insgesamt == 0) continue;
        for (const Verlust& verlust : quelle.fund.verluste)
            m_auftrag.klage(
                u"%1: Tabelle '%2', Zeile %3, Spalte '%4': %5"_s.arg(quelle.name(), verlust.tabelle)
                    .arg(verlust.zeile)
                    .arg(verlust.spalte, verlust.grund));
        const QString werte =
            quelle.name() + u": %1 Werte kommen nicht mit"_s.arg(quelle.fund.verluste_insgesamt);
        if (m_auftrag.verluste)
            m_auftrag.klage(werte + u'.');
        else
            klage(werte + u"; die Datei bleibt aus. Mit --verluste kommt sie ohne diese Werte."_s);
    }
    if (!m_auftrag.verluste)
        std::erase_if(m_quellen, [](const auto& quelle) { return quelle.fund.verluste_insgesamt > 0; });
}

void Uebernahme::nenneNamen() const
{
    std::map<QString, QString> warnungen;
    for (const Altquelle& quelle : m_quellen) {
        for (const QString& name : quelle.fund.namen)
            warnungen[name] = namenswarnung(name);
        for (const QString& name : quelle.fund.artikel)
            warnungen[name] =
                name.size() > ArtikelAufLieferschein
                    ? u"'"_s + name + u"' ist länger als 50 Zeichen und passt auf keinen Lieferschein."_s
                    : artikelwarnung(name);
    }
    for (const auto& [name, warnung] : warnungen)
        if (!warnung.isEmpty()) m_auftrag.sage(u"Warnung: "_s + warnung);
}

void Uebernahme::nenneSpaetereJahre() const
{
    const auto vorhandene = jahresdateien(m_auftrag.ziel.betriebsordner);
    for (const Altquelle& quelle : m_quellen) {
        if (quelle.art != Dateiart::Lager || vorhandene.empty() || *quelle.jahr >= vorhandene.back())
            continue;
        if (std::ranges::find(vorhandene, *quelle.jahr) != vorhandene.end()) continue;
        QStringList spaetere;
        for (const int jahr : vorhandene)
            if (jahr > *quelle.jahr) spaetere.append(QString::number(jahr));
        m_auftrag.sage(quelle.name() + u": Der nächste Übertrag rechnet die Anfangsbestände von "_s +
                       spaetere.join(u", "_s) + u" neu."_s);
    }
}

QString Uebernahme::ziel(const Altquelle& quelle) const
{
    const Uebernahmeziel& ort = m_auftrag.ziel;
    switch (quelle.art) {
    case Dateiart::Lager: return sys::localPath(journaldatei(ort.betriebsordner, *quelle.jahr));
    case Dateiart::Grundstamm: return sys::localPath(grundstammdatei(ort.daten));
    case Dateiart::Anlagen: return sys::localPath(anlagendatei(ort.anlagen));
    case Dateiart::ZABStammdaten:
        return sys::localPath(stammdatei(ort.programm, QString::number(*quelle.jahr)));
    }
    Q_UNREACHABLE();
}

void Uebernahme::uebernimm(const Altquelle& quelle)
{
    const QString datei = ziel(quelle);
    if (!sys::Exist(datei)) return legeAn(quelle, datei);
    const bool leer = quelle.art != Dateiart::Lager && istLeer(*oeffne(quelle.art, datei));
    if (leer) return fuelle(quelle, datei);
    m_auftrag.sage(quelle.name() + u": '"_s + datei + u"' ist schon da und bleibt, wie sie ist."_s);
}

/// The file is built and compared under a name of its own, so that an interrupted run leaves no half one.
void Uebernahme::legeAn(const Altquelle& quelle, const QString& datei)
{
    const QString entwurf = sys::draftName(datei);
    const auto raeumeAuf = qScopeGuard([&] { QFile::remove(entwurf); });
    try {
        const auto neu = erzeuge(quelle.art, entwurf);
        // Not as a new file: a setting that the old one lacks means something.
        bringeAufStand(*neu, quelle.art);
        neu->BeginTrans();
        uebertrage(quelle.datei, quelle.plaene, m_breiten, quelle.art, *neu);
        neu->CommitTrans();
        vergleiche(quelle, *neu);
        neu->Close();
    } catch (const jet::Error& fehler) { // the user knows the file, not its draft
        throw jet::Error(fehler.number(), QString(fehler.text()).replace(entwurf, datei));
    }
    sys::CopyWhereMissing(entwurf, datei);
}

/// Master data that were just set up have no rows yet.
void Uebernahme::fuelle(const Altquelle& quelle, const QString& datei)
{
    const auto neu = oeffne(quelle.art, datei);
    bringeAufStand(*neu, quelle.art);
    neu->BeginTrans();
    auto verwirf = qScopeGuard([&] { neu->Rollback(); });
    uebertrage(quelle.datei, quelle.plaene, m_breiten, quelle.art, *neu);
    vergleiche(quelle, *neu);
    neu->CommitTrans();
    verwirf.dismiss();
}

/// \throws jet::Error when anything differs: the file is not kept then.
void Uebernahme::vergleiche(const Altquelle& quelle, jet::Database& neu) const
{
    m_auftrag.sage(quelle.name() + u" -> "_s + ziel(quelle));
    bool gleich = true;
    for (const Probe& probe : gegenprobe(quelle.datei, quelle.plaene, quelle.art, neu)) {
        m_auftrag.sage(zeileVon(probe));
        gleich = gleich && probe.unterschied.isEmpty();
    }
    if (!gleich)
        throw jet::Error(jet::ErrorNumber::ReservedError,
                         u"Was geschrieben wurde, gleicht der alten Datei nicht; sie kommt nicht."_s);
}

/// Names go from one year to the next and from the master data into bookings: what holds them must have
/// room for them.
void Uebernahme::verbreitere()
{
    const Uebernahmeziel& ort = m_auftrag.ziel;
    std::vector<std::pair<Dateiart, QString>> dateien{{Dateiart::Lager, vorlagedatei(ort.programm)},
                                                      {Dateiart::Grundstamm, grundstammdatei(ort.daten)},
                                                      {Dateiart::Anlagen, anlagendatei(ort.anlagen)}};
    for (const int jahr : jahresdateien(ort.betriebsordner))
        dateien.emplace_back(Dateiart::Lager, journaldatei(ort.betriebsordner, jahr));
    for (const auto& paar : dateien)
        unterAufsicht(sys::localPath(paar.second), [&] {
            if (!sys::Exist(paar.second)) return;
            const auto datei = oeffne(paar.first, paar.second);
            if (m_breiten.passt(*datei, paar.first)) return;
            sichereVorAenderung(datei->Name());
            datei->BeginTrans();
            m_breiten.passeAn(*datei, paar.first);
            datei->CommitTrans();
        });
}

} // namespace

bool uebernimm(const Uebernahmeauftrag& auftrag)
{
    return Uebernahme(auftrag).laufe();
}
