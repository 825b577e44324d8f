#pragma once

#include "platform/jet/Engine.h"

#include <QTemporaryDir>

#include <memory>

/// A database file with a few tables, links and rows, the same at the begin of each input.
class Prepared {
public:
    Prepared();
    jet::Database& database() { return *m_database; }
    void restore(); ///< Puts the file back as it was.

private:
    QTemporaryDir m_directory;
    std::unique_ptr<jet::Database> m_database;
};

/// All rows and columns of a recordset. \throws Error like the recordset itself.
void readAll(jet::Recordset& rows);
