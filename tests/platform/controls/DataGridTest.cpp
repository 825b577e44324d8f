#include "tests/platform/controls/GridScreen.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QHelpEvent>
#include <QLabel>
#include <QTest>
#include <QToolTip>

using namespace Qt::StringLiterals;

TEST_F(GridScreen, ShowsWhatTheUserReads)
{
    change(u"UPDATE LAGERJOURNAL SET Kommentar = 'zwei\r\nZeilen' WHERE ID = 2"_s);
    show();
    EXPECT_EQ(seen(0), u"01.02.2024 | Weizen | 1.234,50 | "_s);
    EXPECT_EQ(seen(1), u"03.04.2024 | Gerste | 50,00 | zwei Zeilen"_s);
    EXPECT_EQ(seen(2), u"05.06.2024 | Hafer |  | "_s);
    EXPECT_EQ(seen(3), u"06.06.2024 | Mais | 0,01 | "_s);
    int column = 0;
    for (const auto wanted : {Qt::AlignHCenter, Qt::AlignLeft, Qt::AlignRight, Qt::AlignLeft})
        EXPECT_EQ(m_grid->model()->index(0, column++).data(Qt::TextAlignmentRole).toInt(),
                  int(wanted | Qt::AlignVCenter));
    m_grid->Columns(u"kommentar").setVisible(false);
    for (const auto& [clicks, rows] : {std::pair{u""_s, u"01.02.2024\tWeizen\t1.234,50\n"_s},
                                       {u"3 +1"_s, u"03.04.2024\tGerste\t50,00\n06.06.2024\tMais\t0,01\n"_s},
                                       {u"4 -5"_s, u"07.06.2024\tRoggen\t\n08.06.2024\tRaps\t7,00\n"_s}}) {
        act(clicks + u" {Ctrl+C}"_s);
        EXPECT_EQ(QGuiApplication::clipboard()->text(), u"Datum\tArtikel\tZugang\n"_s + rows);
    }
    const int text = m_grid->fontMetrics().horizontalAdvance(article(5));
    for (const auto& [width, tip] : {std::pair{text + 50, u""_s}, {text + 1, u"Raps"_s}}) {
        m_grid->setColumnWidth(1, width);
        const QPoint place = m_grid->visualRect(m_grid->model()->index(5, 1)).center();
        QHelpEvent event(QEvent::ToolTip, place, m_grid->viewport()->mapToGlobal(place));
        QCoreApplication::sendEvent(m_grid->viewport(), &event);
        EXPECT_EQ(QToolTip::text(), tip) << "of a text that is cut";
    }
    m_grid->Columns(1).setHeadForeColor(Qt::blue);
    const QPalette usual = QGuiApplication::palette();
    for (const bool dark : {false, true}) {
        QApplication::setPalette(dark ? QColor(Qt::black) : QColor(Qt::white));
        const auto shown = m_grid->model()->headerData(1, Qt::Horizontal, Qt::ForegroundRole).value<QColor>();
        EXPECT_EQ(shown.lightness() > 160, dark) << "legible on the header";
        EXPECT_EQ(shown.hslHue(), QColor(Qt::blue).hslHue());
    }
    QApplication::setPalette(usual);
    m_data.setRecordSource(u"SELECT *, Menge AS Zugang FROM LAGERJOURNAL WHERE ID < 0"_s);
    m_data.Refresh();
    EXPECT_EQ(act(u"{Del} {Ctrl+C} {End} {Down}"_s), u"-:"_s);
    for (const auto& tellWhy : {&DataGrid::setEmptyText, &DataGrid::setClosedText}) {
        const QImage bare = m_grid->grab().toImage();
        (m_grid->*tellWhy)(u"leer"_s);
        EXPECT_NE(m_grid->grab().toImage(), bare) << "why it is empty";
        m_data.Close();
    }
}

TEST_F(GridScreen, IsWalkedWithTheKeyboard)
{
    change(u"INSERT INTO LAGERJOURNAL (Datum, Artikel) SELECT Datum, 'Zucker' FROM LAGERJOURNAL"_s);
    show();
    int fired = 0;
    QObject::connect(&m_data, &DataControl::Reposition, [&fired] { ++fired; });
    const struct {
        QString steps;
        int to; // -1: a page further, neither the next nor the last row
    } moves[] = {
        {u"0 {Down}"_s, 1},      {u"2 {End}"_s, 11},    {u"11 {Home}"_s, 0}, {u"3 {Right}"_s, 3},
        {u"3 {Ctrl+W}"_s, 3},    {u"3 {Alt+W}"_s, 3},   {u"3 z"_s, 5},       {u"2 {Ctrl+End}"_s, 11},
        {u"9 {Ctrl+Home}"_s, 0}, {u"0 {PgDown}"_s, -1},
    };
    for (const auto& move : moves) {
        SCOPED_TRACE(move.steps.toStdString());
        const QString from = act(move.steps.section(u' ', 0, 0));
        fired = 0;
        const QString to = act(move.steps.section(u' ', 1));
        const qsizetype now = m_data.AbsolutePosition();
        EXPECT_TRUE(move.to >= 0 ? now == move.to : now > 1 && now < 11) << now;
        EXPECT_EQ(fired, move.to == 3 ? 0 : 1);
        EXPECT_EQ(to, current() + u": "_s + current());
        EXPECT_EQ(m_grid->rowViewportPosition(m_grid->rowAt(0)), 0); // the upper one is whole, and this one:
        EXPECT_TRUE(m_grid->viewport()->rect().contains(m_grid->visualRect(m_grid->currentIndex())));
    }
    tippe(u"{Tab}");
    EXPECT_FALSE(m_grid->hasFocus());
}

TEST_F(GridScreen, FindsTheNextRowThatBeginsAsTyped)
{
    for (const auto& remark : {u"'zwei\r\nZeilen' WHERE ID = 2"_s, u"'*?#[o''x' WHERE ID = 3"_s,
                               u"'Öl  alt', Menge = 76.999999 WHERE ID = 5"_s})
        change(u"UPDATE LAGERJOURNAL SET Kommentar = "_s + remark);
    m_grid->setCaption(u"6 Zeilen"_s);
    show();
    EXPECT_EQ(m_grid->accessibleName(), u"6 Zeilen"_s);
    const auto* const line = m_grid->horizontalHeader()->findChild<QLabel*>();
    const struct {
        int column, from;
        QStringView typed; // | is a pause
        int to;
        QStringView told; // at last; empty: nothing
    } searches[] = {
        {1, 0, u"R", 4, u"Artikel: R"},
        {1, 4, u"ro", 4, u"Artikel: ro"},
        {1, 5, u"r|r", 5, u"Artikel: r"},
        {1, 2, u"mx", 3, u"Artikel: mx (nicht gefunden)"},
        {1, 2, u"mx{Backspace}", 3, u"Artikel: m"},
        {1, 2, u"m{Backspace}", 3, u""},
        {1, 2, u"{Space}", 2, u""},
        {0, 0, u"05", 2, u"Datum: 05"},
        {0, 0, u"08.06.2024", 5, u"Datum: 08.06.2024"},
        {2, 1, u"1.234,5", 0, u"Zugang: 1.234,5"},
        {2, 0, u"77", 4, u"Zugang: 77"}, // 76.999999
        {2, 0, u"0", 3, u"Zugang: 0"},
        {2, 0, u"0,00", 3, u"Zugang: 0,00 (nicht gefunden)"},
        {3, 0, u"zwei{Space}z", 1, u"Kommentar: zwei z"},
        {3, 0, u"*?#[o'", 2, u"Kommentar: *?#[o'"},
        {3, 0, u"öl a", 4, u"Kommentar: öl a"},
    };
    for (const auto& search : searches) {
        SCOPED_TRACE(search.typed.toUtf8().constData());
        m_grid->setCurrentIndex(m_grid->model()->index((search.from + 1) % 6, search.column)); // ends a word
        m_grid->setCurrentIndex(m_grid->model()->index(search.from, search.column));
        for (const QStringView word : search.typed.split(u'|')) {
            EXPECT_TRUE(QTest::qWaitFor([&] { return line->text() == u"6 Zeilen"_s; }));
            tippe(word);
        }
        EXPECT_EQ(m_grid->currentIndex(), m_grid->model()->index(search.to, search.column));
        EXPECT_EQ(m_data.AbsolutePosition(), search.to);
        const QString told = search.told.isEmpty() ? QString() : u"Suche in "_s + search.told.toString();
        EXPECT_EQ(m_grid->accessibleDescription(), told);
        EXPECT_EQ(line->text(), told.isEmpty() ? u"6 Zeilen"_s : u"6 Zeilen  –  "_s + told);
    }
}

TEST_F(GridScreen, FollowsTheDataControlAndKeepsASelection)
{
    show();
    EXPECT_EQ(act({}), u"Weizen:"_s);
    m_data.MoveLast();
    EXPECT_EQ(act({}), u"Raps:"_s);
    act(u"1"_s);
    m_data.FindFirst(u"Artikel = 'Mais'"_s);
    EXPECT_EQ(act({}),
              u"Mais: Mais"_s); // a single row goes along, or Del would delete another than the current one
    SelectedRows& marks = m_grid->SelBookmarks();
    marks.Add(m_data.Recordset().BookmarkAt(0));
    EXPECT_EQ(act({}), u"Mais: Weizen Mais"_s);
    m_data.MoveLast();
    EXPECT_EQ(act({}), u"Raps: Weizen Mais"_s);
    EXPECT_EQ(marks[1], m_data.Recordset().BookmarkAt(3));

    act(u"4 {Right}"_s);
    const int place = m_grid->rowViewportPosition(4);
    m_data.Refresh();
    EXPECT_EQ(act({}), u"Weizen:"_s);
    m_data.MoveTo(4); // as a screen does that reads its rows anew and finds the one that was current
    EXPECT_EQ(m_grid->currentIndex().column(), 2);
    EXPECT_EQ(m_grid->rowViewportPosition(4), place);

    m_data.MoveFirst();
    QObject::connect(&m_data, &DataControl::Validate,
                     [](DataControl::Action, Cancel& cancel, bool&) { cancel = true; });
    EXPECT_EQ(act(u"{Down}"_s), u"Weizen: Weizen"_s);
    EXPECT_EQ(act(u"3"_s), u"Weizen: Weizen"_s) << "kept where he was";
}

TEST_F(GridScreen, ShowsWhatOtherProgramsDidAndWhatFails)
{
    show();
    m_grid->grab();
    change(u"UPDATE LAGERJOURNAL SET Artikel = 'Dinkel' WHERE ID = 2"_s);
    change(u"DELETE FROM LAGERJOURNAL WHERE ID = 3"_s);
    EXPECT_EQ(article(1), u"Gerste"_s); // what stands there stands, until it is looked at again
    tippe(u"{Down}");
    EXPECT_EQ(article(1), u"Dinkel"_s);
    tippe(u"{Down}");
    EXPECT_EQ(seen(2), u"#Gelöscht | #Gelöscht | #Gelöscht | #Gelöscht"_s);
    change(u"DELETE FROM LAGERJOURNAL WHERE ID = 6"_s);
    m_field->setFocus();
    m_grid->setFocus();
    EXPECT_EQ(articles(), u"Weizen Dinkel #Gelöscht Mais Roggen #Gelöscht"_s);
    m_data.Refresh();
    EXPECT_EQ(articles(), u"Weizen Dinkel Mais Roggen"_s);

    m_farm.meldungen().beantworteAlle(sys::Answer::Ignore);
    m_grid->Columns(3).setDataField(u"Bemerkung"_s);
    m_data.Refresh();
    for (const bool told : {true, false}) {
        m_grid->grab();
        EXPECT_EQ(seen(0), u"#Fehler | #Fehler | #Fehler | #Fehler"_s);
        EXPECT_EQ(seen(3), seen(0));
        QCoreApplication::processEvents();
        EXPECT_EQ(messages().filter(m_data.DatabaseName()).size(), told ? 1 : 0);
    }
    m_grid->Columns(3).setDataField(u"Kommentar"_s);
    m_data.Refresh();
    EXPECT_EQ(articles(), u"Weizen Dinkel Mais Roggen"_s);
}

TEST_F(GridScreen, ReadsOnlyTheRowsOnView)
{
    for (int rows = 6; rows < 20'000; rows *= 2)
        change(u"INSERT INTO LAGERJOURNAL (Datum, Artikel) SELECT Datum, Artikel FROM LAGERJOURNAL"_s);
    int cells = 0;
    m_grid->setBlank([&cells](const GridColumn&, const jet::Value&) { return ++cells, false; });
    show();
    act(u"{Ctrl+End}"_s);
    m_grid->grab();
    EXPECT_GT(m_data.AbsolutePosition(), 20'000);
    EXPECT_GT(cells, 0);
    EXPECT_LT(cells, 2500); // 100 rows for the widths, and a few pages drawn a few times
}

TEST_F(GridScreen, GivesColumnsTheWidthTheyNeedOrTheUserWants)
{
    m_grid->Columns(1).setWidth(77);
    m_grid->Columns(2).setCaption(u"Zugang im ganzen Jahr"_s);
    QObject::connect(m_grid, &DataGrid::HeadClick, [this](int column) {
        m_grid->showSort(column, Qt::AscendingOrder);
    }); // its mark wants room
    change(u"UPDATE LAGERJOURNAL SET Artikel = 'Ein sehr langer Name eines Artikels' WHERE ID = 1"_s);
    show();
    const int date = m_grid->columnWidth(0);
    EXPECT_GE(date, m_grid->fontMetrics().horizontalAdvance(u"01.02.2024"_s));
    QWidget* const header = m_grid->horizontalHeader()->viewport();
    QTest::mousePress(header, Qt::LeftButton, {}, QPoint(date - 1, header->height() / 2));
    QTest::mouseMove(header, QPoint(date + 30, header->height() / 2));
    QTest::mouseRelease(header, Qt::LeftButton, {}, QPoint(date + 30, header->height() / 2));
    const int unsorted = m_grid->columnWidth(2);
    clickHeader(m_grid->columnViewportPosition(2) + 9);
    EXPECT_GT(m_grid->columnWidth(2), unsorted);
    for (const int untouched : {2, 3}) // so that it grows for a figure that it would cut
        EXPECT_EQ(m_grid->Columns(untouched).Width(), 0);
    change(u"UPDATE LAGERJOURNAL SET Menge = 1E14 WHERE ID = 1"_s);
    m_data.Refresh();
    m_grid->grab();
    EXPECT_GT(m_grid->columnWidth(2), m_grid->fontMetrics().horizontalAdvance(u"100.000.000.000.000,00"_s));
    EXPECT_NEAR(m_grid->columnWidth(0), date + 31, 2);
    EXPECT_EQ(m_grid->Columns(0).Width(), m_grid->columnWidth(0)); // a screen can ask and remember
    EXPECT_EQ(m_grid->columnWidth(1), 77);
}

TEST_F(GridScreen, DeletesTheSelectedRowsOrElseTheCurrentOne)
{
    const struct {
        QString steps;
        QStringView asked, left, after; // asked: the current row at each BeforeDelete
    } cases[] = {
        {u"{Down}"_s, u"Gerste", u"Weizen Hafer Mais Roggen Raps", u"Hafer: Hafer"},
        {u"5"_s, u"Raps", u"Weizen Gerste Hafer Mais Roggen", u"Roggen: Roggen"},
        {u"0 +3 +4"_s, u"Weizen Mais Roggen", u"Gerste Hafer Raps", u"Raps: Raps"},
        {u"0 +2 +2"_s, u"Hafer", u"Weizen Gerste Mais Roggen Raps",
         u"Mais: Mais"}, // the current one, once taken out
        {u"{Ctrl+A}"_s, u"Weizen Gerste Hafer Mais Roggen Raps", u"", u"-:"},
        {{},
         u"Weizen",
         u"Gerste Hafer Mais Roggen Raps",
         u"Gerste: Gerste"}, // not the one that alone is selected
    };
    QStringList asked;
    QObject::connect(m_grid, &DataGrid::BeforeDelete, [&](Cancel&, bool& prompt) {
        asked.append(current());
        if (m_grid->DeletesSeveral()) {
            EXPECT_EQ(act({}), current() + u": "_s + current());
        }
        prompt = false;
    });
    change(u"SELECT * INTO Vorher IN '"_s + m_data.DatabaseName() + u"' FROM LAGERJOURNAL"_s);
    for (const auto& c : cases) {
        change(u"DELETE FROM LAGERJOURNAL"_s);
        change(
            u"INSERT INTO LAGERJOURNAL (Datum, Artikel, Menge) SELECT Datum, Artikel, Menge FROM Vorher"_s);
        show();
        if (c.steps.isEmpty()) m_grid->SelBookmarks().Add(m_data.Recordset().BookmarkAt(2));
        asked.clear();
        EXPECT_EQ(act(c.steps + (c.steps.isEmpty() ? u" {Num+Del}"_s : u" {Del}"_s)), c.after);
        EXPECT_EQ(asked.join(u' '), c.asked);
        EXPECT_EQ(articles(), c.left);
        EXPECT_EQ(m_farm.zeigt(2024, u"SELECT Artikel FROM LAGERJOURNAL"_s).join(u' '), c.left);
    }
}
