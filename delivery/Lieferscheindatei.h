#pragma once

#include "platform/jet/Value.h"

#include <QString>

/// What one delivery note says beside the lines of its sales.
struct Lieferschein {
    jet::Value Datum;
    jet::Value Empfaenger; ///< Short code of a business partner, or whatever stands for one.
    qint64 Nummer = 0;
    QString Zeile1, Zeile2, Zeile3; ///< The sender.
    QString Zusatztext;
    bool mitPreis = false;
};

/// Builds the database that a delivery note is printed from: its head in `Uberschrift`, the sales of the
/// delivery in `Journal`, the business partners linked. `datei` is its full name; an earlier one is replaced.
///
/// Under the error report: a note is built whole, and when the user leaves or ignores an error, nothing of it
/// remains. \returns whether it was built.
[[nodiscard]] bool baueLieferscheindatei(const QString& datei, int Jahr, const Lieferschein& schein);
/// Deletes it, if there is one. \throws sys::FileError.
void loescheLieferscheindatei(const QString& datei);
