#pragma once

#include <zablager/DatabaseError.h>

#include <QString>
#include <QStringList>

namespace jet {

/// The German text of a refusal, each "|" of it replaced by the next of `names`.
QString errorText(ErrorNumber number, const QStringList& names = {});

/// Throws the refusal. `position`: character of the statement, -1 without a place.
[[noreturn]] void raise(ErrorNumber number, const QStringList& names = {}, qsizetype position = -1);

/// The same refusal with what it concerns named at its end, unless it is named already: "... Feld: 'Menge'."
Error named(const Error& error, const QString& kind, const QString& name);

/// The same for a fault of a whole file, which is named where the number's own text does not.
[[noreturn]] void raiseOfFile(ErrorNumber number, const QString& path);

/// The refusal of a Yes/No value other than 0 and -1. An empty name: which field is not known here.
Error noTruthValue(const QString& field);

/// Refuses something that the dialect knows elsewhere but not here, naming it: "'UNION' wird ... nicht
/// unterstützt."
[[noreturn]] void refuse(const QString& feature, qsizetype position = -1);

} // namespace jet
