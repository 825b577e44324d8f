#pragma once

#include "platform/jet/KeyedRows.h"

namespace jet {

/// A table as it lives, in the order of its keys: rows of other programs appear, nothing is kept but the current key.
class TableRows : public KeyedRows {
public:
    TableRows(std::shared_ptr<Database::Session> session, std::shared_ptr<sqlite::Plan> plan, sql::Shape shape);

    bool isBof() const override { return m_place == Place::Before || m_place == Place::Empty; }
    bool isEof() const override { return m_place == Place::After || m_place == Place::Empty; }
    void moveFirst() override;
    void moveLast() override;
    void moveNext() override;
    void movePrevious() override;
    void findFirst(const QString& criterion) override;
    qsizetype count() const override;
    qsizetype position() const override { return -1; }
    qint64 mark() const override { return currentKey(); }
    bool moveToMark(qint64 mark) override;

protected:
    qint64 currentKey() const override;
    void added(qint64 key) override;
    void removed() override { m_place = Place::Deleted; }

private:
    enum class Place { Empty, Before, Row, Deleted, After };
    /// Goes to the row with the wanted key, a condition comparing with the present one; without such a row to `otherwise`.
    void look(const QByteArray& key, const QByteArray& condition, Place otherwise);

    Place m_place = Place::Empty;
    qint64 m_key = 0;
};

} // namespace jet
