#include "platform/jet/Engine.h"

#include <QFile>
#include <QTemporaryDir>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

/// Does something that is only done or refused. A refusal must name a fault of the statement, not one of its
/// translation.
template <typename Work>
bool attempt(Work work)
{
    try {
        work();
        return true;
    } catch (const jet::Error& error) {
        if (error.number() == jet::ErrorNumber::ReservedError) std::abort();
        return false;
    }
}

/// A database file with the tables that the statement files of the tests ask most, the same at the begin of
/// each input.
class Prepared {
public:
    Prepared()
    {
        const QString customers = m_directory.filePath(u"Grundstamm.mdb"_s);
        jet::engine().setLockTimeout(0);
        jet::engine()
            .CreateDatabase(customers, {})
            ->Execute(u"CREATE TABLE Kunden (KurzKu Text(15), Name Text(50))"_s);
        const auto fresh = jet::engine().CreateDatabase(m_directory.filePath(u"vorlage"_s), {});
        for (
            const QString& statement :
            {u"CREATE TABLE J (ID Counter PRIMARY KEY, Artikel Text(20), Ort Text(10), Kunde Text(10), Menge "
             u"Double,"
             " Aktiv Boolean, Datum Date, Preis Currency, Notiz Memo)"_s,
             u"CREATE INDEX I ON J (Artikel, Ort, Datum, ID, Menge)"_s,
             u"CREATE TABLE Eins (N Long, Leer Double, T Text(20), D Date, B Byte, S Single)"_s,
             u"INSERT INTO J (Datum, Artikel, Ort, Menge) VALUES (#03/05/2024#, 'Weizen', 'H1', 12.5)"_s,
             u"INSERT INTO J (Datum, Artikel, Menge, Notiz) VALUES (#03/06/2024 13:00:00#, 'Dünger ß',"
             u" -3, 'x')"_s,
             u"INSERT INTO J (Artikel, Aktiv) VALUES ('weizen ', True)"_s,
             u"INSERT INTO Eins (N, T, D, B) VALUES (1, 'Weizen', #12/31/2024#, 255)"_s})
            fresh->Execute(statement);
        fresh->CreateTableDef(u"Kunden"_s, u"MS Access;DATABASE="_s + customers, u"Kunden"_s);
        fresh->Close();
        restore();
    }

    /// Puts the file back as it was.
    void restore()
    {
        const QString file = m_directory.filePath(u"Lager.2024"_s);
        if (database) database->Close();
        jet::engine().release();
        QFile::remove(file);
        QFile::copy(m_directory.filePath(u"vorlage"_s), file);
        database = jet::engine().OpenDatabase(file);
        dynaset = database->OpenRecordset(u"SELECT Menge * 2 AS Doppelt, * FROM J ORDER BY Datum"_s);
        snapshot = database->OpenRecordset(u"SELECT DISTINCT Artikel AS Name, 'x' AS Ort FROM J"_s);
    }

    std::unique_ptr<jet::Database> database;
    std::unique_ptr<jet::Recordset> dynaset;
    std::unique_ptr<jet::Recordset> snapshot;

private:
    QTemporaryDir m_directory;
};

void readAll(jet::Recordset& rows)
{
    for (; !rows.Eof(); rows.MoveNext())
        for (qsizetype column = 0; column < std::ssize(rows.Fields()); ++column)
            rows[column].toText();
}

} // namespace

// Any text is a criterion and a statement: a row, rows or a refusal, nothing else may come out.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static Prepared prepared;
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    attempt([&] { prepared.dynaset->FindFirst(text); });
    attempt([&] { prepared.snapshot->FindFirst(text); });
    attempt([&] { readAll(*prepared.database->OpenRecordset(text)); });
    if (attempt([&] { prepared.database->Execute(text); })) prepared.restore();
    return 0;
}
