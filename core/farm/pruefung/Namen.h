#pragma once

#include "core/farm/pruefung/Befund.h"
#include "core/farm/pruefung/Journalzeilen.h"

/// What articles and storage places the master data of a farm know.
class Stammnamen {
public:
    /// \param grundstamm, anlagen null: not readable, all names count as known then.
    Stammnamen(jet::Database* grundstamm, jet::Database* anlagen);

    /// Tells of names that the master data do not have, once each, and of those that break lists and filters.
    void pruefe(const Journalzeilen& journal, Befunde& befunde) const;

private:
    void pruefeNamen(const Journalzeilen& journal, Befunde& befunde) const;
    bool kennt(QStringView art, const QString& artikel) const;

    bool m_kenntArtikel, m_kenntOrte;
    std::map<QStringView, Textnummern> m_artikel; // by the name of their kind
    Textnummern m_orte;
};
