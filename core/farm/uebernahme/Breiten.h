#pragma once

#include "core/farm/Dateien.h"

#include <QMap>
#include <QString>

/// How many letters texts need, by what they are: the name of an article stands in the journal and in ten
/// tables of the master data, and is copied from one to the other. So all columns of the same thing grow
/// together.
class Breiten {
public:
    void braucht(Dateiart art, const QString& tabelle, const QString& spalte, int zeichen);
    /// Widens the columns of a file that are narrower. \throws jet::Error Locked, ReadOnly.
    void passeAn(jet::Database& datei, Dateiart art) const;
    /// Whether passeAn() would change it.
    bool passt(jet::Database& datei, Dateiart art) const;

private:
    int breite(Dateiart art, const QString& tabelle, const QString& spalte) const;
    QStringList anweisungen(jet::Database& datei, Dateiart art) const;

    QMap<QString, int> m_zeichen;
};
