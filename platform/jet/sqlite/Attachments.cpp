#include "platform/jet/sqlite/Attachments.h"

#include "platform/jet/ConnectText.h"
#include "platform/jet/Errors.h"

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace jet::sqlite {

namespace {

QByteArray nameOf(std::size_t file)
{
    return "file" + QByteArray::number(file);
}

} // namespace

Attachments::~Attachments()
{
    for (std::size_t i = 0; i < m_files.size(); ++i)
        sqlite3_exec(m_connection.handle(), ("DETACH " + nameOf(i)).constData(), nullptr, nullptr, nullptr);
}

QByteArray Attachments::attach(const QString& path, const QString& connect)
{
    const auto file = m_open(path, connect);
    const auto identity = sys::identify(file->path()).value_or(sys::FileIdentity());
    if (sys::identify(m_connection.path()).value_or(sys::FileIdentity()).sameFile(identity)) return "main";
    for (std::size_t i = 0; i < m_files.size(); ++i) // a file attached twice would lock itself out
        if (m_files[i].sameFile(identity)) return nameOf(i);
    // SQLite could not let go of the file again before the transaction ends.
    if (m_connection.inTransaction())
        throw Error(ErrorNumber::NotSupported,
                    u"Auf andere Dateien kann in einer Transaktion nicht zugegriffen werden."_s);
    QByteArray name = nameOf(m_files.size());
    Statement statement(m_connection, "ATTACH ? AS " + name);
    Statement::Run run(statement);
    run.bindText(0, file->path().toUtf8());
    run.step();
    m_files.push_back(identity);
    m_connection.execute("PRAGMA " + name + ".synchronous=EXTRA");
    return name;
}

bind::TablePtr Attachments::attach(const Link& link)
{
    auto table = std::make_shared<bind::Table>();
    table->schema = attach(readConnect(link.connect).database, link.connect);
    table->name = Catalogue::storedName(m_connection, table->schema, link.sourceTable);
    if (table->name.isEmpty()) raise(ErrorNumber::ObjectNotFound, {link.sourceTable});
    table->columns = Catalogue::readColumns(m_connection, table->schema, table->name);
    return table;
}

} // namespace jet::sqlite
