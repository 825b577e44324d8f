#pragma once

#include "platform/jet/rows/Rows.h"

namespace jet {

/// Rows kept as values, as they were when the recordset was opened.
class SnapshotRows : public Recordset::Rows {
public:
    SnapshotRows(std::shared_ptr<Database::Session> session, std::shared_ptr<Plan> plan, sql::Shape shape);

    bool isBof() const override { return m_position < 0 || count() == 0; }
    bool isEof() const override { return m_position >= count(); }
    void moveFirst() override;
    void moveLast() override;
    void moveNext() override;
    void movePrevious() override;
    void findFirst(const QString& criterion) override;
    qsizetype findFrom(qsizetype position, const QString& criterion) const override;
    qsizetype count() const override { return m_count; }
    qsizetype position() const override { return isBof() || isEof() ? -1 : m_position; }
    qint64 mark() const override;
    bool moveToMark(qint64 mark) override;
    std::optional<std::vector<Value>> valuesAt(qsizetype position,
                                               const std::vector<int>& columns) const override;
    qint64 markAt(qsizetype position) const override;
    qsizetype positionOf(qint64 mark) const override
    {
        return mark < m_count ? static_cast<qsizetype>(mark) : -1;
    }
    void moveToPosition(qsizetype position) override
    {
        m_position = static_cast<qsizetype>(markAt(position));
    }
    Value value(int column) const override;

private:
    void read();
    void requireRow() const;
    std::span<const Value> row(qsizetype row) const
    {
        return {m_values.data() + static_cast<std::size_t>(row) * fields().size(), fields().size()};
    }

    std::vector<Value> m_values; // row by row
    qsizetype m_count = 0;
    qsizetype m_position = 0;
};

} // namespace jet
