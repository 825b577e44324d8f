#pragma once

#include "platform/jet/bind/ActionBinder.h"
#include "platform/jet/sqlite/Connection.h"
#include "platform/jet/sqlite/SelectWriter.h"
#include "platform/jet/store/Statements.h"

#include <optional>

namespace jet::sqlite {

/// A text for SQLite, ready to run. One over other files is prepared each time, so that they can be let go.
class Text {
public:
    Text(Connection& connection, QByteArray text, bool overOthers)
        : m_connection(connection), m_text(std::move(text)), m_overOthers(overOthers)
    {}

    std::unique_ptr<store::Cursor> run(const store::Parameters& parameters) const;
    /// With one parameter more behind them.
    std::unique_ptr<store::Cursor> run(const store::Parameters& parameters, const Value& last) const;
    /// The keys that a statement gives. \param among another parameter, a list.
    store::Keys keys(const store::Parameters& parameters, const std::vector<Value>* among = nullptr) const;
    /// Those of a statement that gives what to sort by behind each. \returns no value: SQLite has to sort.
    std::optional<store::Keys> sortedKeys(const store::Parameters& parameters, KeySorter sorter) const;
    bool sorts() const; ///< Whether SQLite has to sort its rows.

private:
    std::unique_ptr<class Cursor> bound(const store::Parameters& parameters) const;

    Connection& m_connection;
    QByteArray m_text;
    bool m_overOthers;
};

class Query : public store::Query {
public:
    Query(Connection& connection, const bind::BoundSelect& select, int parameters);

    std::unique_ptr<store::Cursor> rows(const store::Parameters& parameters) override;
    store::Keys keys(const store::Parameters& parameters) override;
    std::unique_ptr<store::Cursor> row(const store::Parameters& parameters, store::Key key) override;
    std::unique_ptr<store::Filter> filter(const sql::Expression& criterion, int parameters) override;

private:
    Connection& m_connection;
    const bind::BoundSelect& m_select;
    Text m_rows;
    Text m_keys;
    Text m_row;
    KeysToSort m_keysToSort;
    std::optional<bool> m_sortsKeys; // here; known when the keys are first asked for
};

class Action : public store::Action {
public:
    Action(Connection& connection, QByteArray text, bool overOthers)
        : m_connection(connection), m_text(connection, std::move(text), overOthers)
    {}
    qint64 run(const store::Parameters& parameters) override;

private:
    Connection& m_connection;
    Text m_text;
};

class Test : public store::Test {
public:
    Test(Connection& connection, const sql::Expression& criterion, int parameters);
    bool meets(const store::Parameters& parameters, std::span<const Value> row) override;

private:
    Connection& m_connection;
    QByteArray m_text;
    int m_parameters;
};

/// Whether one of the tables lies in another file than the connection's.
bool overOthers(const std::vector<bind::TablePtr>& tables);

} // namespace jet::sqlite
