#include "core/farm/Schema.h"

#include "core/farm/Sicherung.h"
#include "platform/jet/Engine.h"
#include "platform/jet/Errors.h"
#include "platform/system/Files.h"

#include <QFile>
#include <QMap>
#include <QRegularExpression>
#include <QScopeGuard>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct Schritt {
    int version; ///< That a file has with it; 0: a part of new files alone.
    QStringList anweisungen;
};

/// A step begins with a line "-- " and its version; each statement ends with a semicolon at the end of a
/// line.
std::vector<Schritt> gelesen(const QString& schema)
{
    QFile quelle(u":/schema/"_s + schema + u".sql"_s);
    const bool geoeffnet = quelle.open(QIODevice::ReadOnly);
    Q_ASSERT(geoeffnet);
    static const QRegularExpression ueberschrift(u"^-- (\\d*)[^\n]*\n"_s,
                                                 QRegularExpression::MultilineOption);
    const QString text = QString::fromUtf8(quelle.readAll());
    std::vector<Schritt> alle;
    auto treffer = ueberschrift.globalMatch(text);
    while (treffer.hasNext()) {
        const auto dieser = treffer.next();
        const qsizetype ende = treffer.hasNext() ? treffer.peekNext().capturedStart() : text.size();
        const QString inhalt = text.mid(dieser.capturedEnd(), ende - dieser.capturedEnd());
        alle.push_back({dieser.captured(1).toInt(), inhalt.split(u";\n"_s, Qt::SkipEmptyParts)});
    }
    return alle;
}

const std::vector<Schritt>& schritte(Dateiart art)
{
    static const std::vector<Schritt> jeArt[] = {gelesen(u"Lager"_s), gelesen(u"Grundstamm"_s),
                                                 gelesen(u"Anlagen"_s), gelesen(u"ZABStammdaten"_s)};
    return jeArt[static_cast<std::size_t>(art)];
}

int neuesteVersion(const std::vector<Schritt>& alle)
{
    return alle.back().version;
}

/// \returns whether it was done; not, where there already is, or is no longer, what it is about.
bool fuehreAus(jet::Database& datei, const QString& anweisung)
{
    using enum jet::ErrorNumber;
    try {
        datei.Execute(anweisung);
        return true;
    } catch (const jet::Error& fehler) {
        const bool istDa = fehler.number() == TableExists || fehler.number() == ColumnExists ||
                           fehler.number() == IndexExists;
        const bool istWeg = fehler.number() == ObjectNotFound && anweisung.startsWith(u"DROP");
        if (!istDa && !istWeg) throw;
        return false;
    }
}

/// A table that was there before this program made any lacks columns, perhaps. Rows that are there already
/// can be given no key.
void ergaenzeSpalten(jet::Database& datei, const QString& anweisung)
{
    const QString tabelle = anweisung.section(u'(', 0, 0).mid(int(std::size("CREATE TABLE")));
    const QString spalten = anweisung.section(u'(', 1).chopped(1);
    for (const QString& spalte : spalten.split(u','))
        if (!spalte.contains(u"PRIMARY KEY"))
            fuehreAus(datei, u"ALTER TABLE "_s + tabelle + u" ADD COLUMN "_s + spalte);
}

void macheSchritte(jet::Database& datei, const std::vector<Schritt>& alle, int vorher)
{
    for (const Schritt& schritt : alle) {
        if (schritt.version <= vorher) continue;
        for (const QString& anweisung : schritt.anweisungen)
            if (!fuehreAus(datei, anweisung) && anweisung.startsWith(u"CREATE TABLE"))
                ergaenzeSpalten(datei, anweisung);
    }
}

/// The statements of the indices that a file has at last, by "INDEX name ON table".
QMap<QString, QString> indices(const std::vector<Schritt>& alle)
{
    QMap<QString, QString> bleibende;
    for (const Schritt& schritt : alle)
        for (const QString& anweisung : schritt.anweisungen) {
            if (anweisung.startsWith(u"CREATE INDEX "))
                bleibende[anweisung.section(u' ', 1, 4)] = anweisung;
            else if (anweisung.startsWith(u"DROP INDEX "))
                bleibende.remove(anweisung.section(u' ', 1, 4));
        }
    return bleibende;
}

/// Those of them that somebody has dropped.
QStringList fehlendeIndices(const jet::Database& datei, const std::vector<Schritt>& alle)
{
    QStringList fehlende;
    for (const QString& anweisung : indices(alle))
        if (!datei.HasIndex(anweisung.section(u' ', 4, 4), anweisung.section(u' ', 2, 2)))
            fehlende.append(anweisung);
    return fehlende;
}

} // namespace

void legeTabellenAn(jet::Database& datei, Dateiart art)
{
    const auto& alle = schritte(art);
    datei.BeginTrans();
    for (const Schritt& schritt : alle)
        for (const QString& anweisung : schritt.anweisungen)
            fuehreAus(datei, anweisung);
    datei.setSchemaVersion(neuesteVersion(alle));
    datei.CommitTrans();
}

QStringList fehlendeIndices(const jet::Database& datei, Dateiart art)
{
    QStringList namen;
    for (const QString& anweisung : fehlendeIndices(datei, schritte(art)))
        namen.append(anweisung.section(u' ', 2, 2));
    return namen;
}

Aktualisierung bringeAufStand(jet::Database& datei, Dateiart art)
{
    verweigereNeuere(datei, art);
    const auto& alle = schritte(art);
    const int vorher = datei.SchemaVersion();
    if (vorher == neuesteVersion(alle) && fehlendeIndices(datei, alle).isEmpty()) return {vorher, vorher};

    sichereVorAenderung(datei.Name());
    datei.BeginTrans();
    auto verworfen = qScopeGuard([&] { datei.Rollback(); });
    verweigereNeuere(datei, art); // another program, and perhaps a newer one, may have been quicker
    macheSchritte(datei, alle, datei.SchemaVersion());
    for (const QString& anweisung : fehlendeIndices(datei, alle))
        fuehreAus(datei, anweisung);
    datei.setSchemaVersion(neuesteVersion(alle));
    datei.CommitTrans();
    verworfen.dismiss();
    return {vorher, neuesteVersion(alle)};
}

void bringeAufStandWennMoeglich(Dateiart art, const QString& datei, const QString& verbindung)
{
    using enum jet::ErrorNumber;
    const int geduld = jet::engine().LockTimeout();
    jet::engine().setLockTimeout(0);
    const auto wieder = qScopeGuard([geduld] { jet::engine().setLockTimeout(geduld); });
    try {
        bringeAufStand(*oeffne(art, datei, verbindung), art);
    } catch (const jet::Error& fehler) {
        constexpr jet::ErrorNumber Hindernisse[] = {Locked, ReadOnly, CannotOpenFile, DiskFull};
        if (std::ranges::find(Hindernisse, fehler.number()) == std::end(Hindernisse)) throw;
    }
}

void verweigereNeuere(const jet::Database& datei, Dateiart art)
{
    const int bekannt = neuesteVersion(schritte(art));
    if (datei.SchemaVersion() <= bekannt) return;
    throw jet::Error(
        jet::ErrorNumber::UnknownFormat,
        jet::errorText(jet::ErrorNumber::UnknownFormat, {datei.Name()}) +
            u" Die Datei ist von einer neueren Lagerverwaltung (Stand %1, bekannt ist Stand %2)."_s
                .arg(datei.SchemaVersion())
                .arg(bekannt));
}

void verweigereNeuere(Dateiart art, const QString& datei, const QString& verbindung)
{
    if (sys::Exist(datei)) oeffne(art, datei, verbindung);
}
