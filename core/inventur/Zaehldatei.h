#pragma once

#include "core/inventur/Zaehlliste.h"

#include <map>

/// What was counted and is not booked yet, in a file beside the journal of its year: a count of a day's work
/// must survive the end of the program at any moment. Each count is in the file when merke() returns.
///
/// Journal and file cannot commit together. Before the rows are written the file notes what they will be;
/// whoever opens it later finds them in the journal, or not, and then it is still to be booked.
class Zaehldatei {
public:
    using Zaehlungen = std::map<Paar, double>;

    explicit Zaehldatei(const QString& journaldatei);

    /// Reads what is not booked yet; empty where nothing is. \throws sys::FileError, and jet::Error of the
    /// journal; a file that cannot be read as one of ours is refused with its name.
    void lies(jet::Database& journal);
    const Zaehlungen& offene() const { return m_zaehlungen; }
    QDate Tag() const { return m_tag; }

    void setTag(QDate tag);                                       ///< The day that the counts are of.
    void merke(const Paar& paar, std::optional<double> gezaehlt); ///< No value: it is not counted any more.
    /// Rows of these quantities are written next, behind that ID.
    void merkeBuchung(qint64 hoechsteID, const Zaehlungen& mengen);
    /// They are in the journal: what is left is still to be booked. The last one takes the file away.
    void erledigt();

private:
    void schreibe() const;
    void streicheGebuchte(jet::Database& journal);

    QString m_datei;
    QDate m_tag;
    Zaehlungen m_zaehlungen;
    qint64 m_hoechsteID = -1; // -1: nothing was about to be written
    Zaehlungen m_mengen;
};
