#include "tests/fuzz/Prepared.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

void find(jet::Recordset& rows, const QString& criterion)
{
    try {
        rows.FindFirst(criterion);
        if (!rows.NoMatch()) rows[0].toText();
    } catch (const jet::Error& error) {                                      // the only way out but a row
        if (error.number() == jet::ErrorNumber::ReservedError) std::abort(); // a fault of the translation
    }
}

} // namespace

// Any text is a criterion, found or not, or a refusal.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static Prepared prepared;
    static const auto dynaset =
        prepared.database().OpenRecordset(u"SELECT Menge * 2 AS Doppelt, * FROM LAGERJOURNAL ORDER BY DATUM"_s);
    static const auto snapshot = prepared.database().OpenRecordset(
        u"SELECT DISTINCT Artikel AS NAME, 'x' AS Ort FROM LAGERJOURNAL"_s, jet::Kind::Snapshot);
    const QString criterion = QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    find(*dynaset, criterion);
    find(*snapshot, criterion);
    return 0;
}
