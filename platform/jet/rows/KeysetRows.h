#pragma once

#include "platform/jet/rows/KeyedRows.h"

namespace jet {

/// A dynaset: the keys of its rows in the order they were found when it was opened, its own new rows at the
/// end. Eight bytes a row.
class KeysetRows : public KeyedRows {
public:
    KeysetRows(std::shared_ptr<Database::Session> session, std::shared_ptr<Plan> plan, sql::Shape shape);

    bool isBof() const override { return !m_deleted && (m_position < 0 || m_keys.empty()); }
    bool isEof() const override { return !m_deleted && m_position >= count(); }
    void moveFirst() override;
    void moveLast() override;
    void moveNext() override;
    void movePrevious() override;
    void findFirst(const QString& criterion) override;
    qsizetype findFrom(qsizetype position, const QString& criterion) const override;
    qsizetype count() const override { return static_cast<qsizetype>(m_keys.size()); }
    qsizetype position() const override { return isBof() || isEof() || m_deleted ? -1 : m_position; }
    bool moveToMark(qint64 mark) override;
    std::optional<std::vector<Value>> valuesAt(qsizetype position,
                                               const std::vector<int>& columns) const override
    {
        return read(keyAt(position), columns);
    }
    qint64 markAt(qsizetype position) const override { return keyAt(position).bits(); }
    qsizetype positionOf(qint64 mark) const override { return firstOf({store::Key(mark)}, 0); }
    void moveToPosition(qsizetype position) override;

protected:
    store::Key currentKey() const override;
    void added(store::Key key) override;
    void removed() override;

private:
    void moveTo(qsizetype position);
    void requireRows() const;
    store::Key keyAt(qsizetype position) const;
    using Keys = store::Keys;
    /// The keys of the rows that meet a criterion, among these or of all, in ascending order.
    Keys found(const sql::Shape& criterion, const Keys* among = nullptr) const;
    /// Position of the first row whose key is among these, which are in ascending order, counted from one
    /// position on and behind the last row again from the first; -1: none is.
    qsizetype firstOf(const Keys& keys, qsizetype from) const;

    Keys m_keys;
    bool m_ascending = true; // the keys themselves are in order, so that one can be looked up
    bool m_deleted = false;  // the current row was; m_position is that of the row after it
    qsizetype m_position = 0;
};

} // namespace jet
