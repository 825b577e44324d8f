#pragma once

#include "core/farm/umbenennung/Umbenennung.h"
#include "platform/jet/Database.h"

#include <vector>

/// A year's journal and the name that it is to lose.
class Journalname {
public:
    Journalname(jet::Database& journal, const Umbenennung& umbenennung);

    qsizetype zeilen() const;
    /// The numbers of rows that belong to another program, or are of a kind that no mask writes: who changes
    /// those here makes two programs disagree.
    std::vector<qint64> fremdeZeilen() const;
    /// What both names have in this year: of an article its places, of a place its articles.
    QStringList gemeinsame() const;
    /// Why what both have does not add up: they are of other units or kinds. Empty: it does.
    QStringList unvereinbare() const;

    /// Writes the new name, in one commit. Where two stocks become one and the year takes over those of the
    /// year before, of the two opening rows that a carry-forward maintains one stays, with what the year
    /// before ends with; all others add up. \param vorjahr the journal before, which has the new name
    /// already; null: there is none. \returns whether there was anything to do. \throws jet::Error; nothing
    /// is changed then, as where the stocks are others afterwards than before.
    bool schreibe(jet::Database* vorjahr);

private:
    struct Anfangsbestand; ///< Of a pair that both names have.

    QString gleich(const QString& name) const;
    QStringList texte(const QString& frage) const;
    std::vector<Anfangsbestand> doppelteAnfangsbestaende() const;
    std::vector<std::pair<QString, double>> bestaende(const QStringList& namen,
                                                      const QStringList& ohneID) const;

    jet::Database& m_journal;
    const Umbenennung& m_umbenennung;
    QString m_spalte, m_andere; ///< The column of the name, and that of what stands beside it in a stock.
};
