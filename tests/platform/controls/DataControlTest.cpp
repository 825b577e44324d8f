#include "platform/controls/DataControl.h"
#include "platform/controls/CheckBox.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/MemoBox.h"
#include "platform/controls/TextBox.h"
#include "platform/jet/Errors.h"
#include "tests/platform/controls/FieldScreen.h"
#include "tests/support/Testbetrieb.h"

using namespace Qt::StringLiterals;

namespace {

/// Three rows, bound to fields as a screen binds them.
class DataControlTest : public FieldScreen {
protected:
    DataControlTest()
    {
        m_file->Execute(
            u"CREATE TABLE Ware (ID Counter PRIMARY KEY, Artikel Text(10), Art Text(10), Notiz Memo, "
            u"Bio YesNo)"_s);
        for (const auto& article : {u"Weizen"_s, u"Gerste"_s, u"Hafer"_s})
            m_file->Execute(u"INSERT INTO Ware (Artikel, Art) VALUES ('%1', 'lose')"_s.arg(article));
        m_data.setDatabaseName(m_path);
        m_article.bindTo(m_data, u"Artikel"_s);
        m_kind.bindTo(m_data, u"art"_s);
        m_note.bindTo(m_data, u"Notiz"_s);
        m_organic.bindTo(m_data, u"Bio"_s);
        note(m_data, &DataControl::Reposition, "moved");
        refresh(u"SELECT * FROM Ware ORDER BY ID"_s);
        open();
        told();
    }
    void refresh(const QString& source)
    {
        m_data.setRecordSource(source);
        m_data.Refresh();
    }
    void retype(const QString& article)
    {
        m_article.setFocus();
        m_article.selectAll();
        tippe(article);
    }
    QString stored() const ///< The first row.
    {
        return gezeigt(*m_file, u"SELECT Artikel, Art, Notiz, Bio FROM Ware"_s).value(0);
    }
    void expectRefusal(int number, const std::function<void()>& call)
    {
        try {
            call();
            ADD_FAILURE() << number;
        } catch (const jet::Error& error) {
            EXPECT_EQ(int(error.number()), number);
        }
    }

    QTemporaryDir m_folder;
    QString m_path = m_folder.filePath(u"Waren.mdb"_s);
    std::unique_ptr<jet::Database> m_file = jet::engine().CreateDatabase(m_path, {});
    DataControl m_data;
    TextBox& m_article = add<TextBox>();
    ComboBox& m_kind = add<ComboBox>();
    MemoBox& m_note = add<MemoBox>();
    CheckBox& m_organic = add<CheckBox>();
};

} // namespace

TEST_F(DataControlTest, TellsOnceOfEachRowThatBecomesCurrent)
{
    const auto noRows = [&] { refresh(u"SELECT * FROM Ware WHERE ID < 0"_s); };
    const auto noSource = [&] { expectRefusal(3145, [&] { refresh(u"SELECT * FROM Ware WHERE"_s); }); };
    const struct {
        std::function<void()> step;
        QStringView after;
    } steps[] = {
        {[&] { m_data.MoveNext(); }, u"Gerste moved"},
        {[&] { m_data.MoveLast(); }, u"Hafer moved"},
        {[&] { m_data.MoveNext(); }, u" moved"},
        {[&] { m_data.MovePrevious(); }, u"Hafer moved"},
        {[&] { m_data.MoveFirst(); }, u"Weizen moved"},
        {[&] { m_data.MoveTo(1); }, u"Gerste moved"},
        {[&] { m_data.FindFirst(u"Artikel = 'hafer'"_s); }, u"Hafer moved"},
        {[&] { m_data.FindFirst(u"Artikel = 'Mais'"_s); }, u"Hafer "},
        {[&] { m_data.setBookmark(m_data.Recordset().BookmarkAt(0)); }, u"Weizen moved"},
        {[&] { m_data.AddNew(); }, u" "},
        {[&] { m_data.CancelUpdate(); }, u"Weizen "},
        {[&] { m_data.AddNew(), m_data.Set(u"Artikel", u"Neu"_s), m_data.Update(); }, u"Weizen "},
        {[&] { m_data.MoveLast(); }, u"Neu moved"},
        {[&] { m_data.MoveTo(1), m_data.Delete(), m_data.MoveNext(); }, u"Hafer moved moved"},
        {[&] { m_file->Execute(u"DELETE FROM Ware WHERE ID = 4"_s), m_data.MoveNext(); }, u" moved"},
        {noRows, u" moved"},
        {[&] { expectRefusal(3021, [&] { m_data.MoveLast(); }); }, u" "},
        {[&] { m_data.setRecordSource(u"Ware"_s), m_data.Refresh(); }, u"Weizen moved"},
        {noSource, u" moved"}, // captions and buttons follow
        {[&] { expectRefusal(3420, [&] { m_data.MoveFirst(); }); }, u" "},
    };
    for (const auto& [step, after] : steps) {
        step();
        EXPECT_EQ(m_article.Text() + u' ' + told(), after) << &step - &steps[0].step;
    }
}

TEST_F(DataControlTest, WritesWhatTheUserChangedWhenTheRowIsLeft)
{
    const QStringView typed = u"Dinkel | Sack | Danke | -1";
    const QStringView before = u"Weizen | lose | NULL | 0";
    const std::pair<std::function<void()>, QStringView> ways[] = {
        {[&] { m_data.UpdateRecord(); }, typed},
        {[&] { m_data.MoveNext(); }, typed},
        {[&] { m_data.FindFirst(u"ID = 77"_s); }, typed},
        {[&] { m_data.AddNew(); }, typed},
        {[&] { m_data.Close(); }, typed},
        {[&] { m_data.Refresh(); }, before},
        {[&] { m_data.UpdateControls(), m_data.MoveNext(); }, before},
    };
    for (const auto& [leave, after] : ways) {
        m_file->Execute(
            u"UPDATE Ware SET Artikel = 'Weizen', Art = 'lose', Notiz = NULL, Bio = False WHERE ID = 1"_s);
        m_data.Refresh();
        m_article.setText(u"vom Programm"_s);
        m_data.MoveNext();
        m_data.MoveFirst();
        EXPECT_EQ(stored(), before);
        retype(u"Dinkel{Tab}"_s);
        m_kind.lineEdit()->selectAll();
        tippe(u"Sack{Tab}Danke{Tab}{Space}");
        leave();
        EXPECT_EQ(stored(), after) << &leave - &ways[0].first;
    }
}

TEST_F(DataControlTest, KeepsWhatWasTypedWhenItIsNotWritten)
{
    bool forbids = true;
    bool drops = true;
    QObject::connect(&m_data, &DataControl::Validate,
                     [&](DataControl::Action action, Cancel& cancel, bool& save) {
                         tell(QByteArray::number(int(action)) + (save ? " pending" : ""));
                         cancel = forbids;
                         save = save && !drops;
                     });
    retype(u"Dinkel"_s);
    m_data.MoveLast();
    m_data.Close();
    m_data.Delete();
    EXPECT_EQ(told(), u"4 pending 10 pending 7"_s);
    EXPECT_EQ(m_article.Text() + QString::number(m_data.RecordCount()), u"Dinkel3"_s);
    forbids = false;
    m_data.MoveNext();
    m_data.MoveFirst();
    EXPECT_EQ(told(), u"3 pending moved 1 moved"_s);
    EXPECT_EQ(m_article.Text(), u"Weizen"_s);
    drops = false;
    retype(u"Winterweizen"_s);
    expectRefusal(3163, [&] { m_data.MoveNext(); });
    EXPECT_EQ(m_article.Text(), u"Winterweizen"_s);
    tippe(u"{Backspace}{Backspace}");
    m_file->Execute(u"UPDATE Ware SET Art = 'Sack' WHERE ID = 1"_s);
    expectRefusal(3197, [&] { m_data.UpdateRecord(); });
    m_data.UpdateRecord();
    EXPECT_EQ(stored(), u"Winterweiz | Sack | NULL | 0"_s);
}
