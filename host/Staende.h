#pragma once

#include "core/farm/Sicherung.h"
#include "host/Installation.h"

#include <map>
#include <optional>

/// The copies of a farm's years that a user means by a moment, by their years: "T.M.JJJJ" is the first one
/// of a day, as the year was before the day's first change; "T.M.JJJJ hh:mm:ss" is that very one. \param
/// jahr the only year that counts. \throws Aufruffehler for what is no moment; sys::FileError that lists
/// those there are.
std::map<int, Sicherung> staende(const Installation& ort, const QString& betrieb, const QString& stand,
                                 std::optional<int> jahr);

/// "27.11.2026 08:15:30"
QString standtext(const Sicherung& sicherung);
