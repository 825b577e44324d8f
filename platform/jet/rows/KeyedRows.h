#pragma once

#include "platform/jet/rows/Rows.h"

#include <optional>

namespace jet {

/// Rows that are found again by their key: each is read when it is looked at, and can be changed.
class KeyedRows : public Recordset::Rows {
public:
    using Rows::Rows;

    Value value(int column) const override;
    bool isUpdatable() const override { return connection().isWritable(); }
    void addNew() override;
    void edit() override;
    void set(int column, const Value& value) override;
    void update() override;
    void cancelUpdate() override;
    void remove() override;
    bool isEditing() const override { return m_mode != Mode::None; }
    std::optional<qint64> lastModified() const override { return m_lastModified; }
    qint64 mark() const override { return currentKey().bits(); }

protected:
    /// The key of the current row. \throws Error NoCurrentRecord, RecordDeleted after a Delete.
    virtual store::Key currentKey() const = 0;
    virtual void added(store::Key key) = 0; ///< A new row has been written.
    virtual void removed() = 0;             ///< The current row has been deleted.
    /// Called by every move and find: drops a pending edit and what was read of the row.
    void leaveRow();
    /// As the file has it; no value: it is not there any more.
    std::optional<std::vector<Value>> read(store::Key key, const std::vector<int>& columns) const;

private:
    enum class Mode { None, Edit, Add };

    const std::vector<Value>& row() const;
    std::vector<store::Cell> changes() const;
    void insert();
    void change();
    void requireWritable() const;
    void requireEditing() const;
    const bind::Table& table() const { return *m_plan->select->tables.front(); }

    mutable std::optional<std::vector<Value>> m_row; // of the current key, once read
    Mode m_mode = Mode::None;
    std::vector<Value> m_before; // the row when Edit began
    std::vector<Value> m_pending;
    std::optional<qint64> m_lastModified;
};

} // namespace jet
