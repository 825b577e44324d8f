#pragma once

#include "host/Installation.h"

#include <QString>
#include <QStringList>

#include <optional>

/// What a call of the command is about.
struct Stammdatenauftrag {
    const Installation& ort;
    QString pfad; ///< Of a folder, or of a single file.
    QStringList betriebe;
    QString tabelle; ///< Empty: all.
    std::optional<int>
        jahr; ///< Of the register; none: all that there are, or what the files are named after.
};

/// The table of the farms' names and addresses, which stand in the settings.
inline const QString Betriebstabelle = QStringLiteral("Betriebe");
inline const QStringList Betriebstitel{QStringLiteral("Betrieb"), QStringLiteral("Name"),
                                       QStringLiteral("Adresse")};

/// Writes a .csv file a table into the folder, which is made, in the place of former ones; of registers
/// one a year. With them a workbook "Stammdaten.xlsx" of a sheet a file. \throws sys::FileError,
/// jet::Error.
void gibStammdatenAus(const Stammdatenauftrag& auftrag, bool mitMappe);
