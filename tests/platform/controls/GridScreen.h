#pragma once

#include "platform/controls/DataControl.h"
#include "platform/controls/DataGrid.h"
#include "tests/support/Bildschirm.h"
#include "tests/support/Print.h"
#include "tests/support/Testbetrieb.h"

#include <QLineEdit>

/// A window with a field and the journal of a farm in a grid, as a screen has them. Six rows, in this order:
/// Weizen, Gerste, Hafer, Mais, Roggen, Raps. What was added shows nothing where it is 0.
class GridScreen : public testing::Test {
protected:
    GridScreen();

    void show();
    /// What the user does: numbers are clicks on rows, with '+' before them Ctrl is held, with '-' Shift; the
    /// rest are keys. \returns "Mais: Gerste Mais", the current article and the selected ones.
    QString act(const QString& steps);
    void click(int row, Qt::KeyboardModifiers modifiers);
    void clickHeader(int x);     ///< In pixels, as headers are.
    QString seen(int row) const; ///< Cells of a row as the user sees them, joined by " | ".
    QString article(int row) const;
    QString articles() const; ///< As shown, from top to bottom.
    QString current() const;  ///< Article of the data control's current row; "-" without one.
    QStringList messages() { return m_farm.meldungen().abgeholt(); }
    void change(const QString& statement) { m_farm.fuehreAus(2024, statement); } ///< By another program.

    Testbetrieb m_farm;
    DataControl m_data;
    QWidget m_window;
    QLineEdit* m_field;
    DataGrid* m_grid;
};
