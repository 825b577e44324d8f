#include "platform/jet/sqlite/SelectWriter.h"

#include "platform/jet/sqlite/ExpressionWriter.h"
#include "platform/jet/sqlite/Names.h"
#include "platform/jet/value/Functions.h"

#include <algorithm>

namespace jet::sqlite {

namespace {

using bind::BoundSelect;
using sql::Expression;
using sql::Op;

/// A sort key, or the key of a row of one table.
struct Order {
    const Expression* expression = nullptr;
    int rowOf = -1;
    bool descending = false;
};

bool contains(const Expression& expression, bool (*wanted)(FunctionKind, QStringView))
{
    if (expression.op == Op::Call) {
        const auto& function = functionAt(expression.function);
        if (wanted(function.kind, function.name)) return true;
    }
    return std::any_of(expression.arguments.begin(), expression.arguments.end(),
                       [wanted](const auto& argument) { return contains(*argument, wanted); });
}

/// Whether WHERE demands a given value for this column.
bool isFixed(const Expression& where, const Expression& column)
{
    if (where.op == Op::And)
        return std::any_of(where.arguments.begin(), where.arguments.end(),
                           [&](const auto& part) { return isFixed(*part, column); });
    if (where.op != Op::Equal) return false;
    const auto& left = *where.arguments[0];
    const auto& right = *where.arguments[1];
    return (right.op == Op::Parameter && sameExpression(left, column)) ||
           (left.op == Op::Parameter && sameExpression(right, column));
}

class SelectWriter {
public:
    explicit SelectWriter(const BoundSelect& select)
        : m_select(select), m_expressions(m_out, select.tables), m_oneGroup(hasOneGroup()), m_order(order())
    {}

    QByteArray rows(const std::vector<Field>& assignTo)
    {
        // The column with the lowest key would be one too many for a table, and make all rows of DISTINCT
        // different.
        const bool mayAddColumn = assignTo.empty() && !m_select.tree.distinct;
        if (mayAddColumn && usesFirstOnly()) m_expressions.firstRow = FirstRow::ByBareColumn;
        if (m_select.tree.top && !m_select.tree.orderBy.empty() && !m_oneGroup) return ranked(assignTo);
        core([&] { columns(assignTo); });
        orderBy();
        if (m_select.tree.top) m_out += " LIMIT " + QByteArray::number(*m_select.tree.top);
        return m_out;
    }

    QByteArray keys()
    {
        if (m_select.tree.top && !m_select.tree.orderBy.empty()) return rankedKeys();
        core([&] { m_out += "t0._rowid_"; });
        orderBy();
        if (m_select.tree.top) m_out += " LIMIT " + QByteArray::number(*m_select.tree.top);
        return m_out;
    }

    KeysToSort keysToSort()
    {
        KeysToSort result;
        if (m_select.tree.top || m_select.tree.orderBy.empty()) return result;
        core([&] {
            m_out += "t0._rowid_";
            for (const Order& key : m_order) {
                if (!key.expression) continue;
                m_out += ',';
                m_expressions.value(*key.expression);
                result.columns.push_back({isText(key.expression->type), key.descending});
            }
        });
        result.statement = m_out;
        result.descending = m_order.back().descending;
        return result;
    }

    QByteArray row(int key)
    {
        m_out += "SELECT ";
        columns({});
        from();
        m_out += " WHERE t0._rowid_=?" + QByteArray::number(key + 1);
        return m_out;
    }

    QByteArray find(const Expression& criterion, const QByteArray& among = {})
    {
        m_out += "SELECT t0._rowid_";
        from();
        m_out += " WHERE " + among;
        m_expressions.condition(criterion);
        return m_out;
    }

private:
    /// A group whose keys WHERE fixes is the only one; asking for it without GROUP BY spares sorting and
    /// comparing.
    bool hasOneGroup() const
    {
        const auto& tree = m_select.tree;
        if (tree.groupBy.empty()) return m_select.grouped;
        return tree.where && std::all_of(tree.groupBy.begin(), tree.groupBy.end(), [&](const auto& key) {
                   return key->op == Op::Column && isFixed(*tree.where, *key);
               });
    }

    template <typename Function>
    void eachExpression(Function function) const
    {
        for (const auto& column : m_select.columns)
            function(*column.expression);
        if (m_select.tree.having) function(*m_select.tree.having);
        for (const auto& key : m_select.tree.orderBy)
            function(*key.expression);
    }

    bool usesFirstOnly() const
    {
        bool first = false;
        bool other = false;
        eachExpression([&](const Expression& expression) {
            first = first || contains(expression, [](FunctionKind kind, QStringView) {
                        return kind == FunctionKind::First;
                    });
            other = other || contains(expression, [](FunctionKind kind, QStringView name) {
                        return kind == FunctionKind::Last || name == u"MIN" || name == u"MAX";
                    });
        });
        return first && !other;
    }

    std::vector<Order> order() const
    {
        std::vector<Order> result;
        if (m_oneGroup) return result;
        for (const auto& key : m_select.tree.orderBy)
            result.push_back({key.expression.get(), -1, key.descending});
        const bool descending = !result.empty() && result.back().descending;
        const auto addMissing = [&](const Expression& expression) {
            const bool present = std::any_of(result.begin(), result.end(), [&](const Order& key) {
                return sameExpression(*key.expression, expression);
            });
            if (!present) result.push_back({&expression, -1, descending});
        };
        if (m_select.grouped) {
            for (const auto& key : m_select.tree.groupBy)
                addMissing(*key);
        } else if (m_select.tree.distinct) {
            for (const auto& column : m_select.columns)
                addMissing(*column.expression);
        } else {
            for (std::size_t i = 0; i < m_select.tables.size(); ++i)
                result.push_back({nullptr, static_cast<int>(i), descending});
        }
        return result;
    }

    /// SELECT up to HAVING.
    template <typename Columns>
    void core(Columns writeColumns)
    {
        const auto& tree = m_select.tree;
        m_out += tree.distinct ? "SELECT DISTINCT " : "SELECT ";
        writeColumns();
        if (m_expressions.firstRow == FirstRow::ByBareColumn) m_out += ",min(t0._rowid_)";
        from();
        if (tree.where) {
            m_out += " WHERE ";
            where(*tree.where);
        }
        if (!tree.groupBy.empty() && !m_oneGroup) {
            m_out += " GROUP BY ";
            for (std::size_t i = 0; i < tree.groupBy.size(); ++i) {
                if (i > 0) m_out += ',';
                m_expressions.key(*tree.groupBy[i]);
            }
        }
        having();
    }

    /// A range of days or names usually takes in most of a year. With groups the planner is told so: else it
    /// reads the range in the range's order and sorts it into groups, instead of reading the groups along
    /// their index.
    void where(const Expression& condition)
    {
        const auto isRange = [](const Expression& part) {
            return part.op == Op::NotEqual || part.op == Op::Less || part.op == Op::Greater ||
                   part.op == Op::LessEqual || part.op == Op::GreaterEqual || part.op == Op::Between;
        };
        const bool grouped = !m_select.tree.groupBy.empty() && !m_oneGroup;
        if (!grouped || condition.op != Op::And) return m_expressions.condition(condition);
        for (std::size_t i = 0; i < condition.arguments.size(); ++i) {
            const Expression& part = *condition.arguments[i];
            if (i > 0) m_out += " AND ";
            if (isRange(part)) m_out += "likely(";
            m_expressions.condition(part);
            if (isRange(part)) m_out += ')';
        }
    }

    void having()
    {
        const bool countRows = m_oneGroup && !m_select.tree.groupBy.empty(); // no rows, no group
        if (!countRows && !m_select.tree.having) return;
        m_out += " HAVING ";
        if (countRows) m_out += "count(*)>0";
        if (countRows && m_select.tree.having) m_out += " AND ";
        if (m_select.tree.having) m_expressions.condition(*m_select.tree.having);
    }

    void from()
    {
        m_out += " FROM ";
        for (std::size_t i = 0; i < m_select.tables.size(); ++i) {
            const auto& source = m_select.tree.from[i];
            if (i > 0) m_out += source.leftJoin ? " LEFT JOIN " : " JOIN ";
            m_out += placed(*m_select.tables[i]) + " AS t" + QByteArray::number(i);
            if (!source.on) continue;
            m_out += " ON ";
            m_expressions.condition(*source.on);
        }
    }

    void columns(const std::vector<Field>& assignTo)
    {
        for (std::size_t i = 0; i < m_select.columns.size(); ++i) {
            const auto& expression = *m_select.columns[i].expression;
            if (i > 0) m_out += ',';
            if (!assignTo.empty()) {
                m_expressions.assigned(expression, assignTo[i].type, assignTo[i].name);
                if (m_select.tree.distinct && isText(assignTo[i].type))
                    m_out += " COLLATE " + collationName();
            } else if (m_select.tree.distinct)
                m_expressions.key(expression);
            else
                m_expressions.value(expression);
            m_out += " AS c" + QByteArray::number(i);
        }
    }

    void orderKey(const Order& key)
    {
        if (key.expression)
            m_expressions.key(*key.expression);
        else
            m_out += 't' + QByteArray::number(key.rowOf) + "._rowid_";
    }

    void orderBy()
    {
        for (std::size_t i = 0; i < m_order.size(); ++i) {
            m_out += i == 0 ? " ORDER BY " : ",";
            orderKey(m_order[i]);
            if (m_order[i].descending) m_out += " DESC";
        }
    }

    /// TOP n with an order gives all rows that tie with the n-th, so rows are ranked by the keys asked for.
    template <typename Columns>
    QByteArray rankedBy(const QByteArray& outer, Columns writeColumns)
    {
        m_out += "SELECT " + outer + " FROM (SELECT *,rank() OVER (" +
                 orderOfRanks(m_select.tree.orderBy.size()) + ") AS r FROM (";
        core([&] {
            writeColumns();
            for (std::size_t i = 0; i < m_order.size(); ++i) {
                m_out += ',';
                orderKey(m_order[i]);
                m_out += " AS k" + QByteArray::number(i);
            }
        });
        m_out += ")) WHERE r<=" + QByteArray::number(*m_select.tree.top) + ' ' + orderOfRanks(m_order.size());
        return m_out;
    }

    QByteArray ranked(const std::vector<Field>& assignTo)
    {
        QByteArray outer;
        for (std::size_t i = 0; i < m_select.columns.size(); ++i)
            outer += (i > 0 ? ",c" : "c") + QByteArray::number(i);
        return rankedBy(outer, [&] { columns(assignTo); });
    }

    QByteArray rankedKeys()
    {
        return rankedBy("c0", [&] { m_out += "t0._rowid_ AS c0"; });
    }

    QByteArray orderOfRanks(std::size_t keys) const
    {
        QByteArray text = "ORDER BY ";
        for (std::size_t i = 0; i < keys; ++i) {
            if (i > 0) text += ',';
            text += 'k' + QByteArray::number(i);
            if (m_order[i].expression && isText(m_order[i].expression->type))
                text += " COLLATE " + collationName();
            if (m_order[i].descending) text += " DESC";
        }
        return text;
    }

    const BoundSelect& m_select;
    QByteArray m_out;
    ExpressionWriter m_expressions;
    bool m_oneGroup;
    std::vector<Order> m_order;
};

} // namespace

QByteArray writeRows(const BoundSelect& select, const std::vector<Field>& assignTo)
{
    return SelectWriter(select).rows(assignTo);
}

QByteArray writeKeys(const BoundSelect& select)
{
    return SelectWriter(select).keys();
}

KeysToSort writeKeysToSort(const BoundSelect& select)
{
    return SelectWriter(select).keysToSort();
}

QByteArray writeRow(const BoundSelect& select, int key)
{
    return SelectWriter(select).row(key);
}

QByteArray writeFind(const BoundSelect& select, const sql::Expression& criterion)
{
    return SelectWriter(select).find(criterion);
}

QByteArray writeFindAmong(const BoundSelect& select, const sql::Expression& criterion, int keys)
{
    const QByteArray list = "(SELECT value FROM json_each(?" + QByteArray::number(keys + 1) + "))";
    return SelectWriter(select).find(criterion, "t0._rowid_ IN " + list + " AND ");
}

QByteArray writeTest(const sql::Expression& criterion, int valuesFrom)
{
    QByteArray out = "SELECT ";
    const std::vector<bind::TablePtr> none;
    ExpressionWriter writer(out, none);
    writer.valuesFrom = valuesFrom;
    writer.condition(criterion);
    return out;
}

} // namespace jet::sqlite
