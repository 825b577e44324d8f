#pragma once

#include "platform/jet/sql/Tree.h"
#include "platform/jet/sqlite/Catalogue.h"

#include <QByteArray>

namespace jet::sqlite {

/// Definitions in SQLite's SQL, checked against what the file already holds.
/// \throws Error TableExists, ColumnExists, IndexExists, NoSuchTable, ObjectNotFound, InvalidName.
QByteArray writeDefinition(const sql::CreateTable& create, const Catalogue& catalogue);
QByteArray writeDefinition(const sql::AddColumn& add, const Catalogue& catalogue);
QByteArray writeDefinition(const sql::CreateIndex& create, const Catalogue& catalogue);
QByteArray writeDefinition(const sql::DropIndex& drop, const Catalogue& catalogue);
QByteArray writeDropTable(const sql::DropTable& drop, const Catalogue& catalogue);

/// CREATE TABLE in one of the open files, of which nothing is checked but the names.
QByteArray writeCreateTable(const sql::CreateTable& create, const QByteArray& schema);

} // namespace jet::sqlite
