#pragma once

#include "overview/LagerbestandNeu.h"
#include "tests/support/Print.h"
#include "tests/support/Testbetrieb.h"

#include <gtest/gtest.h>

class DataGrid;

/// The main screen on a farm of two years, as a user has it before him: its controls are found by name and moved by keys
/// and mouse; what it shows is read from its grids.
class Hauptbildschirm : public testing::Test {
protected:
    Hauptbildschirm();

    void oeffne(); ///< Opens the screen as a host has set the shared state.
    void schliesse();

    template <class Widget>
    Widget& feld(const char* name) const
    {
        auto* const gefunden = fenster->findChild<Widget*>(QString::fromLatin1(name));
        EXPECT_TRUE(gefunden) << name;
        return *gefunden;
    }
    void tippe(const char* feldname, const QString& text) const; ///< Over what stands there; then Enter.
    void drucke(const char* feldname, Qt::Key taste, Qt::KeyboardModifiers dazu = Qt::NoModifier) const;
    void klickeKopf(const char* liste, int spalte) const;
    QStringList journal() const;      ///< "05.03. | H1 | Weizen | +100,00 | Zukauf" or with "-" for issues, as shown.
    QStringList bestaende() const;    ///< "Weizen | H1 | 100,00 | 20,00 | 80,00", without the place when it is hidden.
    QString aktuelleBewegung() const; ///< Of the journal's current row, as journal() gives it.
    QString ueberschrift(const char* liste) const;
    static QString bericht(int nummer); ///< The beginning of the error report for a number.

    Testbetrieb hof{QDate(2024, 6, 1)};
    std::unique_ptr<LagerbestandNeu> fenster;
};
