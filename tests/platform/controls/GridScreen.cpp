#include "tests/platform/controls/GridScreen.h"

#include <QHeaderView>
#include <QTest>

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
    m_data.setRecordSource(u"Select IIF(Menge < 0, -Menge,0) as Abgang, IIF(Menge > 0, Menge,0) as Zugang, *  "
                           u"FROM LAGERJOURNAL ORDER BY DATUM, ID"_s);
    m_grid->addColumn(u"Datum"_s, u"Datum"_s);
    m_grid->addColumn(u"Artikel"_s, u"ARTIKEL"_s);
    m_grid->addColumn(u"Zugang"_s, u"Zugang"_s, u"##,#0.00"_s);
    m_grid->addColumn(u"Kommentar"_s, u"Kommentar"_s);
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

void GridScreen::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(m_grid, key, modifiers);
}

void GridScreen::click(int row, Qt::KeyboardModifiers modifiers)
{
    const QModelIndex cell = m_grid->model()->index(row, 1);
    m_grid->scrollTo(cell);
    QTest::mouseClick(m_grid->viewport(), Qt::LeftButton, modifiers, m_grid->visualRect(cell).center());
}

void GridScreen::clickHeader(int column)
{
    const QHeaderView* const header = m_grid->horizontalHeader();
    const QPoint middle(header->sectionViewportPosition(column) + header->sectionSize(column) / 2,
                        header->viewport()->height() / 2);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, middle);
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

QStringList GridScreen::articles() const
{
    QStringList articles;
    for (int row = 0; row < m_grid->model()->rowCount(); ++row)
        articles.append(article(row));
    return articles;
}

QString GridScreen::current() const
{
    EXPECT_EQ(m_grid->currentIndex().row(), m_data.AbsolutePosition());
    return m_data.AbsolutePosition() < 0 ? u"-"_s : m_data.Recordset()[u"Artikel"].toText();
}

QString GridScreen::selected()
{
    QStringList articles;
    for (const int row : m_grid->SelBookmarks().rows())
        articles.append(article(row));
    return articles.join(u' ');
}

QString GridScreen::report(int number, const QString& text)
{
    return u"Es ist ein kritischer Zustand aufgetreten.\r\rFehler: "_s + QString::number(number) +
           u" wurde ausgelöst durch ZABLAGER\r"_s + text;
}
