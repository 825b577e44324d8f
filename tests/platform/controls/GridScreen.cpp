#include "tests/platform/controls/GridScreen.h"

#include <QHeaderView>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

GridScreen::GridScreen() : m_field(new QLineEdit(&m_window)), m_grid(new DataGrid(&m_window))
{
    m_farm.bucht(2024, "01.02. | H1 | Weizen | 1234,5 | Ernte\n"
                       "03.04. | H2 | Gerste | 50 | Zukauf\n"
                       "05.06. | H1 | Hafer | -20 | Verkauf\n"
                       "06.06. | H1 | Mais | 0,005 | Zukauf\n"
                       "07.06. | H1 | Roggen | 0 | Korrektur\n"
                       "08.06. | H1 | Raps | 7 | Zukauf");
    m_data.setDatabaseName(m_farm.journaldatei(2024));
    m_data.setRecordSource(
        u"Select IIF(Menge > 0, Menge,0) as Zugang, *  FROM LAGERJOURNAL ORDER BY DATUM, ID"_s);
    m_grid->addColumn(u"Datum"_s, u"Datum"_s);
    m_grid->addColumn(u"Artikel"_s, u"ARTIKEL"_s);
    m_grid->addColumn(u"Zugang"_s, u"Zugang"_s, u"##,#0.00"_s);
    m_grid->addColumn(u"Kommentar"_s, u"Kommentar"_s);
    m_grid->setBlank([](const GridColumn& column, const jet::Value& value) {
        return column.DataField() == u"Zugang"_s && value.toDouble() == 0;
    });
    m_grid->setDataSource(m_data);
    auto* const layout = new QVBoxLayout(&m_window);
    layout->addWidget(m_field);
    layout->addWidget(m_grid);
    m_window.resize(500, 200); // rows and a half of a page
}

void GridScreen::show()
{
    m_data.Refresh();
    m_window.show();
    m_window.activateWindow();
    m_grid->setFocus();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&m_window));
}

QString GridScreen::act(const QString& steps)
{
    for (const QString& step : steps.split(u' ', Qt::SkipEmptyParts)) {
        bool isRow = false;
        const int row = step.toInt(&isRow);
        if (!isRow)
            tippe(step);
        else
            click(qAbs(row), step[0] == u'+'   ? Qt::ControlModifier
                             : step[0] == u'-' ? Qt::ShiftModifier
                                               : Qt::NoModifier);
    }
    QString selected = current() + u':';
    for (const int row : m_grid->SelBookmarks().rows())
        selected += u' ' + article(row);
    return selected;
}

void GridScreen::click(int row, Qt::KeyboardModifiers modifiers)
{
    const QModelIndex cell = m_grid->model()->index(row, 1);
    m_grid->scrollTo(cell);
    QTest::mouseClick(m_grid->viewport(), Qt::LeftButton, modifiers, m_grid->visualRect(cell).center());
}

void GridScreen::clickHeader(int x)
{
    QWidget* const header = m_grid->horizontalHeader()->viewport();
    QTest::mouseClick(header, Qt::LeftButton, {}, QPoint(x, header->height() / 2));
}

QString GridScreen::seen(int row) const
{
    QStringList cells;
    for (int i = 0; i < m_grid->ColumnCount(); ++i)
        cells.append(m_grid->model()->index(row, i).data().toString());
    return cells.join(u" | "_s);
}

QString GridScreen::article(int row) const
{
    return m_grid->model()->index(row, 1).data().toString();
}

QString GridScreen::articles() const
{
    QStringList articles;
    for (int row = 0; row < m_grid->model()->rowCount(); ++row)
        articles.append(article(row));
    return articles.join(u' ');
}

QString GridScreen::current() const
{
    EXPECT_EQ(m_grid->currentIndex().row(), m_data.AbsolutePosition());
    return m_data.AbsolutePosition() < 0 ? u"-"_s : m_data.Recordset()[u"Artikel"].toText();
}
