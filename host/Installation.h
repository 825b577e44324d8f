#pragma once

#include "core/farm/Dateien.h"

#include <QString>
#include <QStringList>

#include <vector>

struct Betriebsdatei {
    Dateiart art;
    QString pfad;
};

/// Everything of the program family below one directory:
///
///     programm/       the template Lager.vorlage, the report forms, ZABStammdaten_JJJJ.mdb
///     daten/          Grundstamm.mdb, and per farm a folder B<number> with its journal files Lager.JJJJ
///     anlagen/        Anlagen.mdb
///     einstellungen/  the settings, so that a demo or a test cannot touch a real farm
class Installation {
public:
    /// Nothing is created by naming it. \throws sys::FileError for an empty name, or where no whole path
    /// comes of it.
    explicit Installation(const QString& verzeichnis);

    QString verzeichnis() const { return m_verzeichnis; } ///< Absolute.
    // Each is found whatever its case: a farm may have been copied from a system that does not tell cases
    // apart.
    QString programm() const { return unter(QStringLiteral("/programm")); }
    QString daten() const { return unter(QStringLiteral("/daten")); }
    QString anlagen() const { return unter(QStringLiteral("/anlagen")); }
    QString formulare() const
    {
        return unter(QStringLiteral("/programm/Report/Lagerverwaltung"));
    } ///< Report forms.
    QString lieferscheinformulare() const
    {
        return unter(QStringLiteral("/programm/Report/Lagerverwaltung/Lieferscheine"));
    }
    QString einstellungen() const { return unter(QStringLiteral("/einstellungen")); }
    QString betriebsordner(const QString& nummer) const;
    QString journaldatei(const QString& nummer, int jahr) const;

    /// All database files that there are below the directory, those of the whole family first.
    std::vector<Betriebsdatei> dateien() const;
    /// A path as a user of the directory reads it: from there on.
    QString kurz(const QString& pfad) const;

    QStringList betriebe() const; ///< Farm numbers that have a folder, ascending.
    /// Makes the settings below the directory those of this process, and lets them name its directories where
    /// they do not, as after a move. \throws sys::FileError when they cannot be written.
    void verwende() const;

private:
    QString unter(const QString& pfad) const; ///< The path below the directory, in its local form.

    QString m_verzeichnis;
};
