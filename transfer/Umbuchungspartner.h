#pragma once

#include <QtGlobal>

#include <optional>

class DataControl;

/// The other row of a transfer: the "Umbuchung" row whose Verfuttert_an names `ID`.
///
/// Rows of other kinds use that column for other things, a sibling program's feeding row for the number of
/// its herd; they are passed over. Rows on view come before those that the filter of the journal hides: its
/// whole file is looked at. No value: there is none, as after a program was stopped between the two rows, or
/// when another one deleted it.
std::optional<qint64> umbuchungspartner(DataControl& Journaldaten, qint64 ID);

/// Makes a row current. False: the filter hides it, or it is gone; then the current row stays.
[[nodiscard]] bool bewegeZu(DataControl& Journaldaten, qint64 ID);
