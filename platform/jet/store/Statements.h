#pragma once

#include "platform/jet/Value.h"
#include "platform/jet/store/Key.h"

#include <QtGlobal>

#include <memory>
#include <span>
#include <vector>

namespace jet::sql {
struct Expression;
}

namespace jet::store {

/// What a statement asks for this time: a list for IN, a single value for everything else.
using Parameters = std::vector<std::vector<Value>>;

/// The rows that a statement gives, one after another. While it lives the statement is open and others cannot
/// write.
class Cursor {
public:
    virtual ~Cursor() = default;
    virtual bool next() = 0; ///< Whether there is a row. \throws Error whatever the statement meets.
    virtual Value value(int column, Type type) const = 0; ///< \throws Error ConversionFailed.
};

/// The rows of a query that meet a criterion. Its parameters are the query's and, behind them, its own.
class Filter {
public:
    virtual ~Filter() = default;
    virtual Keys keys(const Parameters& parameters) = 0; ///< In no order. \throws Error
    /// Those of these rows.
    virtual Keys keysAmong(const Parameters& parameters, const Keys& keys) = 0;
};

/// Whether a row of values, which no file need hold, meets a criterion.
class Test {
public:
    virtual ~Test() = default;
    virtual bool meets(const Parameters& parameters, std::span<const Value> row) = 0;
};

/// A SELECT as its store runs it: of one shape, whatever its parameters.
class Query {
public:
    virtual ~Query() = default;
    /// In the order that the dialect promises also where none is asked for: groups and DISTINCT rows sorted
    /// by their columns, other rows and equal sort keys by the key of the row.
    virtual std::unique_ptr<Cursor> rows(const Parameters& parameters) = 0;
    // Only of a query whose rows are rows of one table of the connection's own file:
    virtual Keys keys(const Parameters& parameters) = 0; ///< In the same order. \throws Error
    virtual std::unique_ptr<Cursor> row(const Parameters& parameters, Key key) = 0;
    /// \param criterion bound to the query's table, its own parameters numbered behind the query's.
    /// \param parameters of both.
    virtual std::unique_ptr<Filter> filter(const sql::Expression& criterion, int parameters) = 0;
};

/// An INSERT, UPDATE or DELETE as its store runs it.
class Action {
public:
    virtual ~Action() = default;
    virtual qint64 run(const Parameters& parameters) = 0; ///< \returns the number of rows written.
};

} // namespace jet::store
