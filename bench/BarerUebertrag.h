#pragma once

#include <QStringList>

/// The carry-forward as a program would write it that knows nothing but SQLite and the rules: the grouped
/// statement of each year, one question and one find a pair, a write where the figure is another one, one
/// durable transaction a year file. `dateien` are the year files from `erstesJahr` on, without a gap.
void barerUebertrag(const QStringList& dateien, int erstesJahr);
