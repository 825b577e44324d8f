#include "platform/jet/sqlite/Query.h"

#include "platform/jet/sqlite/SelectWriter.h"

#include <algorithm>

namespace jet::sqlite {

class Cursor : public store::Cursor {
public:
    Cursor(Statement& statement, std::unique_ptr<Statement> own) : m_own(std::move(own)), m_run(statement) {}

    bool next() override { return m_run.step(); }
    Value value(int column, Type type) const override { return m_run.value(column, type); }
    store::Key key() const override { return store::Key(m_run.whole(0)); }
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

    std::unique_ptr<store::Cursor> keys(const store::Parameters& parameters) override
    {
        return m_all.run(parameters);
    }

    std::unique_ptr<store::Cursor> keysAmong(const store::Parameters& parameters,
                                             const std::vector<store::Key>& keys) override
    {
        std::vector<Value> list;
        list.reserve(keys.size());
        for (const store::Key key : keys)
            list.emplace_back(key.bits());
        return m_among.run(parameters, list);
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

std::unique_ptr<store::Cursor> Text::run(const store::Parameters& parameters,
                                         const std::vector<Value>& last) const
{
    auto cursor = bound(parameters);
    bindList(cursor->run(), static_cast<int>(parameters.size()), last);
    return cursor;
}

Query::Query(Connection& connection, const bind::BoundSelect& select, int parameters)
    : m_connection(connection), m_select(select),
      m_rows(connection, writeRows(select), overOthers(select.tables)),
      m_keys(connection, select.isKeyed() ? writeKeys(select) : QByteArray(), false),
      m_row(connection, select.isKeyed() ? writeRow(select, parameters) : QByteArray(), false)
{}

std::unique_ptr<store::Cursor> Query::rows(const store::Parameters& parameters)
{
    return m_rows.run(parameters);
}

std::unique_ptr<store::Cursor> Query::keys(const store::Parameters& parameters)
{
    return m_keys.run(parameters);
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
