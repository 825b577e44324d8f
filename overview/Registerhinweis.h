#pragma once

#include <QString>

/// What makes the register of a year of which there is none, as after New Year.
inline QString registerhinweis(const QString& Jahr)
{
    return QStringLiteral("Die Datei entsteht mit 'zablager stammdaten VERZEICHNIS einlesen ORDNER --jahr %1'"
                          " aus den Listen, die 'zablager stammdaten VERZEICHNIS ausgeben ORDNER' von einem"
                          " früheren Jahr macht.")
        .arg(Jahr);
}
