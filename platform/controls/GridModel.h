#pragma once

#include "platform/jet/TableDef.h"

#include <QAbstractTableModel>
#include <QCache>
#include <QPointer>
#include <QStringList>

#include <exception>
#include <functional>
#include <optional>
#include <vector>

class DataControl;
class GridColumn;

/// The rows of a data control as a grid shows them: texts, alignments, headers. Reads only the rows it is
/// asked for and keeps the last few hundred. What the engine refuses while a row is drawn is reported later,
/// once, not thrown.
class GridModel : public QAbstractTableModel {
    Q_OBJECT

public:
    /// Whether a cell shows nothing although it has a value. A search asks about the number 0 alone.
    using Blank = std::function<bool(const GridColumn& column, const jet::Value& value)>;

    using QAbstractTableModel::QAbstractTableModel;

    GridColumn& addColumn();
    GridColumn& column(int index) const { return *m_columns[static_cast<std::size_t>(index)]; }
    void setBlank(Blank blank) { m_blank = std::move(blank); }
    void setSource(DataControl* source);

    void reload(); ///< All rows are others now.
    void appendRow();
    void removeRow(int row);
    void rereadRow(int row); ///< It may have changed in the file.
    void rereadRows(); ///< Any may have changed. Nothing after a failure, until another row is current or all
                       ///< are others.

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    bool showsNumbers(int column) const;
    jet::Type type(int column) const { return m_types[static_cast<std::size_t>(column)]; }
    bool hidesZero(int column) const
    {
        return m_blank && m_blank(*m_columns[static_cast<std::size_t>(column)], 0.0);
    }
    /// The texts of all columns of a row, read now. \throws jet::Error.
    QStringList texts(int row) const;
    /// The values of the visible columns of a stretch of rows, read now; NULL for a cell that shows nothing.
    /// Rows that another program has deleted are left out. \throws jet::Error.
    std::vector<std::vector<jet::Value>> values(int first, int count) const;

private:
    using Row = std::optional<std::vector<jet::Value>>; ///< No value: deleted by another program.

    QString drawnText(int row, int column) const;
    void requireFields() const;
    Row read(int row) const;
    QString text(const Row& row, int column) const;
    bool isBlank(const jet::Value& value, int column) const;
    const jet::Value& cell(const std::vector<jet::Value>& row, int column) const;
    Qt::Alignment alignment(int column) const;
    void findFields();
    void noteFailure() const;
    void reportFailure();

    static constexpr int KeptRows = 512;

    QPointer<DataControl> m_source;
    std::vector<GridColumn*> m_columns; // children
    std::vector<int> m_fields;          // of each column, in the record source; -1: none
    std::vector<jet::Type> m_types;     // of each column
    Blank m_blank;
    int m_rowCount = 0;
    mutable QCache<int, Row> m_rows{KeptRows};
    mutable std::exception_ptr m_failure; // while there is one, no further row is read to be drawn
};
