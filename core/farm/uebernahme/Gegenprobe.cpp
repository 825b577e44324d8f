#include "core/farm/uebernahme/Uebertragung.h"

#include <QCryptographicHash>
#include <QtEndian>

#include <cmath>
#include <map>

using namespace Qt::StringLiterals;

namespace {

/// One side of the comparison. A row is the forms of its cells, see gleichform().
class Seite {
public:
    Seite(const Tabellenplan& plan, Dateiart art)
        : m_artikel(stelle(plan, art, u"Artikel")), m_ort(stelle(plan, art, u"LagerortKurzKu")),
          m_menge(stelle(plan, art, u"Menge")), m_datum(stelle(plan, art, u"Datum"))
    {}

    void zeile(const std::vector<QByteArray>& formen, double menge)
    {
        ++zeilen;
        QCryptographicHash pruefzahl_(QCryptographicHash::Md5);
        for (const QByteArray& form : formen) {
            const qsizetype laenge = form.size();
            pruefzahl_.addData(QByteArrayView(reinterpret_cast<const char*>(&laenge), sizeof laenge));
            pruefzahl_.addData(form);
        }
        pruefzahl += qFromLittleEndian<quint64>(pruefzahl_.result().constData());
        const auto form = [&](int stelle) {
            return stelle < 0 ? QByteArray() : formen[static_cast<std::size_t>(stelle)];
        };
        if (m_menge >= 0) summen[{form(m_artikel), form(m_ort)}] += menge;
        if (const QByteArray tag = form(m_datum).mid(1, 8); !tag.isEmpty()) {
            erster = erster.isEmpty() ? tag : std::min(erster, tag);
            letzter = std::max(letzter, tag);
        }
    }

    int mengenstelle() const { return m_menge; }

    qint64 zeilen = 0;
    quint64 pruefzahl = 0;
    std::map<std::pair<QByteArray, QByteArray>, double> summen;
    QByteArray erster, letzter;

private:
    static int stelle(const Tabellenplan& plan, Dateiart art, QStringView feld)
    {
        return art == Dateiart::Lager ? plan.stelle(feld) : -1;
    }

    int m_artikel, m_ort, m_menge, m_datum;
};

double mengeVon(const oldfile::Cell& zelle)
{
    if (const auto* const zahl = std::get_if<double>(&zelle)) return *zahl;
    if (const auto* const betrag = std::get_if<oldfile::Currency>(&zelle))
        return static_cast<double>(betrag->tenThousandths) / 10000;
    const auto* const ganze = std::get_if<qint64>(&zelle);
    return ganze ? static_cast<double>(*ganze) : 0;
}

Seite alteSeite(const oldfile::File& alt, const Tabellenplan& plan, Dateiart art)
{
    Seite seite(plan, art);
    alt.read(plan.alt, [&](const std::vector<oldfile::Cell>& zellen) {
        std::vector<QByteArray> formen;
        for (std::size_t i = 0; i < zellen.size(); ++i) {
            const auto& spalte = plan.spalten[i];
            const bool geht = spalte.verlust.isEmpty() && umgesetzt(zellen[i], spalte.ziel).verlust.isEmpty();
            formen.push_back(geht ? gleichform(zellen[i]) : QByteArray());
        }
        const int menge = seite.mengenstelle();
        seite.zeile(formen, menge < 0 ? 0 : mengeVon(zellen[static_cast<std::size_t>(menge)]));
    });
    return seite;
}

Seite neueSeite(jet::Database& neu, const Tabellenplan& plan, Dateiart art)
{
    Seite seite(plan, art);
    const auto zeilen = neu.OpenRecordset(u"SELECT * FROM ["_s + plan.ziel + u']', jet::Kind::Snapshot);
    for (; !zeilen->Eof(); zeilen->MoveNext()) {
        std::vector<QByteArray> formen;
        for (std::size_t i = 0; i < plan.spalten.size(); ++i) {
            const auto& spalte = plan.spalten[i];
            formen.push_back(spalte.verlust.isEmpty()
                                 ? gleichform((*zeilen)[spalte.ziel.name], plan.alt.columns[i])
                                 : QByteArray());
        }
        seite.zeile(formen, seite.mengenstelle() < 0 ? 0 : (*zeilen)[u"Menge"].toDouble());
    }
    return seite;
}

/// Sums add in another order on each side.
bool gleicheSummen(const Seite& a, const Seite& b)
{
    constexpr double Staub = 1e-6;
    return std::ranges::equal(a.summen, b.summen, [](const auto& links, const auto& rechts) {
        return links.first == rechts.first &&
               std::abs(links.second - rechts.second) <= Staub * std::max(1.0, std::abs(links.second));
    });
}

QString unterschied(const Seite& alt, const Seite& neu)
{
    if (alt.zeilen != neu.zeilen) return u"%1 Zeilen statt %2"_s.arg(neu.zeilen).arg(alt.zeilen);
    if (alt.pruefzahl != neu.pruefzahl) return u"andere Werte"_s;
    if (!gleicheSummen(alt, neu)) return u"andere Bestände"_s;
    if (alt.erster != neu.erster || alt.letzter != neu.letzter) return u"andere Tage"_s;
    return {};
}

QString tag(const QByteArray& form)
{
    return QDate::fromString(QString::fromLatin1(form), u"yyyyMMdd"_s).toString(u"dd.MM.yyyy"_s);
}

} // namespace

std::vector<Probe> gegenprobe(const oldfile::File& alt, const std::vector<Tabellenplan>& plaene, Dateiart art,
                              jet::Database& neu)
{
    std::vector<Probe> proben;
    for (const Tabellenplan& plan : plaene) {
        const Seite links = alteSeite(alt, plan, art);
        const Seite rechts = neueSeite(neu, plan, art);
        proben.push_back({plan.ziel, rechts.zeilen, rechts.pruefzahl,
                          static_cast<qsizetype>(rechts.summen.size()), tag(rechts.erster),
                          tag(rechts.letzter), unterschied(links, rechts)});
    }
    return proben;
}
