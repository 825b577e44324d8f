#pragma once

#include "platform/jet/Database.h"

#include <QHash>
#include <QString>

#include <map>
#include <optional>
#include <vector>

/// Texts as small numbers. Two that the engine takes for equal have one number; 0 is NULL.
class Textnummern {
public:
    int nummer(const QString& text);
    /// Of a text that has been met; the first one of its equals.
    const QString& text(int nummer) const { return m_texte[static_cast<std::size_t>(nummer)]; }
    /// The number of a text that has been met; none otherwise.
    std::optional<int> bekannt(const QString& text) const;

private:
    struct Kleiner {
        bool operator()(const QString& links, const QString& rechts) const;
    };
    QHash<QString, int> m_gelesene; // each spelling is compared once
    std::map<QString, int, Kleiner> m_gleiche;
    std::vector<QString> m_texte{QString()};
};

/// A row of the journal, as far as a check looks at it. Texts are numbers of the journal's Textnummern.
struct Journalzeile {
    qint64 ID = 0;
    std::optional<double> tag; ///< Days since 30.12.1899 with the time as fraction.
    double menge = 0;          ///< NULL counts as 0, as in sums.
    int artikel = 0, art = 0, ort = 0, einheit = 0, buchungsart = 0, empfaenger = 0;
    qint64 partner = 0; ///< Of a transfer: the ID of its other row; 0: it names none.
    qint64 lieferschein = 0;
};

/// All rows of a journal in the order of their IDs.
struct Journalzeilen {
    Textnummern texte;
    std::vector<Journalzeile> zeilen;
};

Journalzeilen liesJournal(jet::Database& journal);
