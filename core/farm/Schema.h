#pragma once

#include "core/farm/Dateien.h"
#include "platform/jet/Database.h"

// The tables of each kind of file: the numbered steps in install/schema.

/// The version of a file before and after.
struct Aktualisierung {
    int vorher;
    int nachher;
};

/// Makes the tables and indices of a new, empty file.
void legeTabellenAn(jet::Database& datei, Dateiart art);

/// The names of indices of this program that a file lacks.
QStringList fehlendeIndices(const jet::Database& datei, Dateiart art);

/// Brings a file up to date: tables, columns and indices that later versions have brought, in one
/// transaction, and indices that somebody has dropped. No row is touched, and what is there already is left;
/// a file without a version is one from before there were any. Two programs may do it at once. \throws
/// jet::Error as verweigereNeuere(); Locked, ReadOnly, CannotOpenFile, DiskFull: nothing has changed then.
Aktualisierung bringeAufStand(jet::Database& datei, Dateiart art);

/// The same for a file that is to be used now: one that another program locks or that may not be written, be
/// it by the rights of its directory, is used as it is, without waiting, and is tried again next time.
void bringeAufStandWennMoeglich(Dateiart art, const QString& datei, const QString& verbindung);

/// \throws jet::Error UnknownFormat when a newer program has brought the file to a version that is not known
/// here.
void verweigereNeuere(const jet::Database& datei, Dateiart art);
/// The same for a file that is not open; one that is not there is left to whoever needs it. \throws
/// jet::Error as oeffne().
void verweigereNeuere(Dateiart art, const QString& datei, const QString& verbindung);

/// Makes a data control show a file of the kind from its next refresh on. \throws jet::Error as
/// verweigereNeuere(); nothing is set then.
template <class Daten>
void binde(Daten& daten, Dateiart art, const QString& datei, const QString& verbindung)
{
    verweigereNeuere(art, datei, verbindung);
    daten.setDatabaseName(datei);
    daten.setConnect(verbindung);
}
