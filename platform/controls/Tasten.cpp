#include "platform/controls/Tasten.h"

#include "platform/controls/Wiring.h"

#include <QShortcut>
#include <QWidget>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// To another of the groups that can be gone to.
void springe(const QWidget& fenster, std::vector<QWidget*> anfaenge, int richtung)
{
    std::erase_if(anfaenge, [](const QWidget* feld) { return !feld->isVisible() || !feld->isEnabled(); });
    QWidget* const hier = fenster.focusWidget();
    if (!hier || anfaenge.empty()) return;
    const auto gruppe = [&](QWidget* feld) { return std::ranges::find(anfaenge, feld); };
    QWidget* beginn = hier;
    while (gruppe(beginn) == anfaenge.end() && beginn->previousInFocusChain() != hier)
        beginn = beginn->previousInFocusChain();
    const auto anzahl = std::ssize(anfaenge);
    const auto ziel = (gruppe(beginn) - anfaenge.begin() + richtung + anzahl) % anzahl;
    anfaenge[static_cast<std::size_t>(ziel)]->setFocus(richtung > 0 ? Qt::TabFocusReason
                                                                    : Qt::BacktabFocusReason);
}

} // namespace

// None is a key that text fields keep for themselves on any desktop (Ctrl with A, C, D, E, K, U, V, X, Y or Z
// among them, but for copying and taking back, which lists do as fields do), and none is Ctrl+Alt, which
// types letters as AltGr does.
const std::vector<Tastenzeile>& tastentabelle()
{
    using enum Geltung;
    // clang-format off
    static const std::vector<Tastenzeile> tabelle{
        {Taste::Hilfe, Ueberall, {Qt::Key_F1}, u"öffnet die Hilfe an der Stelle, an der Sie sind"_s},
        {Taste::NeuLesen, Ueberall, {Qt::Key_F5},
         u"liest die Listen neu; die Zeile, auf der Sie stehen, bleibt"_s},
        {Taste::NaechsteGruppe, Ueberall, {Qt::Key_F6}, u"zur nächsten Gruppe von Feldern"_s},
        {Taste::VorigeGruppe, Ueberall, {Qt::SHIFT | Qt::Key_F6}, u"zur vorigen Gruppe"_s},
        {Taste::Kurzel, Hauptbildschirm, {Qt::CTRL | Qt::Key_N},
         u"zum Feld für das Kürzel einer neuen Eintragung"_s},
        {Taste::Journal, Hauptbildschirm, {Qt::CTRL | Qt::Key_1}, u"zum Bewegungsjournal"_s},
        {Taste::Bestand, Hauptbildschirm, {Qt::CTRL | Qt::Key_2}, u"zur Lagerstandsliste"_s},
        {Taste::Lagerort, Hauptbildschirm, {Qt::CTRL | Qt::Key_O}, u"zur Eingrenzung nach dem Lagerort"_s},
        {Taste::Artikelgruppe, Hauptbildschirm, {Qt::CTRL | Qt::Key_G},
         u"zur Eingrenzung nach der Artikelgruppe"_s},
        {Taste::Artikel, Hauptbildschirm, {Qt::CTRL | Qt::Key_F}, u"zur Eingrenzung nach dem Artikel"_s},
        {Taste::VonDatum, Hauptbildschirm, {Qt::CTRL | Qt::Key_T}, u"zum ersten Tag des Zeitraums"_s},
        {Taste::Jahr, Hauptbildschirm, {Qt::CTRL | Qt::Key_J}, u"zum Kalenderjahr"_s},
        {Taste::AllesZeigen, Hauptbildschirm, {Qt::CTRL | Qt::Key_0}, u"hebt alle Eingrenzungen auf"_s},
        {Taste::Drucken, Hauptbildschirm, {Qt::CTRL | Qt::Key_P}, u"druckt die gezeigte Liste"_s},
        {Taste::Tabelle, Hauptbildschirm, {Qt::Key_F12},
         u"übergibt die gezeigte Liste an die Tabellenkalkulation"_s},
        {Taste::Lieferscheine, Hauptbildschirm, {Qt::CTRL | Qt::Key_L}, u"öffnet die Lieferscheine"_s},
        {Taste::Pruefen, Hauptbildschirm, {Qt::CTRL | Qt::Key_M}, u"prüft die Pflanzenschutzmittel"_s},
        {Taste::Bestandsbild, Hauptbildschirm, {Qt::CTRL | Qt::Key_H}, u"zeigt den Verlauf des Bestandes"_s},
        {Taste::Aendern, Journal, {Qt::Key_Return, Qt::Key_Enter},
         u"ändert die Eintragung, auf der Sie stehen"_s},
        {Taste::Loeschen, Journal, {Qt::Key_Delete}, u"löscht die Eintragung, auf der Sie stehen"_s},
        {Taste::Kopieren, Journal, {Qt::CTRL | Qt::Key_C}, u"kopiert die markierten Zeilen"_s},
        {Taste::Zuruecknehmen, Journal, {Qt::CTRL | Qt::Key_Z},
         u"nimmt die letzte Buchung, Änderung oder Löschung zurück"_s},
        {Taste::Naechster, Maske, {Qt::CTRL | Qt::Key_Return, Qt::CTRL | Qt::Key_Enter},
         u"speichert und beginnt die nächste Eintragung"_s},
        {Taste::Beenden, Maske, {Qt::CTRL | Qt::SHIFT | Qt::Key_Return, Qt::CTRL | Qt::SHIFT | Qt::Key_Enter},
         u"speichert und schließt die Maske"_s},
        {Taste::Liste, Auswahlfeld, {Qt::Key_F2, Qt::Key_F4, Qt::ALT | Qt::Key_Down},
         u"öffnet die Liste oder den Kalender des Feldes"_s},
    };
    // clang-format on
    return tabelle;
}

const Tastenzeile& tastenzeile(Taste taste)
{
    const auto zeile = std::ranges::find(tastentabelle(), taste, &Tastenzeile::taste);
    Q_ASSERT(zeile != tastentabelle().end());
    return *zeile;
}

QString tastenname(const QKeySequence& taste)
{
    return taste.toString(QKeySequence::PortableText)
        .replace(u"Ctrl+"_s, u"Strg+"_s)
        .replace(u"Shift+"_s, u"Umschalt+"_s)
        .replace(u"Return"_s, u"Eingabe"_s)
        .replace(u"Del"_s, u"Entf"_s)
        .replace(u"Down"_s, u"↓"_s);
}

QString tastenname(Taste taste)
{
    return tastenname(tastenzeile(taste).tasten.constFirst());
}

void bindeTaste(Taste taste, QWidget& ort, const std::function<void()>& handler, Qt::ShortcutContext context)
{
    for (const QKeySequence& folge : tastenzeile(taste).tasten) {
        auto* const kurztaste = new QShortcut(folge, &ort);
        kurztaste->setContext(context);
        kurztaste->setAutoRepeat(false); // a key held too long counts once
        verdrahte(kurztaste, &QShortcut::activated, kurztaste, handler);
    }
}

void bindeGruppen(QWidget& fenster, const std::vector<QWidget*>& anfaenge)
{
    bindeTaste(Taste::NaechsteGruppe, fenster, [&fenster, anfaenge] { springe(fenster, anfaenge, +1); });
    bindeTaste(Taste::VorigeGruppe, fenster, [&fenster, anfaenge] { springe(fenster, anfaenge, -1); });
}

void nenneTaste(Taste taste, QWidget& control)
{
    const QString name = tastenname(taste);
    control.toolTip().isEmpty() ? control.setToolTip(name) : control.setAccessibleDescription(name);
}
