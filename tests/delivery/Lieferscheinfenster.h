#pragma once

#include "delivery/LieferscheindruckForm.h"
#include "tests/support/Print.h"
#include "tests/support/Testbetrieb.h"

#include <gtest/gtest.h>

/// The delivery notes of a farm in 2024, as a user has them before him: controls are found by name and moved by keys and
/// mouse, what is printed is read from the PDF.
class Lieferscheinfenster : public testing::Test {
protected:
    Lieferscheinfenster();

    /// Adds sales, one a line: "02.05. | BERGER | Weizen | 5 | dt | 21,50 | 1", day with a time or without, recipient,
    /// article, quantity, and perhaps unit, price and price factor.
    void verkauft(const QString& text) const;
    void oeffne();
    void schliesse(); ///< By "Schließen".

    template <class Widget>
    Widget& feld(const char* name) const
    {
        auto* const gefunden = fenster->findChild<Widget*>(QString::fromLatin1(name));
        EXPECT_TRUE(gefunden) << name;
        return *gefunden;
    }
    void tippe(const char* name, const QString& text) const; ///< Over what stands there.
    void waehle(int zeile) const;                            ///< A row of the list, from 0.
    /// Presses "Lieferschein drucken" by its mnemonic. \returns the pages, none when nothing was printed.
    std::vector<QStringList> drucke() const;
    QStringList einstellungen() const; ///< As the year file has them.

    Testbetrieb hof{QDate(2024, 6, 1)};
    std::unique_ptr<LieferscheindruckForm> fenster;
};
