#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>

/// What of a journal is to have another name.
enum class Namensart { Artikel, Lagerort, Partner };

/// The column of the journal that holds such names.
QStringView journalspalte(Namensart was);

/// Another name for what journals call by one. Where the engine's comparison says that both are the same it
/// is a matter of spelling; where the new one is there already two become one.
struct Umbenennung {
    Namensart was = Namensart::Artikel;
    QString alt, neu;
    QString betrieb; ///< Of one farm alone, which leaves the master data's row to the others; empty: of all.

    bool nurSchreibweise() const;
    bool operator==(const Umbenennung&) const = default;
};

/// Where the files are that have the name.
struct Umbenennungsort {
    QString datenverzeichnis, programmverzeichnis, anlagenverzeichnis;

    QStringList betriebe(const Umbenennung& umbenennung) const; ///< Those that it is about.
};
