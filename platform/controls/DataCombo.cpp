#include "platform/controls/DataCombo.h"

#include "platform/controls/DataControl.h"
#include "platform/controls/GridColumn.h"
#include "platform/controls/GridModel.h"
#include "platform/system/ErrorReport.h"

#include <QAbstractItemView>
#include <QHeaderView>
#include <QScrollBar>
#include <QTreeView>

/// The list as the drop-down shows it; what becomes the text is the field's own spelling.
class DataCombo::Model final : public GridModel {
public:
    explicit Model(DataCombo& combo) : GridModel(&combo), m_combo(combo) {}
    QVariant data(const QModelIndex& index, int role) const override
    {
        return role == Qt::EditRole ? QVariant(m_combo.entry(index.row())) : GridModel::data(index, role);
    }

private:
    const DataCombo& m_combo;
};

DataCombo::DataCombo(QWidget* parent) : ListField(parent), m_list(*new Model(*this)) {}

void DataCombo::setDataFieldToDisplay(const QString& field)
{
    m_shownField = field;
    m_entries.clear();
}

void DataCombo::setDataFieldList(const QString& field)
{
    m_valueField = field;
    m_entries.clear();
}

void DataCombo::setDataFieldToFind(const QString& field)
{
    m_foundField = field;
    m_entries.clear();
}

void DataCombo::setFindFillsIn(bool fillsIn)
{
    m_findFillsIn = fillsIn;
    m_entries.clear();
}

void DataCombo::addColumn(const QString& caption, const QString& field, const QString& numberFormat)
{
    GridColumn& column = m_list.addColumn();
    column.setCaption(caption);
    column.setDataField(field);
    column.setNumberFormat(numberFormat);
}

void DataCombo::setDataSource(DataControl& source)
{
    const bool plain = m_list.columnCount() == 0;
    if (plain) addColumn({}, m_shownField);
    m_source = &source;
    // A list is looked through; of a dynaset each row would be read by itself.
    source.setRecordsetType(jet::Kind::Snapshot);
    changeList([&] {
        m_list.setSource(&source);
        setModel(&m_list);
        showAsTable();
    });
    // Qt would put the text of the current row in place of what is typed whenever rows are read anew.
    disconnect(&m_list, &QAbstractItemModel::dataChanged, this, nullptr);
    static_cast<QTreeView*>(view())->setHeaderHidden(plain);
    for (const auto signal : {&DataControl::RowsReplaced, &DataControl::RowAdded})
        connect(&source, signal, this, &DataCombo::rowsChanged);
    for (const auto signal : {&DataControl::RowChanged, &DataControl::RowRemoved})
        connect(&source, signal, this, &DataCombo::rowsChanged);
    connect(&source, &QObject::destroyed, this, [this] {
        m_source = nullptr;
        rowsChanged();
    });
    m_entries.clear();
}

void DataCombo::rowsChanged()
{
    m_entries.clear();
    changeList([this] { m_list.reload(); });
}

void DataCombo::showPopup()
{
    if (m_source) m_list.rereadRows();
    ListField::showPopup();
}

const DataCombo::Entry& DataCombo::entryAt(int row) const
{
    const auto wanted = static_cast<std::size_t>(row);
    while (m_entries.size() <= wanted)
        m_entries.push_back(read(static_cast<int>(m_entries.size())));
    return m_entries[wanted];
}

DataCombo::Entry DataCombo::read(int row) const
{
    const jet::Recordset& rows = m_source->Recordset();
    const auto values = rows.RowAt(row);
    Entry entry;
    for (const auto& [field, part] :
         {std::pair{&m_shownField, &Entry::shown}, std::pair{&m_valueField, &Entry::value},
          std::pair{&m_foundField, &Entry::found}}) {
        const auto place = rows.PlaceOf(*field);
        if (values && place) entry.*part = (*values)[*place].toText();
    }
    if (m_findFillsIn && entry.shown.trimmed().isEmpty()) entry.shown = entry.found;
    return entry;
}

template <class Condition>
int DataCombo::find(Part part, Condition condition) const
{
    int found = -1;
    sys::underErrorReport({[&] {
        const auto count = m_source ? static_cast<int>(m_source->RecordCount()) : 0;
        for (int row = 0; row < count && found < 0; ++row)
            if (condition(entryAt(row).*part)) found = row;
    }});
    return found;
}

int DataCombo::findEqual(Part part, const QString& text) const
{
    const QString wanted = text.trimmed();
    if (wanted.isEmpty()) return -1;
    return find(part, [&](const QString& entry) {
        return entry.trimmed().compare(wanted, Qt::CaseInsensitive) == 0;
    });
}

int DataCombo::rowOf(const QString& text) const
{
    return findEqual(&Entry::shown, text);
}

QString DataCombo::entry(int row) const
{
    QString text;
    sys::underErrorReport({[&] { text = entryAt(row).shown; }});
    return text;
}

QString DataCombo::meant(const QString& text) const
{
    int row = rowOf(text);
    if (row < 0 && !m_foundField.isEmpty()) row = findEqual(&Entry::found, text);
    return row < 0 ? text : entry(row);
}

QStringList DataCombo::beginning(Part part, const QString& begun, int most) const
{
    QStringList found;
    find(part, [&](const QString& entry) {
        if (entry.startsWith(begun, Qt::CaseInsensitive) && !found.contains(entry)) found.append(entry);
        return found.size() == most;
    });
    return found;
}

/// What may be typed instead of the text comes after it.
QStringList DataCombo::beginning(const QString& begun, int most) const
{
    const QStringList shown = beginning(&Entry::shown, begun, most);
    return shown.isEmpty() && !m_foundField.isEmpty() ? beginning(&Entry::found, begun, most) : shown;
}

QString DataCombo::Value() const
{
    if (m_valueField.isEmpty() || m_valueField.compare(m_shownField, Qt::CaseInsensitive) == 0)
        return meant(Text());
    const int row = rowOf(meant(Text()));
    return row < 0 ? QString() : m_entries[static_cast<std::size_t>(row)].value;
}

QString DataCombo::textOf(const QString& value) const
{
    const int row = m_valueField.isEmpty() ? -1 : findEqual(&Entry::value, value);
    return row < 0 ? value : entry(row);
}

void DataCombo::setValue(const QString& value)
{
    setText(textOf(value));
}

void DataCombo::enterValue(const QString& value)
{
    enterText(textOf(value));
}
