#pragma once

#include "platform/jet/Value.h"

#include <QString>

#include <memory>
#include <optional>
#include <variant>
#include <vector>

namespace jet::sql {

enum class Op : quint8 {
    Parameter,     ///< A literal that is a parameter of the statement.
    ParameterList, ///< The literals of IN ('a', 'b'), one parameter.
    Constant,      ///< A literal that belongs to the shape; also NULL, True, False.
    Column,
    Call, ///< A function or aggregate.
    Negate,
    Not,
    Power,
    Multiply,
    Divide,
    IntegerDivide,
    Modulo,
    Add,
    Subtract,
    Concatenate,
    Equal,
    NotEqual,
    Less,
    Greater,
    LessEqual,
    GreaterEqual,
    Like,
    In, ///< The first argument among the others.
    Between,
    IsNull,
    And,
    Or,
};

struct Expression;
using ExpressionPtr = std::unique_ptr<Expression>;

/// A node of an expression. The parser fills the first group, the binder the second.
struct Expression {
    Op op = Op::Constant;
    QString name;  ///< Of a Column or Call, as written.
    QString table; ///< Before the dot of a Column; empty without.
    Value constant;
    int parameter = -1; ///< Number of a Parameter or ParameterList.
    bool star = false;  ///< Count(*)
    qsizetype position = 0;
    int depth = 1; ///< Levels of nodes below and with this one.
    std::vector<ExpressionPtr> arguments;

    Type type = Type::Null; ///< Of a literal known from the start.
    int source = -1;        ///< Of a Column: the table in FROM.
    int column = -1;   ///< Of a Column: its number in the table or, in a find criterion, in the recordset.
    int function = -1; ///< Of a Call: its row in the table of functions.

    ExpressionPtr clone() const;
};

/// Whether two bound expressions compute the same.
bool sameExpression(const Expression& left, const Expression& right);

struct SelectItem {
    ExpressionPtr expression; ///< Null for a star.
    QString alias;            ///< Empty without AS.
    QString starTable;        ///< Of T.*; empty for * over all tables.
    qsizetype position = 0;
};

struct Source {
    QString table;
    QString alias;         ///< The table's name without an alias.
    bool leftJoin = false; ///< Joined to all sources before it, their rows kept without a partner.
    ExpressionPtr on;      ///< Null for the first source.
    qsizetype position = 0;
};

struct OrderKey {
    ExpressionPtr expression;
    bool descending = false;
};

struct Into {
    QString table;
    QString file;    ///< Empty: the one that `connect` names, or the same file.
    QString connect; ///< ";PWD=...", also with ";DATABASE=..."
};

struct Select {
    bool distinct = false;
    std::optional<qint64> top;
    std::vector<SelectItem> items;
    std::optional<Into> into;
    std::vector<Source> from;
    ExpressionPtr where;
    std::vector<ExpressionPtr> groupBy;
    ExpressionPtr having;
    std::vector<OrderKey> orderBy;
    QString orderText; ///< The ORDER BY clause as written, for messages.
};

struct Insert {
    QString table;
    std::vector<QString> columns; ///< Empty: all, in table order.
    std::vector<ExpressionPtr> values;
    std::optional<Select> select; ///< Instead of values.
};

struct Assignment {
    QString column;
    ExpressionPtr value;
    qsizetype position = 0;
};

struct Update {
    Source table;
    std::vector<Assignment> assignments;
    ExpressionPtr where;
};

struct Delete {
    Source table;
    ExpressionPtr where;
};

struct ColumnDefinition {
    QString name;
    Type type = Type::Text;
    int size = 0; ///< Of a Text.
    bool required = false;
    bool primaryKey = false;
};

struct CreateTable {
    QString table;
    std::vector<ColumnDefinition> columns;
};

struct AddColumn {
    QString table;
    ColumnDefinition column;
};

/// A column takes longer texts from now on.
struct AlterColumn {
    QString table;
    ColumnDefinition column;
};

struct IndexColumn {
    QString name;
    bool folded = false; ///< LCASE(TRIM(name)) instead of the column itself.
    bool descending = false;
};

struct CreateIndex {
    QString name;
    QString table;
    std::vector<IndexColumn> columns;
    bool unique = false;
};

struct DropTable {
    QString table;
};

struct DropIndex {
    QString name;
    QString table;
};

using Definition = std::variant<CreateTable, AddColumn, AlterColumn, CreateIndex, DropTable, DropIndex>;
using Statement = std::variant<Select, Insert, Update, Delete, Definition>;

} // namespace jet::sql
