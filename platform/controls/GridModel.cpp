#include "platform/controls/GridModel.h"

#include "platform/controls/DataControl.h"
#include "platform/controls/GridColumn.h"
#include "platform/jet/Errors.h"
#include "platform/jet/ShownText.h"
#include "platform/system/ErrorReport.h"

#include <QFont>
#include <QGuiApplication>
#include <QPalette>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// The colour, or one of its hue that stands out from a dark header.
QColor legible(const QColor& colour)
{
    constexpr int Middle = 128;
    constexpr int Light = 190;
    const QColor background = QGuiApplication::palette().color(QPalette::Button);
    if (background.lightness() >= Middle || colour.lightness() > Middle) return colour;
    return QColor::fromHsl(colour.hslHue(), colour.hslSaturation(), Light);
}

} // namespace

GridColumn& GridModel::addColumn()
{
    const int index = columnCount();
    auto* const added = new GridColumn(this);
    beginInsertColumns({}, index, index);
    m_columns.push_back(added);
    findFields();
    endInsertColumns();
    connect(added, &GridColumn::Changed, this, [this, index] {
        findFields();
        Q_EMIT headerDataChanged(Qt::Horizontal, index, index);
        if (m_rowCount > 0) Q_EMIT dataChanged(this->index(0, index), this->index(m_rowCount - 1, index));
    });
    return *added;
}

void GridModel::setSource(DataControl* source)
{
    m_source = source;
    reload();
}

void GridModel::findFields()
{
    m_fields.assign(m_columns.size(), -1);
    m_types.assign(m_columns.size(), jet::Type::Null);
    if (!m_source || !m_source->isOpen()) return;
    const auto& rows = m_source->Recordset();
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        const auto place = rows.PlaceOf(m_columns[i]->DataField());
        if (!place) continue;
        m_fields[i] = static_cast<int>(*place);
        m_types[i] = rows.Fields()[*place].type;
    }
}

void GridModel::reload()
{
    beginResetModel();
    m_rows.clear();
    m_failure = nullptr;
    m_rowCount = m_source ? static_cast<int>(m_source->RecordCount()) : 0;
    findFields();
    endResetModel();
}

void GridModel::appendRow()
{
    beginInsertRows({}, m_rowCount, m_rowCount);
    ++m_rowCount;
    endInsertRows();
}

void GridModel::removeRow(int row)
{
    beginRemoveRows({}, row, row);
    m_rows.clear(); // the rows behind have other places now
    --m_rowCount;
    endRemoveRows();
}

void GridModel::rereadRow(int row)
{
    m_failure = nullptr;
    m_rows.remove(row);
    Q_EMIT dataChanged(index(row, 0), index(row, columnCount() - 1));
}

void GridModel::rereadRows()
{
    if (m_failure) return; // it would fail again, and be reported each time its report gives the focus back
    m_rows.clear();
    if (m_rowCount > 0) Q_EMIT dataChanged(index(0, 0), index(m_rowCount - 1, columnCount() - 1));
}

int GridModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_rowCount;
}

int GridModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
}

QVariant GridModel::data(const QModelIndex& index, int role) const
{
    if (role == Qt::TextAlignmentRole) return QVariant(alignment(index.column()));
    return role == Qt::DisplayRole ? drawnText(index.row(), index.column()) : QVariant();
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal) return {};
    const GridColumn& shown = column(section);
    if (role == Qt::DisplayRole) return shown.Caption();
    if (role == Qt::TextAlignmentRole) return QVariant(alignment(section));
    if (!shown.HeadForeColor().isValid()) return {};
    if (role == Qt::ForegroundRole) return legible(shown.HeadForeColor());
    if (role == Qt::FontRole) { // not by colour alone
        QFont font = QGuiApplication::font();
        font.setBold(true);
        return font;
    }
    return {};
}

bool GridModel::showsNumbers(int column) const
{
    const auto index = static_cast<std::size_t>(column);
    return !m_columns[index]->NumberFormat().isEmpty() ||
           (jet::isNumber(m_types[index]) && m_types[index] != jet::Type::Boolean);
}

Qt::Alignment GridModel::alignment(int column) const
{
    const bool isDate = m_types[static_cast<std::size_t>(column)] == jet::Type::Date;
    return Qt::AlignVCenter | (showsNumbers(column) ? Qt::AlignRight
                               : isDate             ? Qt::AlignHCenter
                                                    : Qt::AlignLeft);
}

void GridModel::requireFields() const
{
    if (std::find(m_fields.begin(), m_fields.end(), -1) != m_fields.end())
        jet::raiseOfFile(jet::ErrorNumber::NoSuchField, m_source->Database().Name());
}

GridModel::Row GridModel::read(int row) const
{
    requireFields();
    return m_source->Recordset().RowAt(row);
}

/// The text of a cell while it is drawn, which nothing may be thrown out of.
QString GridModel::drawnText(int row, int column) const
{
    QString failed = u"#Fehler"_s;
    try {
        if (!m_rows.contains(row)) {
            if (m_failure) return failed; // each further row might wait for the same lock
            m_rows.insert(row, new Row(read(row)));
        }
        return text(*m_rows.object(row), column);
    } catch (...) {
        noteFailure();
        return failed;
    }
}

QString GridModel::text(const Row& row, int column) const
{
    if (!row) return u"#Gelöscht"_s;
    const jet::Value& value = cell(*row, column);
    return isBlank(value, column) ? QString() : jet::shownText(value, this->column(column).NumberFormat());
}

bool GridModel::isBlank(const jet::Value& value, int column) const
{
    return value.isNull() || (m_blank && m_blank(this->column(column), value));
}

const jet::Value& GridModel::cell(const std::vector<jet::Value>& row, int column) const
{
    return row[static_cast<std::size_t>(m_fields[static_cast<std::size_t>(column)])];
}

QStringList GridModel::texts(int row) const
{
    const Row values = read(row);
    QStringList texts;
    for (int column = 0; column < columnCount(); ++column)
        texts.append(text(values, column));
    return texts;
}

std::vector<std::vector<jet::Value>> GridModel::values(int first, int count) const
{
    requireFields();
    std::vector<int> shown;
    std::vector<int> fields;
    for (int i = 0; i < columnCount(); ++i) {
        if (!column(i).Visible()) continue;
        shown.push_back(i);
        fields.push_back(m_fields[static_cast<std::size_t>(i)]);
    }
    std::vector<std::vector<jet::Value>> rows;
    for (Row& row : m_source->Recordset().RowsAt(first, count, fields)) {
        if (!row) continue; // deleted by another program
        for (std::size_t i = 0; i < shown.size(); ++i)
            if (isBlank((*row)[i], shown[i])) (*row)[i] = {};
        rows.push_back(std::move(*row));
    }
    return rows;
}

void GridModel::noteFailure() const
{
    if (m_failure) return;
    m_failure = std::current_exception();
    auto* const self = const_cast<GridModel*>(this); // data() is const, what it found out is told later
    QMetaObject::invokeMethod(
        self, [self] { self->reportFailure(); }, Qt::QueuedConnection);
}

void GridModel::reportFailure()
{
    std::exception_ptr failure = m_failure;
    if (!failure) return; // the rows are others meanwhile
    sys::underErrorReport({[this, &failure] {
        if (failure) std::rethrow_exception(std::exchange(failure, nullptr));
        m_failure = nullptr; // on Retry; a row that fails again is reported again
        rereadRows();
    }});
}
