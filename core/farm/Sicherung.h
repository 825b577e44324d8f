#pragma once

#include <QDateTime>
#include <QString>

#include <vector>

// Dated copies of a farm's files. They lie in a folder "sicherung" beside the directory of the file, those
// of a farm's years in its "B4711": "Lager-2026_2026-11-27_081530.mdb", of a form that no year file has.
// Kept are those of the last 7 days, and the newest of each of the last 4 weeks and 12 months, counted by
// the copies there are.

/// A copy of a file as it was before a moment.
struct Sicherung {
    QString datei;
    QDateTime stand;
};

/// Makes a copy of a farm's file, and then lets those go that need not be kept. \returns its path; empty:
/// the file is none of a farm. \throws jet::Error, sys::FileError.
QString sichere(const QString& datei);

/// The same where there is none of today yet. What hinders it is told in the status line and on standard
/// error and stops nobody; above a second it tells how far it is. `datei` may be any file.
void sichereVorAenderung(const QString& datei) noexcept;

/// From now on a farm's file is copied before the first row of a day changes, whatever changes it in this
/// process.
void sichereVorAenderungen();

/// The copies of a file, the oldest first.
std::vector<Sicherung> sicherungen(const QString& datei);
/// The years of a farm of which there are copies, ascending; a year file itself may be gone.
std::vector<int> gesicherteJahre(const QString& betriebsordner);
