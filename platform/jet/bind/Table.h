#pragma once

#include "platform/jet/TableDef.h"

#include <QString>

#include <functional>
#include <memory>
#include <vector>

namespace jet::bind {

/// A table as statements see it.
struct Table {
    QString name;
    int file = 0; ///< That it lies in: 0 is the statement's own, a linked table lies in one of the others.
    std::vector<Field> columns;

    /// Number of the column of that name in any case, umlauts included; -1 without.
    int find(QStringView column) const;
};

// Shared: a prepared statement keeps the table it was bound to while the catalogue is read again.
using TablePtr = std::shared_ptr<const Table>;

/// Gives the table of that name in any case, or null.
using TableLookup = std::function<TablePtr(const QString&)>;

/// Whether two names of tables, columns or aliases are the same: case does not count, umlauts included.
bool sameName(QStringView left, QStringView right);

} // namespace jet::bind
