#pragma once

#include "core/farm/umbenennung/Umbenennung.h"

#include <map>
#include <optional>

/// The first year that a renaming has changed, of each farm that it has: from there on the stocks are to be
/// carried forward.
using ErsteJahre = std::map<QString, int>;

/// Does it: a copy of each file before, then file by file, the years of a farm ascending, each in one commit.
/// What it is about stands in a file of the data directory until all is done, so that a run that is killed
/// can be finished. \throws jet::Error InvalidArgument with what plane() says against it; jet::Error,
/// sys::FileError of a file that cannot be written: the next call goes on there, and then does its own.
ErsteJahre benenneUm(const Umbenennung& umbenennung, const Umbenennungsort& ort);

/// A renaming that was begun and has not come to its end.
std::optional<Umbenennung> unterbrochene(const QString& datenverzeichnis);
/// Brings it there. Until then a carry-forward would take the two names for two stocks.
ErsteJahre fuehreZuEnde(const QString& datenverzeichnis);
