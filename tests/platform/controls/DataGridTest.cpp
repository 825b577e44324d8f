#include "tests/platform/controls/GridScreen.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QScrollBar>
#include <QTest>

using namespace Qt::StringLiterals;

TEST_F(GridScreen, ShowsWhatTheUserReads)
{
    m_farm.fuehreAus(2024, u"UPDATE LAGERJOURNAL SET Kommentar = 'zwei\r\nZeilen' WHERE ID = 2"_s);
    m_grid->setBlank([](const GridColumn& column, const jet::Value& value) {
        return column.DataField() == u"Zugang"_s && value.toDouble() == 0;
    });
    show();
    EXPECT_EQ(seen(0), u"01.02.2024 | Weizen | 1.234,50 | "_s);
    EXPECT_EQ(seen(1), u"03.04.2024 | Gerste | 50,00 | zwei Zeilen"_s);
    EXPECT_EQ(seen(2), u"05.06.2024 | Hafer |  | "_s);
    EXPECT_EQ(seen(3), u"06.06.2024 | Mais | 0,01 | "_s);
    const auto aligned = [this](int column) {
        return m_grid->model()->index(0, column).data(Qt::TextAlignmentRole).value<Qt::Alignment>() &
               Qt::AlignHorizontal_Mask;
    };
    EXPECT_EQ(aligned(0), Qt::AlignHCenter);
    EXPECT_EQ(aligned(1), Qt::AlignLeft);
    EXPECT_EQ(aligned(2), Qt::AlignRight);
    m_grid->setCaption(u"6 Bewegungen"_s);
    EXPECT_EQ(m_grid->accessibleName(), u"6 Bewegungen"_s);
}

TEST_F(GridScreen, IsWalkedWithTheKeyboard)
{
    m_farm.fuehreAus(2024, u"INSERT INTO LAGERJOURNAL (Datum, Artikel) SELECT Datum, 'Zucker' FROM LAGERJOURNAL"_s);
    show();
    const struct {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        int from;
        int to; // -1: a page further, neither the next nor the last row
    } moves[] = {
        {Qt::Key_Down, {}, 0, 1},
        {Qt::Key_End, {}, 2, 11},
        {Qt::Key_Home, {}, 11, 0},
        {Qt::Key_Right, {}, 3, 3},
        {Qt::Key_W, Qt::ControlModifier, 3, 3},
        {Qt::Key_W, Qt::AltModifier, 3, 3},
        {Qt::Key_Z, {}, 3, 5},
        {Qt::Key_End, Qt::ControlModifier, 2, 11},
        {Qt::Key_Home, Qt::ControlModifier, 9, 0},
        {Qt::Key_PageDown, {}, 0, -1},
    };
    for (const auto& move : moves) {
        SCOPED_TRACE(int(move.key));
        click(move.from);
        int fired = 0;
        const auto connection = QObject::connect(&m_data, &DataControl::Reposition, [&fired] { ++fired; });
        press(move.key, move.modifiers);
        const qsizetype now = m_data.AbsolutePosition();
        if (move.to >= 0)
            EXPECT_EQ(now, move.to);
        else
            EXPECT_TRUE(now > move.from + 1 && now < 11) << now;
        EXPECT_EQ(fired, now == move.from ? 0 : 1);
        EXPECT_EQ(m_grid->currentIndex().row(), now);
        EXPECT_EQ(m_grid->SelBookmarks().rows(), std::vector<int>{int(now)});
        EXPECT_EQ(m_grid->rowViewportPosition(m_grid->rowAt(0)), 0); // the upper one is whole, and this one:
        EXPECT_TRUE(m_grid->viewport()->rect().contains(m_grid->visualRect(m_grid->currentIndex())));
        QObject::disconnect(connection);
    }
    press(Qt::Key_Tab);
    EXPECT_FALSE(m_grid->hasFocus());
}

TEST_F(GridScreen, FindsTheNextRowThatBeginsAsTyped)
{
    m_farm.fuehreAus(2024, u"UPDATE LAGERJOURNAL SET Kommentar = 'zwei\r\nZeilen' WHERE ID = 2"_s);
    m_farm.fuehreAus(2024, u"UPDATE LAGERJOURNAL SET Kommentar = '*?#[o''x' WHERE ID = 3"_s);
    m_farm.fuehreAus(2024, u"UPDATE LAGERJOURNAL SET Kommentar = 'Öl  alt' WHERE ID = 5"_s);
    m_grid->setBlank([](const GridColumn& column, const jet::Value& value) {
        return column.DataField() == u"Zugang"_s && value.toDouble() == 0;
    });
    m_grid->setCaption(u"6 Zeilen"_s);
    show();
    const auto* const line = m_grid->horizontalHeader()->findChild<QLabel*>();
    const QString miss = u" (nicht gefunden)"_s;
    const struct {
        int column, from;
        QStringList typed; // a second between them
        int to;
        QString word; // as shown at last; empty: none
    } searches[] = {
        {1, 0, {u"R"_s}, 4, u"R"_s},
        {1, 4, {u"ro"_s}, 4, u"ro"_s},
        {1, 5, {u"r"_s, u"r"_s}, 5, u"r"_s},
        {1, 2, {u"mx"_s}, 3, u"mx"_s + miss},
        {1, 2, {u"mx\b"_s}, 3, u"m"_s},
        {1, 2, {u"m\b"_s}, 3, {}},
        {1, 2, {u" "_s}, 2, {}},
        {0, 0, {u"05"_s}, 2, u"05"_s},
        {0, 0, {u"08.06.2024"_s}, 5, u"08.06.2024"_s},
        {2, 1, {u"1.234,5"_s}, 0, u"1.234,5"_s},
        {2, 0, {u"0"_s}, 3, u"0"_s},
        {2, 0, {u"0,00"_s}, 3, u"0,00"_s + miss},
        {3, 0, {u"zwei z"_s}, 1, u"zwei z"_s},
        {3, 0, {u"*?#[o'"_s}, 2, u"*?#[o'"_s},
        {3, 0, {u"öl a"_s}, 4, u"öl a"_s},
    };
    for (const auto& search : searches) {
        SCOPED_TRACE(search.typed.join(u'|').toStdString());
        m_grid->setCurrentIndex(m_grid->model()->index((search.from + 1) % 6, search.column));
        m_grid->setCurrentIndex(m_grid->model()->index(search.from, search.column));
        for (const QString& typed : search.typed) {
            if (&typed != &search.typed.front()) QTest::qWait(1100);
            for (const QChar c : typed) // QTest::keyClicks knows no umlauts
                QTest::sendKeyEvent(QTest::Click, m_grid,
                                    c == u'\b' ? Qt::Key_Backspace : Qt::Key(c.toUpper().unicode()), c, Qt::NoModifier);
        }
        EXPECT_EQ(m_data.AbsolutePosition(), search.to);
        EXPECT_EQ(m_grid->currentIndex(), m_grid->model()->index(search.to, search.column));
        const QString told = search.word.isEmpty()
                                 ? QString()
                                 : u"Suche in %1: "_s.arg(m_grid->Columns(search.column).Caption()) + search.word;
        EXPECT_EQ(m_grid->accessibleDescription(), told);
        EXPECT_EQ(line->text(), told.isEmpty() ? u"6 Zeilen"_s : u"6 Zeilen  –  "_s + told);
    }
    EXPECT_TRUE(QTest::qWaitFor([&] { return line->text() == u"6 Zeilen"_s; }));
    EXPECT_EQ(messages(), QStringList());
}

TEST_F(GridScreen, FollowsTheDataControlAndKeepsASelection)
{
    show();
    EXPECT_EQ(selected(), QString()); // opened, on the first row
    m_data.MoveLast();
    EXPECT_EQ(current(), u"Raps"_s);
    EXPECT_EQ(selected(), QString());
    click(1);
    m_data.FindFirst(u"Artikel = 'Mais'"_s);
    EXPECT_EQ(current(), u"Mais"_s);
    EXPECT_EQ(selected(), u"Mais"_s); // a single row goes along, or Del would delete another than the current one

    SelectedRows& marks = m_grid->SelBookmarks();
    marks.Add(m_data.Recordset().BookmarkAt(0));
    EXPECT_EQ(current(), u"Mais"_s);
    EXPECT_EQ(selected(), u"Weizen Mais"_s);
    m_data.MoveLast();
    EXPECT_EQ(selected(), u"Weizen Mais"_s);
    EXPECT_EQ(marks[1], m_data.Recordset().BookmarkAt(3));
    marks.Remove(0);
    EXPECT_EQ(selected(), u"Mais"_s);
    marks.RemoveAll();
    marks.Add(m_grid->Bookmark());
    EXPECT_EQ(selected(), u"Raps"_s);
    EXPECT_EQ(marks.Count(), 1);
    EXPECT_THROW(marks.Add({}), jet::Error);
    EXPECT_THROW(marks.Remove(1), jet::Error);
    click(4);
    press(Qt::Key_Right);
    const int place = m_grid->rowViewportPosition(4);
    m_data.Refresh();
    EXPECT_EQ(selected(), QString());
    EXPECT_EQ(current(), u"Weizen"_s);
    m_data.MoveTo(4); // as a screen does that reads its rows anew and finds the one that was current
    EXPECT_EQ(m_grid->currentIndex().column(), 2);
    EXPECT_EQ(m_grid->rowViewportPosition(4), place);
}

TEST_F(GridScreen, StaysWhereTheDataControlStays)
{
    show();
    const auto connection = QObject::connect(&m_data, &DataControl::Validate,
                                             [](DataControl::Action, Cancel& cancel, bool&) { cancel = true; });
    press(Qt::Key_Down);
    EXPECT_EQ(current(), u"Weizen"_s);
    click(3);
    EXPECT_EQ(current() + selected(), u"WeizenWeizen"_s);
    QObject::disconnect(connection);

    m_data.Edit();
    m_data.Set(u"Preisfaktor", u"1000"_s); // a letter too long: it cannot be saved
    const QString told =
        report(3163, u"Das Feld ist zu klein für die Datenmenge, die Sie hinzufügen wollten. "
                     u"Versuchen Sie, weniger Daten einzufügen. Feld: 'Preisfaktor', höchstens 3 Zeichen."_s);
    m_farm.meldungen().beantworte(told, sys::Answer::Ignore);
    press(Qt::Key_Down);
    EXPECT_EQ(messages().size(), 1);
    EXPECT_EQ(current(), u"Weizen"_s);
    m_data.Set(u"Preisfaktor", u"100"_s);
    press(Qt::Key_Down);
    EXPECT_EQ(current(), u"Gerste"_s);
}

TEST_F(GridScreen, CopiesTheRowsAsShown)
{
    show();
    m_grid->Columns(u"kommentar").setVisible(false);
    const struct {
        std::vector<std::pair<int, Qt::KeyboardModifiers>> clicks;
        const char* copied;
    } cases[] = {
        {{}, "01.02.2024\tWeizen\t1.234,50\n"},
        {{{1, {}}, {3, Qt::ControlModifier}}, "03.04.2024\tGerste\t50,00\n06.06.2024\tMais\t0,01\n"},
        {{{4, {}}, {5, Qt::ShiftModifier}}, "07.06.2024\tRoggen\t0,00\n08.06.2024\tRaps\t7,00\n"},
    };
    for (const auto& c : cases) {
        for (const auto& [row, modifiers] : c.clicks)
            click(row, modifiers);
        press(Qt::Key_C, Qt::ControlModifier);
        EXPECT_EQ(QGuiApplication::clipboard()->text(), u"Datum\tArtikel\tZugang\n"_s + QString::fromUtf8(c.copied));
    }
}

TEST_F(GridScreen, ShowsWhatOtherProgramsDid)
{
    show();
    m_grid->grab();
    m_farm.fuehreAus(2024, u"UPDATE LAGERJOURNAL SET Artikel = 'Dinkel' WHERE ID = 2"_s);
    m_farm.fuehreAus(2024, u"DELETE FROM LAGERJOURNAL WHERE ID = 3"_s);
    EXPECT_EQ(article(1), u"Gerste"_s); // what stands there stands, until it is looked at again
    press(Qt::Key_Down);
    EXPECT_EQ(article(1), u"Dinkel"_s);
    press(Qt::Key_Down);
    EXPECT_EQ(seen(2), u"#Gelöscht | #Gelöscht | #Gelöscht | #Gelöscht"_s);
    EXPECT_EQ(m_data.AbsolutePosition(), 2);
    m_farm.fuehreAus(2024, u"DELETE FROM LAGERJOURNAL WHERE ID = 6"_s);
    m_field->setFocus();
    m_grid->setFocus();
    EXPECT_EQ(article(5), u"#Gelöscht"_s);
    m_data.Refresh();
    EXPECT_EQ(articles(), QStringList({u"Weizen"_s, u"Dinkel"_s, u"Mais"_s, u"Roggen"_s}));
}

TEST_F(GridScreen, ReportsAFailureOfDrawingOnce)
{
    const QString told =
        report(3265, u"Element in dieser Auflistung nicht gefunden. Datei: '"_s + m_data.DatabaseName() + u"'."_s);
    m_farm.meldungen().beantworte(told, sys::Answer::Ignore);
    m_grid->Columns(3).setDataField(u"Bemerkung"_s);
    show();
    m_grid->grab();
    EXPECT_EQ(seen(0), u"#Fehler | #Fehler | #Fehler | #Fehler"_s);
    EXPECT_EQ(seen(4), seen(0));
    QCoreApplication::processEvents();
    EXPECT_EQ(messages(), QStringList(told));
    m_grid->grab();
    QCoreApplication::processEvents();
    EXPECT_EQ(messages(), QStringList());
    m_grid->Columns(3).setDataField(u"Kommentar"_s);
    m_data.Refresh();
    EXPECT_EQ(article(0), u"Weizen"_s);
}

TEST_F(GridScreen, ReadsOnlyTheRowsOnView)
{
    m_farm.fuehreAus(2024, u"CREATE TABLE Lang (ID Counter PRIMARY KEY, Artikel Text(10), Menge Double)"_s);
    m_farm.fuehreAus(2024, u"INSERT INTO Lang (Artikel, Menge) VALUES ('Weizen', 1)"_s);
    constexpr int Doublings = 17;
    for (int i = 0; i < Doublings; ++i)
        m_farm.fuehreAus(2024, u"INSERT INTO Lang (Artikel, Menge) SELECT Artikel, Menge FROM Lang"_s);
    int cells = 0;
    m_grid->setBlank([&cells](const GridColumn&, const jet::Value&) {
        ++cells;
        return false;
    });
    m_grid->Columns(0).setDataField(u"ID"_s);
    m_grid->Columns(2).setDataField(u"Menge"_s);
    m_grid->Columns(3).setDataField(u"Artikel"_s);
    m_data.setRecordSource(u"SELECT * FROM Lang ORDER BY Menge, ID"_s);
    show();
    press(Qt::Key_End, Qt::ControlModifier);
    m_grid->grab();
    EXPECT_EQ(m_data.AbsolutePosition(), (1 << Doublings) - 1);
    EXPECT_EQ(article((1 << Doublings) - 1), u"Weizen"_s);
    EXPECT_GT(cells, 0);
    EXPECT_LT(cells, 2500); // 100 rows for the widths, and a few pages drawn a few times
}

TEST_F(GridScreen, KeepsTheWidthsOfTheUser)
{
    m_grid->Columns(1).setWidth(77);
    m_grid->Columns(2).setCaption(u"Zugang im ganzen Jahr"_s);
    QObject::connect(m_grid, &DataGrid::HeadClick,
                     [this](int column) { m_grid->showSort(column, Qt::AscendingOrder); }); // its mark wants room
    m_farm.fuehreAus(2024, u"UPDATE LAGERJOURNAL SET Artikel = 'Ein sehr langer Name eines Artikels' WHERE ID = 1"_s);
    show();
    EXPECT_EQ(m_grid->columnWidth(1), 77);
    const int date = m_grid->columnWidth(0);
    EXPECT_GE(date, m_grid->fontMetrics().horizontalAdvance(u"01.02.2024"_s));
    QWidget* const header = m_grid->horizontalHeader()->viewport();
    QTest::mousePress(header, Qt::LeftButton, {}, QPoint(date - 1, header->height() / 2));
    QTest::mouseMove(header, QPoint(date + 30, header->height() / 2));
    QTest::mouseRelease(header, Qt::LeftButton, {}, QPoint(date + 30, header->height() / 2));
    EXPECT_NEAR(m_grid->columnWidth(0), date + 31, 2);
    EXPECT_EQ(m_grid->Columns(0).Width(), m_grid->columnWidth(0)); // a screen can ask and remember
    clickHeader(2);
    for (const int untouched : {2, 3}) // so that it grows for a figure that it would cut
        EXPECT_EQ(m_grid->Columns(untouched).Width(), 0);
    m_grid->Columns(2).setVisible(false);
    m_data.Refresh();
    EXPECT_NEAR(m_grid->columnWidth(0), date + 31, 2);
    EXPECT_EQ(m_grid->columnWidth(1), 77);
    EXPECT_TRUE(m_grid->isColumnHidden(2));
}

TEST_F(GridScreen, SaysWhyItIsEmpty)
{
    m_data.setRecordSource(u"SELECT *, Menge AS Zugang FROM LAGERJOURNAL WHERE ID < 0"_s);
    show();
    const QImage bare = m_grid->grab().toImage();
    m_grid->setEmptyText(u"Keine Bewegungen in dieser Ansicht"_s);
    EXPECT_NE(m_grid->grab().toImage(), bare);
    press(Qt::Key_Delete);
    press(Qt::Key_C, Qt::ControlModifier);
    press(Qt::Key_End);
    EXPECT_EQ(current(), u"-"_s);
}
