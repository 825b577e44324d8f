#include "core/farm/umbenennung/Stammname.h"

#include "core/farm/Dateien.h"
#include "core/farm/Jahresdateien.h"
#include "core/farm/stammdaten/Stammliste.h"
#include "platform/jet/TextLiteral.h"
#include "platform/jet/TextOrder.h"
#include "platform/system/Files.h"

#include <QScopeGuard>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

std::vector<Stammliste> listen(Namensart was)
{
    if (was == Namensart::Lagerort) return {lagerorte()};
    if (was == Namensart::Partner) return {geschaeftspartner()};
    std::vector<Stammliste> alle;
    for (const Artikelart& art : artikelarten())
        alle.push_back(artikel(art));
    return alle;
}

QString datei(Namensart was, const Umbenennungsort& ort)
{
    return was == Namensart::Lagerort ? anlagendatei(ort.anlagenverzeichnis)
                                      : grundstammdatei(ort.datenverzeichnis);
}

Dateiart dateiart(Namensart was)
{
    return was == Namensart::Lagerort ? Dateiart::Anlagen : Dateiart::Grundstamm;
}

/// The field by which journals know the current row: the first of the list's names that is filled.
QStringView namensfeld(const jet::Recordset& zeilen, const Stammliste& liste)
{
    for (const QStringView feld : liste.namen)
        if (const jet::Value wert = zeilen[feld]; !wert.isNull() && !wert.toText().trimmed().isEmpty())
            return feld;
    return liste.namen.front();
}

/// Makes the row current that journals know by a name. \returns whether there is one.
bool findet(jet::Recordset& zeilen, const Stammliste& liste, const QString& name)
{
    if (zeilen.RecordCount() == 0) return false;
    for (zeilen.MoveFirst(); !zeilen.Eof(); zeilen.MoveNext()) {
        const jet::Value wert = zeilen[namensfeld(zeilen, liste)];
        if (!wert.isNull() && jet::compareTexts(wert.toText(), name) == 0) return true;
    }
    return false;
}

/// Calls it with each table that knows the old name, on its row; `neue` says whether it knows the new one.
void jeTabelle(const Umbenennung& umbenennung, jet::Database& stamm,
               const std::function<void(jet::Recordset& alte, const Stammliste& liste, bool neue)>& tu)
{
    for (const Stammliste& liste : listen(umbenennung.was)) {
        const QString quelle = u"SELECT * FROM "_s + liste.tabelle + liste.auswahl;
        const auto zeilen = stamm.OpenRecordset(quelle);
        const bool neue = !umbenennung.nurSchreibweise() && findet(*zeilen, liste, umbenennung.neu);
        if (findet(*zeilen, liste, umbenennung.alt)) tu(*zeilen, liste, neue);
    }
}

void kopiere(jet::Recordset& zeilen, const Stammliste& liste, const QString& name)
{
    const QStringView namensspalte = namensfeld(zeilen, liste);
    const auto werte = zeilen.RowAt(zeilen.AbsolutePosition());
    if (!werte) return;
    zeilen.AddNew();
    for (std::size_t i = 0; i < werte->size(); ++i)
        if (!(*werte)[i].isNull()) zeilen.Set(zeilen.Fields()[i].name, (*werte)[i]);
    zeilen.Set(namensspalte, name);
    zeilen.Update();
}

void setze(jet::Recordset& zeilen, QStringView feld, const jet::Value& wert)
{
    zeilen.Edit();
    zeilen.Set(feld, wert);
    zeilen.Update();
}

QStringList saetze(const Umbenennung& umbenennung, const Umbenennungsort& ort,
                   const std::function<QString(jet::Recordset&, const Stammliste&, bool)>& satz)
{
    const QString pfad = datei(umbenennung.was, ort);
    if (!sys::Exist(pfad)) return {};
    QStringList alle;
    const auto stamm = oeffne(dateiart(umbenennung.was), pfad);
    jeTabelle(umbenennung, *stamm, [&](jet::Recordset& alte, const Stammliste& liste, bool neue) {
        if (const QString einer = satz(alte, liste, neue); !einer.isEmpty()) alle.append(einer);
    });
    return alle;
}

} // namespace

QStringList stammplan(const Umbenennung& umbenennung, const Umbenennungsort& ort)
{
    return saetze(umbenennung, ort, [&](jet::Recordset&, const Stammliste& liste, bool neue) {
        const QString wo = u"Stammdaten, "_s + liste.tabelle + u": "_s;
        if (!umbenennung.betrieb.isEmpty())
            return neue ? QString()
                        : wo + u"'"_s + umbenennung.alt + u"' bleibt, '"_s + umbenennung.neu +
                              u"' kommt mit denselben Angaben dazu."_s;
        if (neue)
            return wo + u"'"_s + umbenennung.alt + u"' wird gesperrt, '"_s + umbenennung.neu + u"' bleibt."_s;
        return wo + u"'"_s + umbenennung.alt + u"' heißt dann '"_s + umbenennung.neu + u"'."_s;
    });
}

QStringList stammhindernisse(const Umbenennung& umbenennung, const Umbenennungsort& ort)
{
    if (umbenennung.was != Namensart::Artikel || umbenennung.nurSchreibweise()) return {};
    QStringList einheiten, arten;
    for (const QString& name : {umbenennung.alt, umbenennung.neu})
        saetze({umbenennung.was, name, name, {}}, ort,
               [&](jet::Recordset& zeile, const Stammliste& liste, bool) {
                   arten.append(liste.tabelle);
                   if (const jet::Value einheit = zeile[u"Einheit"]; !einheit.isNull())
                       einheiten.append(einheit.toText());
                   return QString();
               });
    QStringList gruende;
    for (auto [was, werte] : {std::pair{u"Artikelarten"_s, arten}, {u"Einheiten"_s, einheiten}}) {
        werte.removeDuplicates();
        if (werte.size() > 1)
            gruende.append(u"In den Stammdaten haben sie verschiedene "_s + was + u" ("_s +
                           werte.join(u", "_s) + u")."_s);
    }
    return gruende;
}

void schreibeStamm(const Umbenennung& umbenennung, const Umbenennungsort& ort)
{
    const QString pfad = datei(umbenennung.was, ort);
    if (!sys::Exist(pfad)) return;
    const auto stamm = oeffne(dateiart(umbenennung.was), pfad);
    stamm->BeginTrans();
    auto nichts = qScopeGuard([&stamm] { stamm->Rollback(); });
    jeTabelle(umbenennung, *stamm, [&](jet::Recordset& alte, const Stammliste& liste, bool neue) {
        if (umbenennung.betrieb.isEmpty() && neue)
            setze(alte, liste.sperre, liste.gesperrt);
        else if (umbenennung.betrieb.isEmpty())
            setze(alte, namensfeld(alte, liste), umbenennung.neu);
        else if (!neue)
            kopiere(alte, liste, umbenennung.neu);
    });
    stamm->CommitTrans();
    nichts.dismiss();
}

QStringList verlasseneRegister(const Umbenennung& umbenennung, const Umbenennungsort& ort)
{
    QStringList jahre;
    if (umbenennung.was != Namensart::Artikel || umbenennung.nurSchreibweise()) return jahre;
    for (const int jahr : registerjahre(ort.programmverzeichnis)) {
        const auto register_ =
            oeffne(Dateiart::ZABStammdaten, stammdatei(ort.programmverzeichnis, QString::number(jahr)));
        const auto kennt = [&](const QString& name) {
            return !register_
                        ->OpenRecordset(u"SELECT TOP 1 NAME FROM PFLANZENSCHUTZMITTEL WHERE NAME = "_s +
                                            jet::textLiteral(name),
                                        jet::Kind::Snapshot)
                        ->Eof();
        };
        if (kennt(umbenennung.alt) && !kennt(umbenennung.neu)) jahre.append(QString::number(jahr));
    }
    return jahre;
}
