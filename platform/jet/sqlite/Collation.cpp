#include "platform/jet/sqlite/Collation.h"

#include "platform/jet/sqlite/Names.h"
#include "platform/jet/value/Collation.h"

#include <sqlite3.h>

namespace jet::sqlite {

namespace {

int compareForSqlite(void*, int leftSize, const void* left, int rightSize, const void* right)
{
    return compareTexts({static_cast<const char*>(left), static_cast<std::size_t>(leftSize)},
                        {static_cast<const char*>(right), static_cast<std::size_t>(rightSize)});
}

void registerAs(sqlite3* connection, const char* name)
{
    sqlite3_create_collation_v2(connection, name, SQLITE_UTF8, nullptr, compareForSqlite, nullptr);
}

void registerUnknown(void*, sqlite3* connection, int, const char* name)
{
    registerAs(connection, name);
}

} // namespace

void registerCollation(sqlite3* connection)
{
    registerAs(connection, collationName().constData());
    sqlite3_collation_needed(connection, nullptr, registerUnknown);
}

const QByteArray& collationName()
{
    static const QByteArray name = "de_2_" + collationVersion();
    return name;
}

} // namespace jet::sqlite
