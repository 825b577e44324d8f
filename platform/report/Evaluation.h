#pragma once

#include "platform/report/Totals.h"

#include <QString>

namespace report {

/// What references stand for at one place of the report. The row and the totals are only looked at, not kept.
struct Standing {
    const Row* row = nullptr;       ///< Null where there are no rows at all.
    const Totals* totals = nullptr; ///< Null where none may be asked for.
    int level = 0;                  ///< Whose totals count.
    int page = 0;
    bool continued = false;
    bool ending = false;
};

/// The number of the last page while it is not known yet; the pages get it when they are complete.
constexpr QChar LastPage = u'\uE000';

jet::Value valueOf(const Reference& reference, const Standing& standing);
/// The text with its references as they are shown: numbers and dates by the format, where it is one for them.
QString textOf(const Template& text, const QString& format, const Standing& standing);
bool holds(const Condition& condition, const Standing& standing);

/// A number, date or truth value as number; a text that is none, and NULL, as 0.
double asNumber(const jet::Value& value);
/// The engine's equality of texts; otherwise that of numbers. NULL, an empty text and 0 are alike.
bool isEqual(const jet::Value& left, const jet::Value& right);

} // namespace report
