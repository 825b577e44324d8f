#pragma once

#include "platform/jet/Recordset.h"
#include "platform/jet/rows/Plan.h"
#include "platform/jet/store/Session.h"

namespace jet {

/// What the kinds of recordset have in common, and what each does in its own way.
class Recordset::Rows {
public:
    Rows(std::shared_ptr<Database::Session> session, std::shared_ptr<Plan> plan, sql::Shape shape);
    virtual ~Rows() = default;
    Q_DISABLE_COPY_MOVE(Rows)

    virtual bool isBof() const = 0;
    virtual bool isEof() const = 0;
    virtual void moveFirst() = 0;
    virtual void moveLast() = 0;
    virtual void moveNext() = 0;
    virtual void movePrevious() = 0;
    virtual void findFirst(const QString& criterion) = 0;
    virtual qsizetype findFrom(qsizetype position, const QString& criterion) const = 0;
    virtual qsizetype count() const = 0;
    virtual qsizetype position() const = 0;
    virtual qint64 mark() const = 0;          ///< What a bookmark keeps of the current row.
    virtual bool moveToMark(qint64 mark) = 0; ///< Whether there is such a row.
    virtual Value value(int column) const = 0;

    virtual std::optional<std::vector<Value>> valuesAt(qsizetype position,
                                                       const std::vector<int>& columns) const = 0;
    virtual qint64 markAt(qsizetype position) const = 0;
    virtual qsizetype positionOf(qint64 mark) const = 0;
    virtual void moveToPosition(qsizetype position) = 0;

    virtual bool isUpdatable() const { return false; }
    virtual void addNew();
    virtual void edit();
    virtual void set(int column, const Value& value);
    virtual void update();
    virtual void cancelUpdate();
    virtual void remove();
    virtual bool isEditing() const { return false; }
    virtual std::optional<qint64> lastModified() const { return {}; }

    const std::vector<Field>& fields() const { return m_plan->fields; }
    std::optional<std::size_t> find(QStringView name) const;
    /// \throws Error NoSuchField.
    int column(QStringView name) const;
    std::vector<int> allColumns() const;
    store::Connection& connection() const { return m_session->use().connection(); }

    /// Does the work on the open file; a refusal that may be the file's fault leaves it as the user is to
    /// read it. \throws Error ObjectClosed.
    template <typename Work>
    auto told(Work work) const
    {
        connection();
        return m_session->told(work);
    }

    const quint64 number; ///< Of this recordset, unlike any other's.
    bool noMatch = false;

protected:
    /// A cell of a row that the plan's statement gives. \throws Error Overflow when what was computed is
    /// infinite; what stands in the file is given as it is, so that it can be found and mended.
    Value cell(const store::Cursor& row, int column) const;

    std::shared_ptr<Database::Session> m_session;
    std::shared_ptr<Plan> m_plan;
    sql::Shape m_shape;
};

/// Opens the rows of a planned SELECT in the way of that kind, as far as the statement allows.
std::unique_ptr<Recordset::Rows> openRows(std::shared_ptr<Database::Session> session,
                                          std::shared_ptr<Plan> plan, sql::Shape shape, Kind kind);

} // namespace jet
