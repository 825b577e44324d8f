#pragma once

#include "platform/jet/bind/Table.h"

#include <QByteArray>
#include <QString>

namespace jet::sqlite {

/// Collation and fold function of this version. Both stand in the indices of files; whoever changes what they
/// do counts the version up, and files rebuild their indices when they are next opened.
const QByteArray& collationName();
inline constexpr char FoldFunction[] = "jet_fold_1";

/// How statements call an open file: 0 is the connection's own, others were attached under their number.
QByteArray schemaName(int file);

/// A table with the file that it lies in.
QByteArray placed(const bind::Table& table);

/// A name between double quotes, as SQLite's SQL wants it.
QByteArray quoted(const QString& name);

/// The name of an index in SQLite, where indices of all tables share one name space.
QString indexName(const QString& table, const QString& index);

} // namespace jet::sqlite
