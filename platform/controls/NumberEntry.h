#pragma once

#include <QStringView>

/// A number as a user types it.
struct TypedNumber {
    enum class State {
        Complete,   ///< `value` is it; an empty text is 0.
        Unfinished, ///< Can become a number when typed on: "-", "1.2" on its way to "1.250".
        Impossible, ///< No typing on makes it one: letters, a second comma, more digits than are kept.
    };
    State state = State::Impossible;
    double value = 0;
};

/// Reads what is typed into a number field: an optional minus, up to 12 digits, which dots may group by
/// three, a comma and up to 10 decimals. "1.250" is 1250; "1.5" is unfinished rather than 15.
TypedNumber readTyped(QStringView text);

/// The nearest number with 10 decimals, which is what number fields hold: sums of quantities leave dust such
/// as -2.8e-17, which is 0 and not below it. Not finite counts as 0.
double withoutDust(double value);
