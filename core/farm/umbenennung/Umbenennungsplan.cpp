#include "core/farm/umbenennung/Umbenennungsplan.h"

#include "core/farm/Dateien.h"
#include "core/farm/Jahresdateien.h"
#include "core/farm/Namenswarnung.h"
#include "core/farm/umbenennung/Journalname.h"
#include "core/farm/umbenennung/Stammname.h"
#include "platform/system/Files.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t Aufgezaehlte = 10;

int hoechstlaenge(Namensart was)
{
    return was == Namensart::Artikel ? 50 : 15;
}

QString aufgezaehlt(const std::vector<qint64>& nummern)
{
    QStringList texte;
    for (std::size_t i = 0; i < std::min(nummern.size(), Aufgezaehlte); ++i)
        texte.append(QString::number(nummern[i]));
    if (nummern.size() > Aufgezaehlte)
        texte.append(u"... ("_s + QString::number(nummern.size()) + u" Zeilen)"_s);
    return texte.join(u", "_s);
}

/// What is wrong with the names themselves.
QStringList namenshindernisse(const Umbenennung& umbenennung)
{
    QStringList gruende;
    const int laenge = hoechstlaenge(umbenennung.was);
    if (umbenennung.alt.trimmed().isEmpty() || umbenennung.neu.trimmed().isEmpty())
        gruende.append(u"Der alte und der neue Name dürfen nicht leer sein."_s);
    else if (umbenennung.alt == umbenennung.neu)
        gruende.append(u"Der neue Name ist der alte."_s);
    else if (umbenennung.was != Namensart::Partner && umbenennung.neu.contains(u'\''))
        gruende.append(u"Mit einem Apostroph im Namen lassen sich Bestände nicht weiterschreiben."_s);
    else if (umbenennung.neu.size() > laenge)
        gruende.append(u"'"_s + umbenennung.neu + u"' ist länger als "_s + QString::number(laenge) +
                       u" Zeichen."_s);
    return gruende;
}

void planeJahr(const Umbenennung& umbenennung, const QString& ordner, Jahresplan jahr, Umbenennungsplan& plan)
{
    const auto journal = oeffne(Dateiart::Lager, journaldatei(ordner, jahr.jahr));
    const Journalname name(*journal, umbenennung);
    jahr.zeilen = name.zeilen();
    if (jahr.zeilen == 0) return;
    jahr.gemeinsame = name.gemeinsame();
    const QString wo = u"Betrieb "_s + jahr.betrieb + u", Jahr "_s + QString::number(jahr.jahr) + u": "_s;
    if (const auto fremde = name.fremdeZeilen(); !fremde.empty())
        plan.hindernisse.append(wo + u"Buchungen anderer Programme, die ihn weiter so nennen: Nummer "_s +
                                aufgezaehlt(fremde) + u'.');
    for (const QString& grund : name.unvereinbare())
        plan.hindernisse.append(wo + grund + u'.');
    if (sys::Exist(ordner + u"\\Zaehlung."_s + QString::number(jahr.jahr)))
        plan.hindernisse.append(wo + u"Eine Inventur ist noch nicht gebucht."_s);
    plan.jahre.push_back(std::move(jahr));
}

} // namespace

Umbenennungsplan plane(const Umbenennung& umbenennung, const Umbenennungsort& ort)
{
    Umbenennungsplan plan;
    plan.hindernisse = namenshindernisse(umbenennung);
    if (!plan.hindernisse.isEmpty()) return plan;
    for (const QString& betrieb : ort.betriebe(umbenennung)) {
        const QString ordner = betriebsordner(ort.datenverzeichnis, betrieb);
        for (const int jahr : jahresdateien(ordner))
            planeJahr(umbenennung, ordner, {betrieb, jahr, 0, {}}, plan);
    }
    plan.stammdaten = stammplan(umbenennung, ort);
    if (plan.jahre.empty() && plan.stammdaten.isEmpty())
        plan.hindernisse.append(u"'"_s + umbenennung.alt +
                                u"' steht in keinem Journal und nicht in den Stammdaten."_s);
    plan.hindernisse += stammhindernisse(umbenennung, ort);
    for (const QString& jahr : verlasseneRegister(umbenennung, ort))
        plan.warnungen.append(u"Das Pflanzenschutzmittelregister "_s + jahr + u" kennt '"_s +
                              umbenennung.alt + u"', aber '"_s + umbenennung.neu +
                              u"' nicht; die Prüfung findet es dann nicht mehr."_s);
    const QString warnung = umbenennung.was == Namensart::Artikel ? artikelwarnung(umbenennung.neu)
                                                                  : namenswarnung(umbenennung.neu);
    if (!warnung.isEmpty()) plan.warnungen.append(warnung);
    return plan;
}

QString Umbenennungsplan::text() const
{
    QStringList zeilen;
    for (const Jahresplan& jahr : jahre) {
        QString zeile = u"Betrieb %1, Jahr %2: %3"_s.arg(jahr.betrieb).arg(jahr.jahr).arg(jahr.zeilen) +
                        (jahr.zeilen == 1 ? u" Zeile"_s : u" Zeilen"_s);
        if (!jahr.gemeinsame.isEmpty())
            zeile += u"; wird eins mit dem vorhandenen Bestand: "_s + jahr.gemeinsame.join(u", "_s);
        zeilen.append(zeile);
    }
    zeilen += stammdaten;
    for (const QString& warnung : warnungen)
        zeilen.append(u"Achtung: "_s + warnung);
    for (const QString& hindernis : hindernisse)
        zeilen.append(u"Geht nicht: "_s + hindernis);
    return zeilen.join(u'\n');
}
