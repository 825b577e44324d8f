#include "platform/controls/ComboBox.h"
#include "platform/controls/DataCombo.h"
#include "platform/controls/DataControl.h"
#include "platform/controls/TextBox.h"
#include "platform/jet/Engine.h"
#include "tests/platform/controls/FieldScreen.h"

#include <QAbstractItemView>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

TEST_F(FieldScreen, AListFieldCompletesAndTakesWhatIsTyped)
{
    auto& combo = add<ComboBox>();
    auto& next = add<TextBox>();
    for (const auto& kind : {u"Weizen"_s, u"Gerste"_s, u"Winterraps"_s, u"Geflügelfutter"_s, u" Öl "_s})
        combo.AddItem(kind);
    note(combo, &ComboBox::Change, "Change");
    note(combo, &ComboBox::Click, "Click");
    open();
    expectTyped(combo, {{u"frei", u"wi", u"wi[nterraps]", u"Change Change"},
                        {u"frei", u"we{Backspace}", u"we", u"Change Change Change"},
                        {u"frei", u"we{Del}", u"we", u"Change Change Change"},
                        {u"frei", u"w", u"w", u"Change"}, // or Winterraps: nobody knows
                        {u"frei", u"gefx", u"gefx", u"Change Change Change Change"},
                        {u"frei", u"we{Return}", u"Weizen", u"Change Change Click"},
                        {u"frei", u"gers{Tab}", u"Gerste", u"Change Change Change Click"},
                        {u"Gerste", u"gers{Tab}", u"Gerste", u"Change Change Change"},
                        {u"frei", u" WEIZEN {Tab}", u"Weizen",
                         u"Change Change Change Change Change Change Change Change Click"},
                        {u"frei", u"öl{Tab}", u" Öl ", u"Change Change Click"},
                        {u"frei", u"zz{Tab}", u"zz", u"Change Change Click"},
                        {u" gerste", u"{Down}", u"Winterraps", u"Change Click"},
                        {u"Gerste", u"{Alt+Down}{Down}{Return}", u"Winterraps", u"Change Click"},
                        {u"Gerste", u"{Alt+Down}{Return}", u"Gerste", u"Click"},
                        {u"Gerste", u"{Alt+Down}{Down}{Esc}", u"Gerste", u""}});
    combo.setListOnly(true);
    expectTyped(combo, {{u"frei", u"wi", u"Wi[nterraps]", u"Change Change"},
                        {u"frei", u"we{Backspace}", u"We[izen]", u"Change"},
                        {u"frei", u"wx", u"W[eizen]", u"Change"},
                        {u"frei", u"wg", u"G[erste]", u"Change Change"},
                        {u"frei", u"x{Tab}", u"frei", u""}});
    combo.setText(u"Weizen"_s);
    QWheelEvent turn({5, 5}, combo.mapToGlobal(QPointF(5, 5)), {}, {0, -120}, {}, {}, Qt::NoScrollPhase,
                     false);
    next.setFocus();
    QCoreApplication::sendEvent(&combo, &turn);
    EXPECT_EQ(combo.Text() + told(), u"Weizen"_s) << "turned in passing";
    combo.setFocus();
    QCoreApplication::sendEvent(&combo, &turn);
    EXPECT_EQ(combo.Text() + told(), u"GersteChange Click"_s);
    QTest::mouseClick(combo.lineEdit(), Qt::LeftButton);
    EXPECT_TRUE(combo.DroppedDown());
    combo.setDroppedDown(false);

    combo.setColumns({u"Kürzel"_s, u"Art"_s}, 1);
    combo.AddItem({u"G"_s, u"Gerste"_s});
    combo.AddItem({u"H"_s, u"Hafer"_s});
    for (const auto& [text, isListed] : {std::pair{u" hafer"_s, true}, {u"Haf"_s, false}, {u""_s, false}}) {
        combo.setText(text);
        EXPECT_EQ(combo.IsItemInList(), isListed);
    }
    tippe(u"{Alt+Down}{Down}{Down}{Return}");
    EXPECT_EQ(combo.Cell(combo.ListIndex(), 0) + told(), u"HChange Click"_s);
    combo.Clear();
    EXPECT_EQ(combo.Text() + told() + QString::number(combo.ListCount()), u"Hafer0"_s);
}

TEST_F(FieldScreen, AListOpensOnceTheCheckIsOver)
{
    auto& combo = add<ComboBox>();
    combo.AddItem(u"Weizen"_s);
    add<TextBox>();
    QObject::connect(&combo, &ComboBox::Validate, [&](Cancel& cancel) {
        if (combo.IsItemInList()) return;
        combo.setDroppedDown(true);
        sys::critical(u"Bitte wählen Sie aus."_s);
        EXPECT_FALSE(combo.DroppedDown());
        cancel = true;
    });
    note(combo, &ComboBox::DropDown, "open");
    note(combo, &ComboBox::CloseUp, "shut");
    note(combo, &ComboBox::LostFocus, "left");
    open();
    tippe(u"xy{Tab}");
    EXPECT_TRUE(combo.DroppedDown());
    EXPECT_TRUE(told().startsWith(u"! open"_s));
    combo.setDroppedDown(false);
    QApplication::setActiveWindow(&m_window); // this platform leaves none active after a list
    expectTyped(combo, {{u"", u"wei{Tab}", u"Weizen", u"left"}});
}

namespace {

/// Places with code and name, as the objects file has them.
class DataComboTest : public FieldScreen {
protected:
    DataComboTest()
    {
        change(u"CREATE TABLE Objekte (ID Counter, Name Text(50), KurzKu Text(15))"_s);
        for (const auto& place : {u"'Halle Nord', 'H1'"_s, u"'Düngerlager', 'D  2'"_s, u"'Hochsilo', 'S1'"_s,
                                  u"'H1', 'N4'"_s, u"'Feldrand', ''"_s})
            change(u"INSERT INTO Objekte (Name, KurzKu) VALUES ("_s + place + u')');
        m_places.setDatabaseName(m_path);
        m_places.setRecordSource(u"SELECT * FROM Objekte ORDER BY ID"_s);
        m_combo.setDataFieldToDisplay(u"KurzKu"_s);
        m_combo.setDataFieldToFind(u"Name"_s);
        m_combo.setFindFillsIn(true);
        m_combo.addColumn(u"Name"_s, u"Name"_s);
        m_combo.addColumn(u"Kürzel"_s, u"KurzKu"_s);
        m_combo.setDataSource(m_places);
        m_places.Refresh();
        note(m_combo, &DataCombo::Click, "Click");
        add<TextBox>();
        open();
    }
    void change(const QString& statement) { m_file->Execute(statement); }
    QString list() const ///< What the drop-down shows, and its current row.
    {
        const QAbstractItemModel& model = *m_combo.view()->model();
        QString shown = model.headerData(0, Qt::Horizontal).toString();
        for (int row = 0; row < model.rowCount(); ++row)
            shown += u' ' + model.index(row, 0).data().toString();
        return shown + u' ' + QString::number(m_combo.view()->currentIndex().row());
    }

    QTemporaryDir m_folder;
    QString m_path = m_folder.filePath(u"Anlagen.mdb"_s);
    std::unique_ptr<jet::Database> m_file = jet::engine().CreateDatabase(m_path, {});
    DataControl m_places;
    DataCombo& m_combo = add<DataCombo>();
};

} // namespace

TEST_F(DataComboTest, TakesCodesAndNames)
{
    expectTyped(m_combo, {{u"", u"hal", u"hal[le Nord]", u""},
                          {u"", u"hal{Tab}", u"H1", u"Click"},
                          {u"", u"h{Tab}", u"H1", u"Click"},
                          {u"", u"h1{Tab}", u"H1", u"Click"},
                          {u"", u"ho{Tab}", u"S1", u"Click"},
                          {u"", u"d{Tab}", u"D  2", u"Click"},
                          {u"", u"fel{Tab}", u"Feldrand", u"Click"},
                          {u"", u"x9{Tab}", u"x9", u"Click"},
                          {u"H1", u"{Alt+Down}{Down}{Return}", u"D  2", u"Click"},
                          {u"D  2", u"{Down}", u"S1", u"Click"}});
    const auto value = [this](QStringView typed) {
        m_combo.setText(typed.toString());
        return m_combo.Value();
    };
    EXPECT_EQ(value(u"hochsilo") + value(u"x9"), u"S1x9"_s);
    m_combo.setDataFieldList(u"ID"_s);
    EXPECT_EQ(value(u"hochsilo") + value(u"x9") + value(u"h1"), u"31"_s);
    m_combo.setProperty("Value", u"2"_s);
    EXPECT_EQ(m_combo.Text() + told(), u"D  2Click"_s);

    m_combo.setText(u"K7"_s);
    change(u"INSERT INTO Objekte (Name, KurzKu) VALUES ('Keller', 'K7')"_s);
    EXPECT_FALSE(m_combo.IsItemInList());
    QObject::connect(&m_combo, &DataCombo::DropDown, [&] { m_places.Refresh(); });
    m_combo.setFocus();
    tippe(u"{Alt+Down}");
    EXPECT_EQ(list(), u"Name Halle Nord Düngerlager Hochsilo H1 Feldrand Keller 5"_s);
    tippe(u"{Esc}");
    m_places.Close();
    EXPECT_EQ(m_combo.Text() + told(), u"K7"_s);
    EXPECT_FALSE(m_combo.IsItemInList());
}
