#pragma once

#include "platform/jet/sql/Tree.h"

#include "platform/jet/bind/Table.h"

#include <QByteArray>

#include <QString>

#include <vector>

namespace jet::sqlite {

/// How First and Last find the row with the lowest and the highest key of a group.
enum class FirstRow : quint8 {
    /// By an aggregate of ours, which looks at every row.
    ByAggregate,
    /// A column written bare takes its value from the row of the query's only min(): rows that are not the
    /// first are
    /// not even read. Possible where First is the only one of First, Last, Min and Max.
    ByBareColumn,
};

/// Writes bound expressions in SQLite's SQL. Parameter n of the statement is written ?n+1; tables are called
/// t0, t1, ...
class ExpressionWriter {
public:
    ExpressionWriter(QByteArray& out, const std::vector<bind::TablePtr>& tables)
        : m_out(out), m_tables(tables)
    {}

    FirstRow firstRow = FirstRow::ByAggregate;
    /// Columns of a recordset stand for parameters from this number on; -1 where columns are those of tables.
    int valuesFrom = -1;

    void value(const sql::Expression& expression);     ///< A truth value is -1 or 0.
    void condition(const sql::Expression& expression); ///< What SQLite takes for true or false.
    /// A key of GROUP BY, ORDER BY or DISTINCT: a text with the engine's collation.
    void key(const sql::Expression& expression);
    /// The value as a column of that type takes it. `field` is the column of a table that there is already:
    /// what it does not take is refused naming it. A new table takes the columns of others as they are.
    void assigned(const sql::Expression& expression, Type to, const QString& field = {});

private:
    void write(const char* form, const sql::Expression& expression);
    void collation(const sql::Expression& expression); // that its operands are compared by
    void hasText(const sql::Expression& expression);
    void operand(const sql::Expression& expression, bool asNumber);
    void chain(const sql::Expression& expression, const char* op);
    void in(const sql::Expression& expression);
    void column(const sql::Expression& expression);
    void constant(const Value& value);
    void sum(const sql::Expression& expression);
    void call(const sql::Expression& call);
    void aggregate(const sql::Expression& call);
    void choice(const sql::Expression& call);
    void argument(const sql::Expression& argument, char kind);
    void number(const sql::Expression& expression);
    void text(const sql::Expression& expression);

    QByteArray& m_out;
    const std::vector<bind::TablePtr>& m_tables;
};

} // namespace jet::sqlite
