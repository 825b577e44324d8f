#pragma once

#include "platform/jet/Database.h"

#include <QString>

#include <optional>
#include <vector>

// Taking back what the masks and the deletes of this session have written, last first. It is held in memory
// alone: the journal stays the only truth.

/// What one booking, its change or its deletion did to its rows in the open year's file.
struct Ruecknahme {
    /// A row with the values of all its columns, in table order; empty: it was not there.
    struct Zeile {
        qint64 ID;
        std::vector<jet::Value> vorher, nachher;
    };
    QString was; ///< As the user is told: "die neue Eintragung Zukauf 25 dt Weizen vom 03.04.2026".
    std::vector<Zeile> zeilen; ///< Two of a transfer, its issue or the row that was chosen first.
};

/// Watches a booking while it is written. What ends without fertig() cannot be taken back.
class Aufzeichnung {
public:
    /// \param was what it is called, where that is not one new, changed or deleted row.
    explicit Aufzeichnung(jet::Database& journal, const QString& was = {})
        : m_journal(journal), m_hatNamen(!was.isEmpty())
    {
        m_ruecknahme.was = was;
    }

    void vorher(qint64 ID); ///< The row is about to be changed or deleted.
    void neu(qint64 ID);    ///< The row has come.
    /// All is written. What has changed nothing, or cannot be read now, is forgotten.
    void fertig() noexcept;

private:
    void merke();
    void liesGeschriebenes();

    jet::Database& m_journal;
    bool m_hatNamen;
    Ruecknahme m_ruecknahme;
};

/// What became of it, for the user.
struct Zurueckgenommen {
    bool gelungen;
    QString satz;
    std::optional<qint64> ID; ///< Of a row that stands there now.
};

/// Takes the last one back, all its rows in one commit, if they still stand as they were written; one that
/// does not is told and forgotten, so that those before it can be taken back. A deleted row comes back with
/// its ID. \throws jet::Error Locked, DiskFull and what else the file refuses: it can be tried again.
Zurueckgenommen nimmZurueck(jet::Database& journal);
