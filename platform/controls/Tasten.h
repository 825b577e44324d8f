#pragma once

#include <QKeySequence>
#include <QList>
#include <QString>

#include <functional>
#include <vector>

class QWidget;

/// What keys do beside the letters that captions underline. The lines are told in Tasten.cpp.
enum class Taste {
    Hilfe,
    NeuLesen,
    Kurzel,
    Journal,
    Bestand,
    Lagerort,
    Artikelgruppe,
    Artikel,
    VonDatum,
    Jahr,
    AllesZeigen,
    NaechsteGruppe,
    VorigeGruppe,
    Drucken,
    Tabelle,
    Lieferscheine,
    Pruefen,
    Zuruecknehmen,
    Bestandsbild,
    Aendern,
    Loeschen,
    Kopieren,
    Naechster,
    Beenden,
    Liste,
};

/// Where a key holds: in every window, in one kind of window, or only while one kind of field has the focus.
enum class Geltung { Ueberall, Hauptbildschirm, Journal, Maske, Auswahlfeld };

struct Tastenzeile {
    Taste taste;
    Geltung gilt;
    QList<QKeySequence> tasten; ///< Any of them; the first is the one that is told.
    QString wirkung;            ///< In German, as the handbook tells it.
};

/// All keys of the program. They are bound as they stand here: what a desktop calls "refresh" or "new" is
/// another key on each of them.
const std::vector<Tastenzeile>& tastentabelle();

const Tastenzeile& tastenzeile(Taste taste);

/// The key as German keyboards name it: "Strg+Umschalt+Eingabe".
QString tastenname(const QKeySequence& taste);
QString tastenname(Taste taste); ///< Of the first key of the line.

/// Calls the handler when the key is pressed anywhere in the window of `ort`, or with a narrower context in
/// `ort` alone; not while a list, a menu or a modal window lies over that window.
void bindeTaste(Taste taste, QWidget& ort, const std::function<void()>& handler,
                Qt::ShortcutContext context = Qt::WindowShortcut);

/// F6 and Umschalt+F6 in a window: to the next and the previous of the fields that its groups begin with,
/// which are in the order of the tabulator. The field that is left is checked as Tab does it.
void bindeGruppen(QWidget& fenster, const std::vector<QWidget*>& anfaenge);

/// Tells the key at the control that does the same: as its tool tip, or where it has one already for
/// assistive tools.
void nenneTaste(Taste taste, QWidget& control);
