#pragma once

#include "core/farm/Dateien.h"
#include "core/farm/uebernahme/Zellen.h"
#include "platform/oldfile/File.h"

#include <vector>

/// Where the columns of an old table go.
struct Tabellenplan {
    struct Spalte {
        jet::Field ziel;  ///< As it is here, or will be for a column that this program does not know.
        bool neu = false; ///< That is so.
        QString verlust;  ///< Why it is left; empty: it goes along.
    };
    oldfile::Table alt;
    QString ziel;                ///< The table here.
    std::vector<Spalte> spalten; ///< One for each column of `alt`.

    /// The place of a column of `alt` that goes to the field; -1 without.
    int stelle(QStringView feld) const;
};

/// The tables of an old file that there are here, too. \param hier those of a new file of the kind.
/// `fremd`: the others, which are left.
std::vector<Tabellenplan> tabellenplaene(const oldfile::File::Contents& inhalt, Dateiart art,
                                         const std::vector<jet::TableDef>& hier, QStringList& fremd);
