#pragma once

#include <QString>
#include <QStringList>

/// A farm number names a folder: digits without leading zeros.
bool istBetriebsnummer(const QString& text);

/// Farm numbers that have a folder below a data directory, ascending.
QStringList betriebe(const QString& datenverzeichnis);
