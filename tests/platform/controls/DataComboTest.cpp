#include "platform/controls/DataCombo.h"
#include "platform/controls/DataControl.h"
#include "platform/controls/TextBox.h"
#include "platform/jet/Engine.h"
#include "tests/platform/controls/FieldScreen.h"
#include "tests/support/Print.h"

#include <QAbstractItemView>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

/// Places with code and name, as the objects file has them.
class DataComboTest : public FieldScreen {
protected:
    DataComboTest()
    {
        const auto file = jet::engine().CreateDatabase(m_path, {});
        file->Execute(u"CREATE TABLE Objekte (ID Counter, Name Text(50), KurzKu Text(15))"_s);
        for (const auto& place : {u"'Halle Nord', 'H1'"_s, u"'Düngerlager', 'D  2'"_s, u"'Hochsilo', 'S1'"_s})
            file->Execute(u"INSERT INTO Objekte (Name, KurzKu) VALUES ("_s + place + u')');
        m_places.setDatabaseName(m_path);
        m_places.setRecordSource(u"SELECT * FROM Objekte ORDER BY ID"_s);
        m_combo.setDataFieldToDisplay(u"KurzKu"_s);
        m_combo.setDataFieldToFind(u"Name"_s);
        m_combo.addColumn(u"Name"_s, u"Name"_s);
        m_combo.addColumn(u"Kürzel"_s, u"KurzKu"_s);
        m_combo.setDataSource(m_places);
        m_places.Refresh();
        show();
    }
    ~DataComboTest() override { m_places.Close(); }

    QTemporaryDir m_folder;
    QString m_path = m_folder.filePath(u"Anlagen.mdb"_s);
    DataControl m_places;
    DataCombo& m_combo = add<DataCombo>();
    TextBox& m_next = add<TextBox>();
    std::shared_ptr<int> m_clicks = counted(m_combo, &DataCombo::Click);
};

} // namespace

TEST_F(DataComboTest, TakesCodesAndNames)
{
    const struct {
        QString keys, whileTyped, text;
        bool isListed = true;
    } cases[] = {
        {u"h1"_s, u"h1"_s, u"H1"_s},       {u"hal"_s, u"halle Nord"_s, u"H1"_s}, {u"h"_s, u"h1"_s, u"H1"_s},
        {u"ho"_s, u"hochsilo"_s, u"S1"_s}, {u"d"_s, u"d  2"_s, u"D  2"_s},       {u"x9"_s, u"x9"_s, u"x9"_s, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.keys.toStdString());
        m_combo.setText({});
        m_combo.setFocus();
        *m_clicks = 0;
        QTest::keyClicks(&m_combo, c.keys);
        EXPECT_EQ(m_combo.Text(), c.whileTyped);
        EXPECT_EQ(m_combo.Value(), c.text) << "before it is left";
        QTest::keyClick(&m_combo, Qt::Key_Tab);
        EXPECT_EQ(m_combo.Text(), c.text);
        EXPECT_EQ(m_combo.IsItemInList(), c.isListed);
        EXPECT_EQ(*m_clicks, 1);
    }
}

TEST_F(DataComboTest, ChoosesFromTheListInTheFieldsOwnSpelling)
{
    m_combo.setText(u"H1"_s);
    m_combo.setFocus();
    QTest::keyClick(&m_combo, Qt::Key_Down, Qt::AltModifier);
    ASSERT_TRUE(m_combo.DroppedDown());
    const QAbstractItemModel& list = *m_combo.view()->model();
    EXPECT_EQ(list.headerData(0, Qt::Horizontal).toString(), u"Name"_s);
    EXPECT_EQ(list.index(1, 0).data().toString(), u"Düngerlager"_s);
    QTest::keyClick(m_combo.view(), Qt::Key_Down);
    QTest::keyClick(m_combo.view(), Qt::Key_Return);
    EXPECT_EQ(m_combo.Text(), u"D  2"_s);
    EXPECT_EQ(*m_clicks, 1);
    QTest::keyClick(&m_combo, Qt::Key_Down);
    EXPECT_EQ(m_combo.Text(), u"S1"_s);
}

TEST_F(DataComboTest, FollowsTheRowsOfItsSource)
{
    m_combo.setText(u"K7"_s);
    jet::engine().OpenDatabase(m_path)->Execute(u"INSERT INTO Objekte (Name, KurzKu) VALUES ('Keller', 'K7')"_s);
    EXPECT_FALSE(m_combo.IsItemInList());
    QObject::connect(&m_combo, &DataCombo::DropDown, [&] { m_places.Refresh(); });
    m_combo.setDroppedDown(true);
    EXPECT_TRUE(m_combo.IsItemInList());
    EXPECT_EQ(m_combo.view()->currentIndex().row(), 3);
    QTest::keyClick(m_combo.view(), Qt::Key_Escape);
    EXPECT_EQ(m_combo.Text(), u"K7"_s);
    EXPECT_EQ(*m_clicks, 0);
    m_places.Close();
    EXPECT_EQ(m_combo.Text(), u"K7"_s);
    EXPECT_FALSE(m_combo.IsItemInList());
}

TEST_F(DataComboTest, HasAnotherFieldBehindItsValue)
{
    m_combo.setDataFieldList(u"ID"_s);
    m_combo.setText(u"s1"_s);
    EXPECT_EQ(m_combo.Value(), u"3"_s);
    m_combo.setText(u"unbekannt"_s);
    EXPECT_EQ(m_combo.Value(), u""_s);
    m_combo.setProperty("Value", u"1"_s);
    EXPECT_EQ(m_combo.Text(), u"H1"_s);
    EXPECT_EQ(*m_clicks, 1);
}

TEST_F(DataComboTest, OpensALongListAsFastAsAShortOne)
{
    const auto opening = [&] {
        QElapsedTimer timer;
        timer.start();
        m_combo.setDroppedDown(true);
        QCoreApplication::processEvents();
        const qint64 taken = timer.elapsed();
        QTest::keyClick(m_combo.view(), Qt::Key_Escape);
        return taken;
    };
    const qint64 shortList = opening();
    const auto file = jet::engine().OpenDatabase(m_path);
    file->BeginTrans();
    const auto rows = file->OpenRecordset(u"Objekte"_s);
    for (int i = 0; i < 20000; ++i) {
        rows->AddNew();
        rows->Set(u"Name", u"Platz "_s + QString::number(i));
        rows->Set(u"KurzKu", u"P"_s + QString::number(i));
        rows->Update();
    }
    file->CommitTrans();
    m_places.Refresh();
    constexpr qint64 Slack = 100; // ms; reading all rows one by one takes longer
    EXPECT_LT(opening(), shortList + Slack);
    m_combo.setFocus();
    QTest::keyClicks(&m_combo, u"p19998"_s);
    m_combo.setDroppedDown(true);
    EXPECT_EQ(m_combo.view()->currentIndex().row(), 20001);
}
