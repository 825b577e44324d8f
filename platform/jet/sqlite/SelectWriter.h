#pragma once

#include "platform/jet/bind/SelectBinder.h"
#include "platform/jet/sqlite/KeySorter.h"

#include <QByteArray>

#include <vector>

namespace jet::sqlite {

/// The statement that gives the rows of a SELECT, in the order that the dialect promises also where none is
/// asked for: groups and DISTINCT rows sorted by their columns, other rows and equal sort keys by the key of
/// the row. \param assignTo where the rows go to columns of a table: these, one for each column of the
/// result. Those of a table that is made for the rows have no names.
QByteArray writeRows(const bind::BoundSelect& select, const std::vector<Field>& assignTo = {});

/// The statement that gives the keys of the rows only, in the same order. For a keyed SELECT.
QByteArray writeKeys(const bind::BoundSelect& select);

/// The statement that gives the keys of the rows in no order, each with what they are ordered by.
struct KeysToSort {
    QByteArray
        statement; ///< Empty where SQLite must sort: there is no order, or only the first rows are wanted.
    std::vector<KeySorter::Column> columns;
    bool descending = false; ///< Rows that are equal in the columns.
};
KeysToSort writeKeysToSort(const bind::BoundSelect& select);

/// The statement that gives one row of a keyed SELECT; the key is parameter `key`, counted from 0.
QByteArray writeRow(const bind::BoundSelect& select, int key);

/// The statement that gives the keys of all rows of the SELECT's table that meet a bound criterion, in no
/// order.
QByteArray writeFind(const bind::BoundSelect& select, const sql::Expression& criterion);

/// The same of those rows whose keys are in a list; that is parameter `keys`, counted from 0.
QByteArray writeFindAmong(const bind::BoundSelect& select, const sql::Expression& criterion, int keys);

/// The statement that tells whether given values meet a criterion; they are the parameters from `valuesFrom`
/// on.
QByteArray writeTest(const sql::Expression& criterion, int valuesFrom);

} // namespace jet::sqlite
