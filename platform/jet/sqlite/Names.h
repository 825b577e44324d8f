#pragma once

#include <QByteArray>
#include <QString>

namespace jet::sqlite {

/// Collation and fold function of this version. Both stand in the indices of files; whoever changes what they do counts
/// the version up, and files rebuild their indices when they are next opened.
const QByteArray& collationName();
inline constexpr char FoldFunction[] = "jet_fold_1";

/// The table that holds a file's password and links; statements do not see it.
inline constexpr char CatalogueTable[] = "MSysZablager";

/// A name between double quotes, as SQLite's SQL wants it.
QByteArray quoted(const QString& name);

/// The name of an index in SQLite, where indices of all tables share one name space.
QString indexName(const QString& table, const QString& index);

} // namespace jet::sqlite
