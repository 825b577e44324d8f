#include "platform/controls/ComboBox.h"

#include <QStandardItemModel>

ComboBox::ComboBox(QWidget* parent) : ListField(parent), m_list(*new QStandardItemModel(this))
{
    setModel(&m_list);
    connect(this, &ListField::Change, this, [this] { m_changed = true; });
}

void ComboBox::setColumns(const QStringList& heads, int shown)
{
    changeList([&] {
        m_list.clear();
        m_list.setHorizontalHeaderLabels(heads);
        showAsTable();
        setModelColumn(shown);
    });
}

void ComboBox::AddItem(const QStringList& cells)
{
    QList<QStandardItem*> row;
    for (const QString& cell : cells)
        row.append(new QStandardItem(cell)); // the list takes it over below
    changeList([&] { m_list.appendRow(row); });
}

void ComboBox::Clear()
{
    changeList([this] { m_list.setRowCount(0); });
}

QString ComboBox::Cell(int row, int column) const
{
    return m_list.index(row, column).data().toString();
}

int ComboBox::rowOf(const QString& text) const
{
    const QString wanted = text.trimmed();
    for (int row = 0; row < count(); ++row) {
        if (itemText(row).trimmed().compare(wanted, Qt::CaseInsensitive) == 0) return row;
    }
    return -1;
}

QStringList ComboBox::beginning(const QString& begun, int most) const
{
    QStringList found;
    for (int row = 0; row < count() && found.size() < most; ++row) {
        const QString text = itemText(row);
        if (text.startsWith(begun, Qt::CaseInsensitive) && !found.contains(text)) found.append(text);
    }
    return found;
}

void ComboBox::showValue(const jet::Value& value)
{
    setText(value.toText());
    m_changed = false;
}

std::optional<jet::Value> ComboBox::changedValue() const
{
    if (!m_changed) return {};
    return jet::Value(Text());
}
