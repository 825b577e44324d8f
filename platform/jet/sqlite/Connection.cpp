#include "platform/jet/sqlite/Connection.h"

#include "platform/jet/Errors.h"
#include "platform/jet/sqlite/Collation.h"
#include "platform/jet/sqlite/Functions.h"
#include "platform/jet/sqlite/Names.h"
#include "platform/jet/sqlite/SqliteError.h"

#include <QRegularExpression>
#include <QScopeGuard>

#include <sqlite3.h>

#include <string_view>
#include <utility>

using namespace Qt::StringLiterals;

namespace jet::sqlite {

namespace {

constexpr qsizetype MostStatements = 100;
constexpr qint64 OwnMark = 1514226252; // "ZABL": tells our files apart from databases of other programs

} // namespace

Connection::Connection(const QString& path, Mode mode, int lockTimeout)
    : m_path(path), m_statements(MostStatements)
{
    const int flags = SQLITE_OPEN_READWRITE | (mode == Mode::New ? SQLITE_OPEN_CREATE : 0) |
                      SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_PRIVATECACHE | SQLITE_OPEN_EXRESCODE;
    sqlite3* opened = nullptr;
    const int code = sqlite3_open_v2(path.toUtf8().constData(), &opened, flags, nullptr);
    m_handle.reset(opened);
    if (code != SQLITE_OK) raiseFailure(handle(), path);
    setLockTimeout(lockTimeout);
    registerCollation(handle());
    registerFunctions(handle());
    configure(mode);
}

Connection::~Connection() = default;

void Connection::Closer::operator()(sqlite3* handle) const
{
    sqlite3_close_v2(handle); // the statements go after it where a constructor failed
}

void Connection::configure(Mode mode)
{
    sqlite3_db_config(handle(), SQLITE_DBCONFIG_DQS_DML, 0, nullptr); // "x" is a name, never a text
    sqlite3_db_config(handle(), SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    sqlite3_db_config(handle(), SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    // EXTRA also syncs the directory after the rollback journal is gone: only then does a booking survive a
    // power cut right after its commit.
    execute("PRAGMA synchronous=EXTRA");
    useLittleMemory();
    execute("PRAGMA temp_store=MEMORY");
    // An index that SQLite makes for one join comes with a filter that takes texts of unequal bytes for
    // unequal.
    execute("PRAGMA automatic_index=OFF");
    if (mode == Mode::New) return execute("PRAGMA application_id=" + QByteArray::number(OwnMark));
    if (numberOf("PRAGMA application_id") != OwnMark) raiseOfFile(ErrorNumber::UnknownFormat, m_path);
    m_schemaVersion = schemaVersion();
    rebuildIndices();
}

void Connection::useLittleMemory()
{
    execute("PRAGMA cache_size=-16384");
}

bool Connection::isWritable() const
{
    return sqlite3_db_readonly(handle(), "main") == 0;
}

void Connection::setLockTimeout(int milliseconds)
{
    sqlite3_busy_timeout(handle(), milliseconds);
}

Statement& Connection::prepared(const QByteArray& sql)
{
    if (auto* known = m_statements.object(sql)) return *known;
    m_statements.insert(sql, new Statement(*this, sql));
    return *m_statements.object(sql);
}

void Connection::execute(const QByteArray& sql)
{
    if (sqlite3_exec(handle(), sql.constData(), nullptr, nullptr, nullptr) != SQLITE_OK)
        raiseFailure(handle(), m_path);
}

void Connection::rewriteSchema(const QByteArray& sql)
{
    const auto guarded = [this](int on) {
        sqlite3_db_config(handle(), SQLITE_DBCONFIG_DEFENSIVE, on, nullptr);
    };
    guarded(0);
    const auto guard = qScopeGuard([&] {
        sqlite3_exec(handle(), "PRAGMA writable_schema=OFF", nullptr, nullptr, nullptr);
        guarded(1);
    });
    execute("PRAGMA writable_schema=ON");
    execute(sql);
    if (changes() == 0) raise(ErrorNumber::NotSupported); // a table that another program made
    // Others, and this connection too, read the tables anew when the number has changed.
    execute("PRAGMA schema_version=" + QByteArray::number(schemaVersion() + 1));
    execute("PRAGMA writable_schema=RESET");
}

bool Connection::schemaChanged()
{
    const qint64 before = std::exchange(m_schemaVersion, schemaVersion());
    return before != m_schemaVersion;
}

qint64 Connection::schemaVersion()
{
    return numberOf("PRAGMA schema_version");
}

qint64 Connection::numberOf(const QByteArray& sql)
{
    Statement statement(*this, sql);
    Statement::Run run(statement);
    return run.step() ? run.whole(0) : 0;
}

void Connection::onFirstRow(std::function<void()> told)
{
    m_onFirstRow = std::move(told);
    const auto changed = [](void* self, int, const char* file, const char*, sqlite3_int64) {
        auto& connection = *static_cast<Connection*>(self);
        const bool own = std::string_view(file) == "main"; // and not an attached one
        if (own && !std::exchange(connection.m_changesRows, true)) connection.m_onFirstRow();
    };
    sqlite3_update_hook(handle(), changed, this);
    sqlite3_commit_hook(
        handle(), [](void* self) { return static_cast<Connection*>(self)->m_changesRows = false, 0; }, this);
    sqlite3_rollback_hook(
        handle(), [](void* self) { static_cast<Connection*>(self)->m_changesRows = false; }, this);
}

void Connection::takeFrom(Connection& other, const std::function<void(double)>& progress)
{
    constexpr int PagesAtOnce = 2048;
    other.execute("BEGIN"); // nobody commits into it in between
    const auto end =
        qScopeGuard([&] { sqlite3_exec(other.handle(), "ROLLBACK", nullptr, nullptr, nullptr); });
    other.schemaVersion(); // the lock comes with the first question
    sqlite3_backup* const pages = sqlite3_backup_init(handle(), "main", other.handle(), "main");
    if (!pages) raiseFailure(handle(), m_path);
    while (sqlite3_backup_step(pages, PagesAtOnce) == SQLITE_OK)
        if (progress) progress(1 - double(sqlite3_backup_remaining(pages)) / sqlite3_backup_pagecount(pages));
    if (sqlite3_backup_finish(pages) != SQLITE_OK) raiseFailure(handle(), m_path);
}

bool Connection::inTransaction() const
{
    return sqlite3_get_autocommit(handle()) == 0;
}

bool Connection::isWriting() const
{
    return sqlite3_txn_state(handle(), nullptr) == SQLITE_TXN_WRITE;
}

qint64 Connection::changes() const
{
    return sqlite3_changes64(handle());
}

qint64 Connection::writes() const
{
    return sqlite3_total_changes64(handle());
}

std::array<qint64, 3> Connection::changeCounters()
{
    return {numberOf("PRAGMA data_version"), writes(), schemaVersion()};
}

qint64 Connection::lastRow() const
{
    return sqlite3_last_insert_rowid(handle());
}

/// Indices whose collation or fold function is of another version are made anew. A file that cannot be
/// written keeps them: no statement uses them then, since it names the present collation.
void Connection::rebuildIndices()
{
    if (!isWritable()) return;
    static const QRegularExpression collation(u"COLLATE de_\\d+_[0-9a-f]+"_s);
    static const QRegularExpression fold(u"jet_fold_\\d+\\("_s);
    std::vector<std::pair<QByteArray, QByteArray>> outdated; // name, statement for today
    {
        Statement statement(*this,
                            "SELECT name,sql FROM sqlite_master WHERE type='index' AND sql IS NOT NULL");
        Statement::Run run(statement);
        while (run.step()) {
            const QString sql = QString::fromUtf8(run.text(1));
            QString today = sql;
            today.replace(collation, u"COLLATE "_s + QString::fromLatin1(collationName()));
            today.replace(fold, QString::fromLatin1(FoldFunction) + u'(');
            if (today != sql) outdated.emplace_back(run.text(0), today.toUtf8());
        }
    }
    if (outdated.empty()) return;
    execute("BEGIN IMMEDIATE");
    auto undo = qScopeGuard([this] { sqlite3_exec(handle(), "ROLLBACK", nullptr, nullptr, nullptr); });
    for (const auto& [name, sql] : outdated) {
        execute("DROP INDEX " + quoted(QString::fromUtf8(name)));
        execute(sql);
    }
    execute("COMMIT");
    undo.dismiss();
    m_schemaVersion = schemaVersion();
}

} // namespace jet::sqlite
