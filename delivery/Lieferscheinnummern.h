#pragma once

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

/// The numbers of the delivery notes of one year file: 1, 2, 3 ... in the order of the days, on each day in
/// that of the recipients. All sales to a recipient on a day are one delivery and have one number.
class Lieferscheinnummern {
public:
    explicit Lieferscheinnummern(int Jahr) : m_jahr(Jahr) {}

    /// Numbers the deliveries that have no number yet, under the error report; numbers once given stay.
    ///
    /// All are written in one commit. A delivery that the database refuses, such as one to a recipient with
    /// an apostrophe, is reported without keeping other programs from booking; ignored, all of that recipient
    /// stay without a number and use none up. A sale without a day is no delivery and gets none. \returns
    /// false: the user left.
    [[nodiscard]] bool vergib();

private:
    void nummeriere();

    int m_jahr;
    std::optional<QString> m_empfaenger; ///< Whose delivery is being numbered.
    std::vector<QString> m_uebergangen;  ///< Recipients; each is reported once.
};

/// The sales to a recipient that have no day, one line each with article, quantity, recipient and the row's
/// number: the dates that the main screen is restricted to hide them. \throws jet::Error.
QStringList verkaeufeOhneDatum(int Jahr);
