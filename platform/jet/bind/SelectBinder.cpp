#include "platform/jet/bind/SelectBinder.h"

#include "platform/jet/Errors.h"
#include "platform/jet/bind/AliasBinder.h"
#include "platform/jet/value/Functions.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace jet::bind {

namespace {

using sql::Expression;
using sql::ExpressionPtr;
using sql::Op;

class SelectBinder {
public:
    SelectBinder(sql::Select select, const TableLookup& lookup)
    {
        m_bound.tree = std::move(select);
        for (const auto& source : m_bound.tree.from)
            m_bound.tables.push_back(requireTable(lookup, source.table, source.position));
    }

    BoundSelect run()
    {
        auto& tree = m_bound.tree;
        ColumnBinder binder(tree.from, m_bound.tables, m_unknown);
        for (auto& source : tree.from)
            if (source.on) binder.bindCondition(source.on);
        bindItems();
        if (tree.where) binder.bindCondition(tree.where);
        for (auto& key : tree.groupBy)
            binder.bind(key);
        binder.aggregatesAllowed = true;
        if (tree.having) binder.bindCondition(tree.having);
        requireDistinctNames();
        m_bound.grouped =
            !tree.groupBy.empty() || tree.having ||
            std::any_of(m_bound.columns.begin(), m_bound.columns.end(),
                        [](const OutputColumn& column) { return containsAggregate(*column.expression); });
        for (auto& key : tree.orderBy)
            bindOrderKey(key, binder);
        requireKnown(m_unknown);
        if (m_bound.grouped) requireGrouped();
        if (tree.distinct) requireSelectedOrder();
        requireSortable();
        return std::move(m_bound);
    }

private:
    void bindItems()
    {
        AliasBinder aliases(m_bound.tree.items, m_bound.tree.from, m_bound.tables, m_unknown);
        for (std::size_t i = 0; i < m_bound.tree.items.size(); ++i) {
            auto& item = m_bound.tree.items[i];
            if (item.expression)
                addColumn(item, aliases.take(i));
            else
                addStar(item);
        }
        m_bound.tree.items.clear();
    }

    void addStar(const sql::SelectItem& item)
    {
        bool found = false;
        for (std::size_t source = 0; source < m_bound.tables.size(); ++source) {
            if (!item.starTable.isEmpty() && !sameName(item.starTable, m_bound.tree.from[source].alias))
                continue;
            found = true;
            const auto& columns = m_bound.tables[source]->columns;
            for (std::size_t column = 0; column < columns.size(); ++column) {
                auto expression = std::make_unique<Expression>();
                expression->op = Op::Column;
                expression->source = static_cast<int>(source);
                expression->column = static_cast<int>(column);
                expression->type = columns[column].type;
                m_bound.columns.push_back({columns[column], std::move(expression), static_cast<int>(column)});
            }
        }
        if (!found) raise(ErrorNumber::UnknownTable, {item.starTable}, item.position);
    }

    void addColumn(const sql::SelectItem& item, ExpressionPtr expression)
    {
        OutputColumn column;
        if (!item.alias.isEmpty())
            column.field.name = item.alias;
        else if (expression->op == Op::Column && !expression->name.isEmpty())
            column.field.name = expression->name;
        else
            column.field.name = u"Expr"_s + QString::number(1000 + m_bound.columns.size());
        column.field.type = expression->type;
        if (expression->op == Op::Column && expression->source >= 0) {
            column.tableColumn = expression->column;
            const auto& table = *m_bound.tables[static_cast<std::size_t>(expression->source)];
            column.field.size = table.columns[static_cast<std::size_t>(expression->column)].size;
        } else if (expression->type == Type::Text) {
            column.field.size = 255;
        }
        column.expression = std::move(expression);
        m_bound.columns.push_back(std::move(column));
    }

    void requireDistinctNames() const
    {
        const auto& columns = m_bound.columns;
        for (std::size_t i = 0; i < columns.size(); ++i)
            for (std::size_t j = 0; j < i; ++j)
                if (sameName(columns[i].field.name, columns[j].field.name))
                    raise(ErrorNumber::DuplicateAlias, {columns[j].field.name});
    }

    void bindOrderKey(sql::OrderKey& key, ColumnBinder& binder)
    {
        if (key.expression->op == Op::Constant && key.expression->type == Type::Long) { // an ordinal
            const qint64 ordinal = key.expression->constant.toLong();
            if (ordinal < 1 || ordinal > static_cast<qint64>(m_bound.columns.size()))
                raise(ErrorNumber::OrderBySyntax, {}, key.expression->position);
            key.expression = m_bound.columns[static_cast<std::size_t>(ordinal - 1)].expression->clone();
            return;
        }
        binder.aggregatesAllowed = m_bound.grouped;
        const bool plainName = key.expression->op == Op::Column && key.expression->table.isEmpty();
        const QString name = key.expression->name;
        binder.bind(key.expression);
        if (!plainName || !m_bound.grouped || isGrouped(*key.expression)) return;
        // The header of a column that summing over the places has made constant still sorts: by what the list
        // shows.
        for (const auto& column : m_bound.columns)
            if (sameName(column.field.name, name) && column.expression->op != Op::Column)
                key.expression = column.expression->clone();
    }

    /// Whether the expression has one value for a whole group.
    bool isGrouped(const Expression& expression) const
    {
        const auto& groups = m_bound.tree.groupBy;
        if (std::any_of(groups.begin(), groups.end(),
                        [&](const auto& key) { return sameExpression(*key, expression); }))
            return true;
        if (expression.op == Op::Column) return false;
        if (expression.op == Op::Call && isAggregate(functionAt(expression.function))) return true;
        return std::all_of(expression.arguments.begin(), expression.arguments.end(),
                           [&](const ExpressionPtr& argument) { return isGrouped(*argument); });
    }

    void requireGrouped(const Expression& expression, const QString& name) const
    {
        if (isGrouped(expression)) return;
        raise(ErrorNumber::NotInAggregate, {name}, expression.position);
    }

    void requireGrouped() const
    {
        for (const auto& column : m_bound.columns)
            requireGrouped(*column.expression, column.field.name);
        if (m_bound.tree.having) requireGrouped(*m_bound.tree.having, firstColumn(*m_bound.tree.having));
        for (const auto& key : m_bound.tree.orderBy)
            requireGrouped(*key.expression, firstColumn(*key.expression));
    }

    QString firstColumn(const Expression& expression) const
    {
        if (expression.op == Op::Column && !isGrouped(expression)) return expression.name;
        if (expression.op == Op::Call && isAggregate(functionAt(expression.function))) return {};
        for (const auto& argument : expression.arguments)
            if (QString name = firstColumn(*argument); !name.isEmpty()) return name;
        return {};
    }

    void requireSelectedOrder() const
    {
        for (const auto& key : m_bound.tree.orderBy) {
            const bool selected =
                std::any_of(m_bound.columns.begin(), m_bound.columns.end(), [&](const OutputColumn& column) {
                    return sameExpression(*column.expression, *key.expression);
                });
            if (!selected)
                raise(ErrorNumber::OrderByConflictsWithDistinct, {m_bound.tree.orderText},
                      key.expression->position);
        }
    }

    void requireSortable() const
    {
        for (const auto& key : m_bound.tree.orderBy)
            if (key.expression->type == Type::Memo)
                raise(ErrorNumber::CannotSortMemo, {key.expression->name}, key.expression->position);
        for (const auto& key : m_bound.tree.groupBy)
            if (key->type == Type::Memo) raise(ErrorNumber::CannotGroupMemo, {key->name}, key->position);
        if (!m_bound.tree.distinct) return;
        for (const auto& column : m_bound.columns)
            if (column.field.type == Type::Memo) raise(ErrorNumber::CannotGroupMemo, {column.field.name});
    }

    BoundSelect m_bound;
    QSet<QString> m_unknown;
};

} // namespace

BoundSelect bindSelect(sql::Select select, const TableLookup& lookup)
{
    return SelectBinder(std::move(select), lookup).run();
}

TablePtr requireTable(const TableLookup& lookup, const QString& name, qsizetype position)
{
    auto table = lookup(name);
    if (!table) raise(ErrorNumber::UnknownTable, {name}, position);
    return table;
}

void requireKnown(const QSet<QString>& unknown)
{
    if (!unknown.isEmpty()) raise(ErrorNumber::TooFewParameters, {QString::number(unknown.size())});
}

} // namespace jet::bind
