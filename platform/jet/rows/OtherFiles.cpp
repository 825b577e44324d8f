#include "platform/jet/rows/OtherFiles.h"

#include "platform/jet/Conversion.h"
#include "platform/jet/Errors.h"
#include "platform/jet/bind/SelectBinder.h"
#include "platform/jet/store/ConnectText.h"

using namespace Qt::StringLiterals;

namespace jet {

namespace {

sys::FileIdentity identityOf(const OpenFile& file)
{
    return sys::identify(file.path()).value_or(sys::FileIdentity());
}

/// SELECT * FROM table
bind::BoundSelect allRows(const bind::Table& table)
{
    sql::Select select;
    select.items.emplace_back();
    select.from.push_back({table.name, table.name, false, nullptr, 0});
    return bind::bindSelect(std::move(select),
                            [&](const QString&) { return std::make_shared<bind::Table>(table); });
}

} // namespace

OtherFiles::~OtherFiles()
{
    try {
        for (const Attached& file : m_files)
            m_own.connection().detach(file.number);
    } catch (const Error&) {
        return; // what a statement met is told, not what its end does
    }
}

OtherFiles::Target OtherFiles::target(const QString& path, const QString& connect)
{
    auto file = m_open(path, connect);
    const auto number = attach(*file);
    return {std::move(file), number};
}

bind::TablePtr OtherFiles::table(const store::Link& link)
{
    const auto file = m_open(readConnect(link.connect).database, link.connect);
    const auto number = attach(*file);
    const auto table = number ? findTable(m_own.connection(), link.sourceTable, *number)
                              : findTable(file->connection(), link.sourceTable);
    if (!table) raise(ErrorNumber::ObjectNotFound, {link.sourceTable});
    return number ? table : lend(*file, *table);
}

std::optional<int> OtherFiles::attach(OpenFile& file)
{
    const auto identity = identityOf(file);
    if (identityOf(m_own).sameFile(identity)) return 0;
    for (const Attached& known : m_files) // a file attached twice would lock itself out
        if (known.identity.sameFile(identity)) return known.number;
    const int number = nextNumber();
    if (!m_own.connection().attach(file.connection(), number)) return {};
    m_files.push_back({identity, number});
    return number;
}

int OtherFiles::nextNumber()
{
    // A store could not let go of the file again before the transaction ends.
    if (m_own.connection().inTransaction())
        throw Error(ErrorNumber::NotSupported,
                    u"Auf andere Dateien kann in einer Transaktion nicht zugegriffen werden."_s);
    return static_cast<int>(m_files.size()) + 1;
}

bind::TablePtr OtherFiles::lend(OpenFile& file, const bind::Table& table)
{
    const int number = nextNumber();
    auto lent = m_own.connection().lend(table, number);
    m_files.push_back({{}, number});
    const auto all = allRows(table);
    const auto query = file.connection().query(all, 0);
    addRows(m_own.connection(), *lent, *query->rows({}), table.columns);
    return lent;
}

qint64 addRows(store::Connection& connection, const bind::Table& table, store::Cursor& rows,
               const std::vector<Field>& fields)
{
    qint64 count = 0;
    for (; rows.next(); ++count) {
        std::vector<store::Cell> cells;
        for (std::size_t i = 0; i < fields.size(); ++i)
            cells.push_back({static_cast<int>(i), convert(rows.value(static_cast<int>(i), fields[i].type),
                                                          table.columns[i].type)});
        connection.insert(table, cells);
    }
    return count;
}

} // namespace jet
