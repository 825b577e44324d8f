#include "platform/jet/sqlite/Query.h"

#include "platform/jet/sqlite/SelectWriter.h"

#include <algorithm>

namespace jet::sqlite {

class Cursor : public store::Cursor {
public:
    Cursor(Statement& statement, std::unique_ptr<Statement> own) : m_own(std::move(own)), m_run(statement) {}

    bool next() override { return m_run.step(); }
    Value value(int column, Type type) const override { return m_run.value(column, type); }
    Statement::Run& run() { return m_run; }

private:
    std::unique_ptr<Statement> m_own;
    Statement::Run m_run; // ends before its statement does
};

namespace {

class Filter : public store::Filter {
public:
    Filter(Connection& connection, QByteArray all, QByteArray among)
        : m_all(connection, std::move(all), false), m_among(connection, std::move(among), false)
    {}

    store::Keys keys(const store::Parameters& parameters) override { return m_all.keys(parameters); }

    store::Keys keysAmong(const store::Parameters& parameters, const store::Keys& keys) override
    {
        std::vector<Value> list;
        list.reserve(keys.size());
        for (const store::Key key : keys)
            list.emplace_back(key.bits());
        return m_among.keys(parameters, &list);
    }

private:
    Text m_all;
    Text m_among;
};

} // namespace

bool overOthers(const std::vector<bind::TablePtr>& tables)
{
    return std::ranges::any_of(tables, [](const bind::TablePtr& table) { return table->file != 0; });
}

std::unique_ptr<Cursor> Text::bound(const store::Parameters& parameters) const
{
    std::unique_ptr<Statement> own;
    if (m_overOthers) own = std::make_unique<Statement>(m_connection, m_text);
    auto& statement = own ? *own : m_connection.prepared(m_text);
    auto cursor = std::make_unique<Cursor>(statement, std::move(own));
    bindParameters(cursor->run(), parameters);
    return cursor;
}

std::unique_ptr<store::Cursor> Text::run(const store::Parameters& parameters) const
{
    return bound(parameters);
}

std::unique_ptr<store::Cursor> Text::run(const store::Parameters& parameters, const Value& last) const
{
    auto cursor = bound(parameters);
    cursor->run().bind(static_cast<int>(parameters.size()), last);
    return cursor;
}

store::Keys Text::keys(const store::Parameters& parameters, const std::vector<Value>* among) const
{
    const auto cursor = bound(parameters);
    if (among) bindList(cursor->run(), static_cast<int>(parameters.size()), *among);
    store::Keys keys;
    while (cursor->next())
        keys.emplace_back(cursor->run().whole(0));
    return keys;
}

std::optional<store::Keys> Text::sortedKeys(const store::Parameters& parameters, KeySorter sorter) const
{
    const auto cursor = bound(parameters);
    while (cursor->next())
        if (!sorter.take(cursor->run())) return {};
    return sorter.sorted();
}

bool Text::sorts() const
{
    Statement plan(m_connection, "EXPLAIN QUERY PLAN " + m_text);
    constexpr int Detail = 3;
    for (Statement::Run run(plan); run.step();)
        if (run.view(Detail).ends_with("FOR ORDER BY")) return true;
    return false;
}

Query::Query(Connection& connection, const bind::BoundSelect& select, int parameters)
    : m_connection(connection), m_select(select),
      m_rows(connection, writeRows(select), overOthers(select.tables)),
      m_keys(connection, select.isKeyed() ? writeKeys(select) : QByteArray(), false),
      m_row(connection, select.isKeyed() ? writeRow(select, parameters) : QByteArray(), false),
      m_keysToSort(select.isKeyed() ? writeKeysToSort(select) : KeysToSort())
{}

std::unique_ptr<store::Cursor> Query::rows(const store::Parameters& parameters)
{
    return m_rows.run(parameters);
}

store::Keys Query::keys(const store::Parameters& parameters)
{
    if (!m_sortsKeys) m_sortsKeys = !m_keysToSort.statement.isEmpty() && m_keys.sorts();
    if (*m_sortsKeys) {
        const Text unsorted(m_connection, m_keysToSort.statement, false);
        if (auto keys = unsorted.sortedKeys(parameters, {m_keysToSort.columns, m_keysToSort.descending}))
            return *std::move(keys);
    }
    return m_keys.keys(parameters);
}

std::unique_ptr<store::Cursor> Query::row(const store::Parameters& parameters, store::Key key)
{
    return m_row.run(parameters, Value(key.bits()));
}

std::unique_ptr<store::Filter> Query::filter(const sql::Expression& criterion, int parameters)
{
    return std::make_unique<Filter>(m_connection, writeFind(m_select, criterion),
                                    writeFindAmong(m_select, criterion, parameters));
}

qint64 Action::run(const store::Parameters& parameters)
{
    m_text.run(parameters)->next();
    return m_connection.changes();
}

Test::Test(Connection& connection, const sql::Expression& criterion, int parameters)
    : m_connection(connection), m_text(writeTest(criterion, parameters)), m_parameters(parameters)
{}

bool Test::meets(const store::Parameters& parameters, std::span<const Value> row)
{
    Statement::Run run(m_connection.prepared(m_text));
    bindParameters(run, parameters);
    for (std::size_t column = 0; column < row.size(); ++column)
        run.bind(m_parameters + static_cast<int>(column), row[column]);
    return run.step() && run.value(0, Type::Boolean).toBool();
}

} // namespace jet::sqlite
