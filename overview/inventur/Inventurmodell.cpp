#include "overview/inventur/Inventurmodell.h"

#include "core/Datumstext.h"
#include "platform/jet/Conversion.h"
#include "platform/jet/NumberFormat.h"
#include "platform/jet/TextOrder.h"
#include "platform/system/ErrorReport.h"
#include "platform/system/Messages.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool gleich(const QString& name, const QString& anderer)
{
    return jet::compareTexts(name, anderer) == 0;
}

} // namespace

void Inventurmodell::setze(std::vector<Zaehlzeile> zeilen)
{
    m_zeilen = std::move(zeilen);
    m_geaendert.clear();
    grenzeEin({}, {});
}

void Inventurmodell::grenzeEin(const QString& lagerort, const QString& artikelgruppe)
{
    beginResetModel();
    m_gezeigte.clear();
    for (std::size_t i = 0; i < m_zeilen.size(); ++i)
        if ((lagerort.isEmpty() || gleich(m_zeilen[i].paar.LagerortKurzKu, lagerort)) &&
            (artikelgruppe.isEmpty() || gleich(m_zeilen[i].Artikelart, artikelgruppe)))
            m_gezeigte.push_back(i);
    endResetModel();
}

void Inventurmodell::markiere(const std::vector<Zaehlzeile>& geaendert)
{
    for (const Zaehlzeile& zeile : geaendert)
        m_geaendert.insert(zeile.paar);
    if (rowCount() > 0) Q_EMIT dataChanged(index(0, Hinweis), index(rowCount() - 1, Hinweis));
}

std::vector<Zaehlzeile> Inventurmodell::gezeigte() const
{
    std::vector<Zaehlzeile> gezeigte;
    for (const std::size_t platz : m_gezeigte)
        gezeigte.push_back(m_zeilen[platz]);
    return gezeigte;
}

int Inventurmodell::gezaehlte() const
{
    return static_cast<int>(std::ranges::count_if(
        m_zeilen, [](const Zaehlzeile& zeile) { return zeile.Gezaehlt && !zeile.ZweiEinheiten; }));
}

const Zaehlzeile& Inventurmodell::zeile(const QModelIndex& zelle) const
{
    return m_zeilen[m_gezeigte[static_cast<std::size_t>(zelle.row())]];
}

int Inventurmodell::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_gezeigte.size());
}

int Inventurmodell::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : Hinweis + 1;
}

QVariant Inventurmodell::headerData(int abschnitt, Qt::Orientation richtung, int rolle) const
{
    if (richtung != Qt::Horizontal || rolle != Qt::DisplayRole) return {};
    static const QStringList titel = {u"Artikel"_s, u"Lagerort"_s,  u"Artikelgruppe"_s,
                                      u"Bestand"_s, u"Einheit"_s,   u"Letzte Zählung"_s,
                                      u"Gezählt"_s, u"Differenz"_s, u"Hinweis"_s};
    return titel[abschnitt];
}

Qt::ItemFlags Inventurmodell::flags(const QModelIndex& zelle) const
{
    const auto immer = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    return zelle.column() == Gezaehlt && !zeile(zelle).ZweiEinheiten ? immer | Qt::ItemIsEditable : immer;
}

QVariant Inventurmodell::data(const QModelIndex& zelle, int rolle) const
{
    if (rolle == Qt::TextAlignmentRole) {
        const bool zahl =
            zelle.column() == Buchbestand || zelle.column() == Gezaehlt || zelle.column() == Differenz;
        return QVariant(Qt::AlignVCenter | (zahl ? Qt::AlignRight : Qt::AlignLeft));
    }
    if (rolle == Qt::DisplayRole || rolle == Qt::EditRole) return text(zelle);
    return {};
}

QString Inventurmodell::text(const QModelIndex& zelle) const
{
    const Zaehlzeile& diese = zeile(zelle);
    const auto menge = [](std::optional<double> wert) {
        return wert ? jet::formatted(*wert, Mengenformat) : QString();
    };
    switch (zelle.column()) {
    case Artikel: return diese.paar.Artikel;
    case Lagerort: return diese.paar.LagerortKurzKu;
    case Artikelgruppe: return diese.Artikelart;
    case Buchbestand: return menge(diese.Bestand);
    case Einheit: return diese.Einheit;
    case LetzteZaehlung: return diese.LetzteZaehlung ? datumText(*diese.LetzteZaehlung) : QString();
    case Gezaehlt: return menge(diese.Gezaehlt);
    case Differenz: return menge(diese.Differenz());
    default: return hinweis(diese);
    }
}

QString Inventurmodell::hinweis(const Zaehlzeile& zeile) const
{
    if (zeile.ZweiEinheiten) return u"hat Zeilen in verschiedenen Einheiten und wird hier nicht gezählt"_s;
    if (m_geaendert.contains(zeile.paar))
        return u"Bestand hat sich geändert: bitte prüfen und noch einmal buchen"_s;
    return zeile.SpaetereBuchungen ? u"hat spätere Buchungen"_s : QString();
}

/// Nothing takes a count back; "0" counts that there is nothing.
bool Inventurmodell::setData(const QModelIndex& zelle, const QVariant& wert, int rolle)
{
    if (rolle != Qt::EditRole || zelle.column() != Gezaehlt) return false;
    const QString getippt = wert.toString().trimmed();
    const std::optional<double> zahl = jet::readNumber(getippt);
    if (!getippt.isEmpty() && (!zahl || *zahl < 0)) {
        sys::critical(
            u"\""_s + getippt +
            (zahl ? u"\" ist kleiner als 0; so viel kann nicht daliegen."_s : u"\" ist keine Zahl."_s));
        return false;
    }
    Zaehlzeile& diese = m_zeilen[m_gezeigte[static_cast<std::size_t>(zelle.row())]];
    const auto gezaehlt = getippt.isEmpty() ? std::nullopt : zahl;
    if (sys::underErrorReport({[&] { m_merke(diese.paar, gezaehlt); }}) != sys::Outcome::Done) return false;
    diese.Gezaehlt = gezaehlt;
    Q_EMIT dataChanged(zelle, index(zelle.row(), Hinweis));
    return true;
}
