#include "overview/stammdaten/Stammdatenmodell.h"

#include "core/Modulzustand.h"
#include "core/Verzeichnisse.h"
#include "core/farm/Namenswarnung.h"
#include "core/farm/Verwendung.h"
#include "platform/jet/Errors.h"
#include "platform/jet/NumberFormat.h"
#include "platform/jet/TextOrder.h"
#include "platform/system/ErrorReport.h"
#include "platform/system/Messages.h"

#include <QGuiApplication>
#include <QPalette>
#include <QScopeGuard>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString pfad(Dateiart art)
{
    return art == Dateiart::Anlagen ? anlagendatei(modulzustand().Anlagenverzeichnis)
                                    : grundstammdatei(datenverzeichnis());
}

} // namespace

Stammdatenmodell::~Stammdatenmodell() = default;

void Stammdatenmodell::zeige(const Stammliste& liste)
{
    beginResetModel();
    const auto ende = qScopeGuard([this] { endResetModel(); });
    m_zeilen.reset();
    m_werte.clear();
    m_liste = liste;
    m_datei = oeffne(liste.art, pfad(liste.art));
    auto zeilen = m_datei->OpenRecordset(u"SELECT * FROM "_s + liste.tabelle + liste.auswahl);
    for (const QStringView feld : m_liste.namen)
        if (!zeilen->PlaceOf(feld)) jet::raise(jet::ErrorNumber::NoSuchField, {feld.toString()});
    if (!zeilen->PlaceOf(m_liste.sperre))
        jet::raise(jet::ErrorNumber::NoSuchField, {m_liste.sperre.toString()});
    std::erase_if(m_liste.spalten, [&](const auto& spalte) { return !zeilen->PlaceOf(spalte.feld); });
    std::swap(m_zeilen, zeilen);
    for (qsizetype platz = 0; platz < m_zeilen->RecordCount(); ++platz)
        m_werte.push_back(gelesen(platz));
}

int Stammdatenmodell::rowCount(const QModelIndex& parent) const
{
    return !m_zeilen || parent.isValid() ? 0 : static_cast<int>(m_werte.size()) + 1;
}

int Stammdatenmodell::columnCount(const QModelIndex& parent) const
{
    return !m_zeilen || parent.isValid() ? 0 : static_cast<int>(m_liste.spalten.size()) + 1;
}

QVariant Stammdatenmodell::headerData(int abschnitt, Qt::Orientation richtung, int rolle) const
{
    if (richtung != Qt::Horizontal || rolle != Qt::DisplayRole) return {};
    const auto spalte = static_cast<std::size_t>(abschnitt);
    return spalte < m_liste.spalten.size() ? m_liste.spalten[spalte].titel : u"Gesperrt"_s;
}

/// What is new begins with its name.
Qt::ItemFlags Stammdatenmodell::flags(const QModelIndex& zelle) const
{
    const auto immer = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    const bool ohneName =
        istNeue(zelle) && std::ranges::find(m_liste.namen, feld(zelle)) == m_liste.namen.end();
    if (ohneName) return immer;
    return immer | (istSperre(zelle) ? Qt::ItemIsUserCheckable : Qt::ItemIsEditable);
}

QVariant Stammdatenmodell::data(const QModelIndex& zelle, int rolle) const
{
    if (istNeue(zelle)) {
        if (zelle.column() > 0) return {};
        if (rolle == Qt::ForegroundRole) return QGuiApplication::palette().placeholderText();
        return rolle == Qt::DisplayRole ? u"neu ..."_s : QVariant();
    }
    if (istSperre(zelle)) {
        if (rolle != Qt::CheckStateRole) return {};
        const bool gesperrt = zeile(zelle.row())[platzVon(m_liste.sperre)].toBool() == m_liste.gesperrt;
        return gesperrt ? Qt::Checked : Qt::Unchecked;
    }
    if (rolle == Qt::TextAlignmentRole) {
        const bool zahl = jet::isNumber(m_zeilen->Fields()[platzVon(feld(zelle))].type);
        return QVariant(Qt::AlignVCenter | (zahl ? Qt::AlignRight : Qt::AlignLeft));
    }
    if (rolle == Qt::DisplayRole || rolle == Qt::EditRole) return text(zelle);
    return {};
}

QString Stammdatenmodell::text(const QModelIndex& zelle) const
{
    const std::size_t platz = platzVon(feld(zelle));
    const jet::Value wert = zeile(zelle.row())[platz];
    if (wert.isNull()) return {};
    const bool preis = m_zeilen->Fields()[platz].type == jet::Type::Double;
    return preis ? jet::formatted(wert.toDouble(), u"##,##0.00##") : wert.toText();
}

bool Stammdatenmodell::setData(const QModelIndex& zelle, const QVariant& wert, int rolle)
{
    if (istSperre(zelle) ? rolle != Qt::CheckStateRole : rolle != Qt::EditRole) return false;
    jet::Value neu;
    if (istSperre(zelle))
        neu = (wert.toInt() == Qt::Checked) == m_liste.gesperrt;
    else if (const QString text = wert.toString().trimmed(); !text.isEmpty())
        neu = text;
    else if (istNeue(zelle))
        return false;
    return sys::underErrorReport({[&] { schreibe(zelle, neu); }}) == sys::Outcome::Done;
}

void Stammdatenmodell::schreibe(const QModelIndex& zelle, const jet::Value& wert)
{
    const bool neue = istNeue(zelle);
    const Zeile vorher = neue ? Zeile(m_zeilen->Fields().size()) : zeile(zelle.row());
    Zeile nachher = vorher;
    const std::size_t platz = platzVon(istSperre(zelle) ? m_liste.sperre : feld(zelle));
    nachher[platz] = wert;
    if (const QString grund = einwand(zelle.row(), vorher, nachher); !grund.isEmpty())
        return sys::critical(grund);
    if (neue) {
        m_zeilen->AddNew();
        for (const auto& vorgabe : m_liste.vorgaben)
            m_zeilen->Set(vorgabe.feld, vorgabe.wert);
    } else {
        m_zeilen->SetAbsolutePosition(zelle.row());
        m_zeilen->Edit();
    }
    auto verwirf = qScopeGuard([this] { m_zeilen->CancelUpdate(); });
    m_zeilen->Set(m_zeilen->Fields()[platz].name, wert);
    m_zeilen->Update();
    verwirf.dismiss();
    if (neue) beginInsertRows({}, zelle.row() + 1, zelle.row() + 1); // the next empty one
    if (neue) m_werte.emplace_back();
    m_werte[static_cast<std::size_t>(zelle.row())] = gelesen(zelle.row());
    if (neue) endInsertRows();
    Q_EMIT dataChanged(index(zelle.row(), 0), index(zelle.row(), columnCount() - 1));
    if (name(vorher) != name(nachher)) warne(name(nachher));
}

/// The name stands; what comes of it should be no surprise.
void Stammdatenmodell::warne(const QString& name) const
{
    const QString warnung = m_liste.journalspalte == u"Artikel" ? artikelwarnung(name) : namenswarnung(name);
    if (!warnung.isEmpty()) sys::messages().show(warnung, sys::Exclamation | sys::OKOnly);
}

QString Stammdatenmodell::einwand(int platz, const Zeile& vorher, const Zeile& nachher) const
{
    const QString alt = name(vorher);
    const QString neu = name(nachher);
    if (alt == neu) return {};
    if (neu.isEmpty()) return u"Ein "_s + m_liste.was + u" braucht einen Namen."_s;
    for (int andere = 0; andere < rowCount() - 1; ++andere)
        if (andere != platz && jet::compareTexts(name(zeile(andere)), neu) == 0)
            return u"Den "_s + m_liste.was + u" '"_s + neu + u"' gibt es schon."_s;
    if (alt.isEmpty()) return {};
    const auto benutzt = verwendung(datenverzeichnis(), m_liste.journalspalte, alt);
    if (!benutzt) return {};
    return u"Der "_s + m_liste.was + u" '"_s + alt + u"' steht im Journal "_s +
           QString::number(benutzt->jahr) + u" des Betriebes "_s + benutzt->Betrieb +
           u" und kann nicht anders heißen. Sperren Sie ihn und legen Sie einen neuen an."_s;
}

Stammdatenmodell::Zeile Stammdatenmodell::gelesen(qsizetype platz) const
{
    auto werte = m_zeilen->RowAt(platz);
    return werte ? std::move(*werte) : Zeile(m_zeilen->Fields().size()); // another program has deleted it
}

std::size_t Stammdatenmodell::platzVon(QStringView feld) const
{
    return m_zeilen->PlaceOf(feld).value();
}

QStringView Stammdatenmodell::feld(const QModelIndex& zelle) const
{
    return istSperre(zelle) ? m_liste.sperre : m_liste.spalten[static_cast<std::size_t>(zelle.column())].feld;
}

QString Stammdatenmodell::name(const Zeile& zeile) const
{
    for (const QStringView feld : m_liste.namen)
        if (const jet::Value& wert = zeile[platzVon(feld)]; !wert.isNull() && !wert.toText().isEmpty())
            return wert.toText();
    return {};
}

int Stammdatenmodell::laenge(const QModelIndex& zelle) const
{
    return m_zeilen->Fields()[platzVon(feld(zelle))].size;
}
