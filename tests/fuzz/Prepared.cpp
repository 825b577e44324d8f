#include "tests/fuzz/Prepared.h"

#include <QFile>

using namespace Qt::StringLiterals;

Prepared::Prepared()
{
    const QString kunden = m_directory.filePath(u"Grundstamm.mdb"_s);
    jet::engine().setLockTimeout(0);
    jet::engine().CreateDatabase(kunden, {})->Execute(u"CREATE TABLE HANDLER (KurzKu Text(15), NAME Text(50))"_s);
    const auto fresh = jet::engine().CreateDatabase(m_directory.filePath(u"vorlage"_s), {});
    for (
        const QString& statement :
        {u"CREATE TABLE LAGERJOURNAL (ID Counter PRIMARY KEY, Datum Date, Artikel Text(50), Artikelart Text(25), "
         "LagerortKurzKu Text(15), Menge Double, Preis Currency, Einheit Text(5), Fertig Boolean, Notiz Memo)"_s,
         u"CREATE INDEX I ON LAGERJOURNAL (Artikel, LagerortKurzKu, Datum, ID, Menge)"_s,
         u"CREATE TABLE J (A Long, B Text(3), C Single, D Byte)"_s,
         u"INSERT INTO LAGERJOURNAL (Datum, Artikel, LagerortKurzKu, Menge) VALUES (#03/05/2024#, 'Weizen', 'H1', 12.5)"_s,
         u"INSERT INTO LAGERJOURNAL (Datum, Artikel, Menge, Notiz) VALUES (#03/06/2024 13:00:00#, 'Dünger ß', -3, 'x')"_s,
         u"INSERT INTO LAGERJOURNAL (Artikel, Fertig) VALUES ('weizen ', True)"_s,
         u"INSERT INTO J VALUES (1, 'a', 0.5, 255)"_s, u"INSERT INTO J (B) VALUES ('')"_s}) {
        fresh->Execute(statement);
    }
    fresh->CreateTableDef(u"HANDLER"_s, u"MS Access;DATABASE="_s + kunden, u"HANDLER"_s);
    fresh->Close();
    restore();
}

void Prepared::restore()
{
    const QString file = m_directory.filePath(u"Lager.2024"_s);
    if (m_database) m_database->Close();
    jet::engine().release();
    QFile::remove(file);
    QFile::copy(m_directory.filePath(u"vorlage"_s), file);
    m_database = jet::engine().OpenDatabase(file);
}

void readAll(jet::Recordset& rows)
{
    for (; !rows.Eof(); rows.MoveNext()) {
        for (qsizetype column = 0; column < std::ssize(rows.Fields()); ++column)
            rows[column].toText();
    }
}
