#pragma once

#include "platform/jet/bind/Table.h"
#include "platform/jet/sql/Tree.h"

#include <QSet>
#include <QString>

#include <vector>

namespace jet::bind {

/// A column of a result: what it is called, how it is computed and, where it is a column of the table itself,
/// which.
struct OutputColumn {
    Field field;
    sql::ExpressionPtr expression;
    int tableColumn = -1; ///< Only then can it be written.
};

/// Whether a bound expression has Sum, First or another aggregate in it.
bool containsAggregate(const sql::Expression& expression);

/// Gives names in expressions their columns and every node its type.
class ExpressionBinder {
public:
    virtual ~ExpressionBinder() = default;

    /// \throws Error TypeMismatch, UndefinedFunction, AggregateNotAllowed, TooComplex.
    void bind(sql::ExpressionPtr& expression);
    /// The same for what stands as a condition, which neither a text nor a date can be.
    void bindCondition(sql::ExpressionPtr& expression);

    bool aggregatesAllowed = false;

protected:
    /// Replaces or fills a Column node.
    virtual void bindColumn(sql::ExpressionPtr& column) = 0;

private:
    void bindArguments(sql::Expression& expression);
    void bindCall(sql::Expression& call);
    void bindAggregate(sql::Expression& call);
    Type typeOf(const sql::Expression& expression) const;
};

/// Names are columns of the tables in FROM. An unknown one is noted, so that all of them can be counted.
class ColumnBinder : public ExpressionBinder {
public:
    ColumnBinder(const std::vector<sql::Source>& sources, const std::vector<TablePtr>& tables,
                 QSet<QString>& unknown)
        : m_sources(sources), m_tables(tables), m_unknown(unknown)
    {}

protected:
    /// \throws Error AmbiguousColumn.
    void bindColumn(sql::ExpressionPtr& column) override;

private:
    const std::vector<sql::Source>& m_sources;
    const std::vector<TablePtr>& m_tables;
    QSet<QString>& m_unknown;
};

/// Names are the columns of a recordset, aliases included: those that a find criterion can use.
class OutputBinder : public ExpressionBinder {
public:
    /// Whether a name stands for the expression that computes the column from the table, or for the value
    /// itself.
    enum class By { Expression, Value };
    OutputBinder(const std::vector<OutputColumn>& columns, By by) : m_columns(columns), m_by(by) {}

protected:
    /// \throws Error UnknownNameInCriterion.
    void bindColumn(sql::ExpressionPtr& column) override;

private:
    const std::vector<OutputColumn>& m_columns;
    By m_by;
};

} // namespace jet::bind
