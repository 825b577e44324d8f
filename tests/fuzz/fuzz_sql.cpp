#include "tests/fuzz/Prepared.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

/// A refusal must name a fault of the statement, not one of its translation.
void judge(const jet::Error& error)
{
    if (error.number() == jet::ErrorNumber::ReservedError) std::abort();
}

bool execute(jet::Database& database, const QString& sql)
{
    try {
        database.Execute(sql);
        return true;
    } catch (const jet::Error& error) { // the only way out but rows
        judge(error);
        return false;
    }
}

void select(jet::Database& database, const QString& sql)
{
    try {
        readAll(*database.OpenRecordset(sql));
    } catch (const jet::Error& error) {
        judge(error);
    }
}

} // namespace

// Any text is a statement, rows or a refusal: nothing else may come out.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static Prepared prepared;
    const QString sql = QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    select(prepared.database(), sql);
    if (execute(prepared.database(), sql)) prepared.restore();
    return 0;
}
