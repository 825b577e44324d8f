#pragma once

#include "platform/controls/DataControl.h"
#include "platform/controls/DataGrid.h"
#include "tests/support/Print.h"
#include "tests/support/Testbetrieb.h"

#include <QLineEdit>
#include <QVBoxLayout>
#include <QWidget>

#include <gtest/gtest.h>

/// A window with a field and the journal of a farm in a grid, as a screen has them. Six rows, in this order: Weizen,
/// Gerste, Hafer, Mais, Roggen, Raps.
class GridScreen : public testing::Test {
protected:
    GridScreen();

    void show();
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void click(int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void clickHeader(int column);
    /// Cells of a row as the user sees them, joined by " | ".
    QString seen(int row) const;
    QString article(int row) const;
    QStringList articles() const; ///< As shown, from top to bottom.
    QString current() const;      ///< Article of the data control's current row; "-" without one.
    /// Articles of the selected rows.
    QString selected();
    /// What the common error report says of an error.
    static QString report(int number, const QString& text);
    QStringList messages() { return m_farm.meldungen().abgeholt(); }

    Testbetrieb m_farm;
    DataControl m_data;
    QWidget m_window;
    QLineEdit* m_field;
    DataGrid* m_grid;
};
