#pragma once

#include <QHash>
#include <QString>

#include <vector>

/// A table of the demo farm, install/demo/NAME.csv: one hash a row, from the column names of the header line
/// to texts. Cells are separated by semicolons and never quoted.
using Tabelle = std::vector<QHash<QString, QString>>;
Tabelle tabelle(const QString& name);

/// Quantities and money count in hundredths here, whole numbers that are the same on every machine: "12.5" is
/// 1250.
qint64 hundertstel(const QString& text);

bool istJa(const QString& text); ///< "Ja" or "Nein".
