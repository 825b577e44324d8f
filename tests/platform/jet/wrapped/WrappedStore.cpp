#include "tests/platform/jet/wrapped/WrappedStore.h"

#include "platform/jet/Errors.h"
#include "platform/jet/sqlite/Files.h"

#include <algorithm>

using namespace jet::store;
using Inner = std::unique_ptr<Connection>;

namespace {

int g_callsLeft = 0;
bool g_failed = false;

/// Comes before each call that a disk could spoil.
template <typename T>
T& tried(const std::unique_ptr<T>& inner)
{
    if (g_callsLeft > 0 && --g_callsLeft == 0) {
        g_failed = true;
        jet::raiseOfFile(jet::ErrorNumber::DiskError, QStringLiteral("Platte"));
    }
    return *inner;
}

Key twisted(Key key)
{
    return Key(~(key.bits() * 8 + 5)); // the other way round, with gaps
}

Key straight(Key key)
{
    return Key((~key.bits() - 5) / 8);
}

Keys straight(Keys keys)
{
    std::ranges::transform(keys, keys.begin(), [](Key key) { return straight(key); });
    return keys;
}

Keys twisted(Keys keys)
{
    std::ranges::transform(keys, keys.begin(), [](Key key) { return twisted(key); });
    return keys;
}

struct WrappedCursor : Cursor {
    explicit WrappedCursor(std::unique_ptr<Cursor> rows) : inner(std::move(rows)) {}
    bool next() override { return tried(inner).next(); }
    jet::Value value(int column, jet::Type type) const override { return inner->value(column, type); }
    std::unique_ptr<Cursor> inner;
};

std::unique_ptr<Cursor> wrapped(std::unique_ptr<Cursor> rows)
{
    return std::make_unique<WrappedCursor>(std::move(rows));
}

struct WrappedFilter : Filter {
    explicit WrappedFilter(std::unique_ptr<Filter> filter) : inner(std::move(filter)) {}
    Keys keys(const Parameters& p) override { return twisted(tried(inner).keys(p)); }
    Keys keysAmong(const Parameters& p, const Keys& keys) override
    {
        return twisted(tried(inner).keysAmong(p, straight(keys)));
    }
    std::unique_ptr<Filter> inner;
};

struct WrappedQuery : Query {
    explicit WrappedQuery(std::unique_ptr<Query> query) : inner(std::move(query)) {}
    std::unique_ptr<Cursor> rows(const Parameters& p) override { return wrapped(tried(inner).rows(p)); }
    Keys keys(const Parameters& p) override { return twisted(tried(inner).keys(p)); }
    std::unique_ptr<Cursor> row(const Parameters& p, Key key) override
    {
        return wrapped(tried(inner).row(p, straight(key)));
    }
    std::unique_ptr<Filter> filter(const jet::sql::Expression& criterion, int parameters) override
    {
        return std::make_unique<WrappedFilter>(inner->filter(criterion, parameters));
    }
    std::unique_ptr<Query> inner;
};

struct WrappedAction : Action {
    explicit WrappedAction(std::unique_ptr<Action> action) : inner(std::move(action)) {}
    qint64 run(const Parameters& parameters) override { return tried(inner).run(parameters); }
    std::unique_ptr<Action> inner;
};

struct WrappedConnection : Connection {
    explicit WrappedConnection(Inner connection) : inner(std::move(connection)) {}

    QString path() const override { return inner->path(); }
    bool isWritable() const override { return inner->isWritable(); }
    void setLockTimeout(int milliseconds) override { inner->setLockTimeout(milliseconds); }

    QStringList tables(int file) override { return tried(inner).tables(file); }
    jet::bind::TablePtr table(const QString& name, int file) override
    {
        return tried(inner).table(name, file);
    }
    bool hasIndex(const QString& table, const QString& index) override
    {
        return tried(inner).hasIndex(table, index);
    }
    bool isReserved(const QString& name) const override { return inner->isReserved(name); }
    std::vector<Note> notes(const QString& kind) override { return tried(inner).notes(kind); }
    void addNote(const Note& note) override { tried(inner).addNote(note); }
    void removeNote(const QString& kind, const QString& name) override
    {
        tried(inner).removeNote(kind, name);
    }
    void define(const jet::bind::BoundDefinition& what, int file) override
    {
        tried(inner).define(what, file);
    }

    std::unique_ptr<Query> query(const jet::bind::BoundSelect& select, int parameters) override
    {
        return std::make_unique<WrappedQuery>(inner->query(select, parameters));
    }
    std::unique_ptr<Action> action(const jet::bind::BoundInsert& bound) override
    {
        return wrappedAction(bound);
    }
    std::unique_ptr<Action> action(const jet::bind::BoundUpdate& bound) override
    {
        return wrappedAction(bound);
    }
    std::unique_ptr<Action> action(const jet::bind::BoundDelete& bound) override
    {
        return wrappedAction(bound);
    }
    std::unique_ptr<Test> test(const jet::sql::Expression& criterion, int parameters) override
    {
        return inner->test(criterion, parameters);
    }

    Key insert(const jet::bind::Table& table, const std::vector<Cell>& cells) override
    {
        return twisted(tried(inner).insert(table, cells));
    }
    void change(const jet::bind::Table& table, Key key, const std::vector<Cell>& cells) override
    {
        tried(inner).change(table, straight(key), cells);
    }
    bool remove(const jet::bind::Table& table, Key key) override
    {
        return tried(inner).remove(table, straight(key));
    }

    void begin(Lock lock) override { tried(inner).begin(lock); }
    void commit() override { tried(inner).commit(); }
    void rollback() override { inner->rollback(); }
    void beginPart() override { tried(inner).beginPart(); }
    void keepPart() override { tried(inner).keepPart(); }
    void takeBackPart() override { inner->takeBackPart(); }
    bool inTransaction() const override { return inner->inTransaction(); }
    bool isWriting() const override { return inner->isWriting(); }

    bool attach(Connection&, int) override { return false; }
    void detach(int file) override { inner->detach(file); }
    jet::bind::TablePtr lend(const jet::bind::Table& like, int file) override
    {
        return tried(inner).lend(like, file);
    }

    void onFirstRow(std::function<void()> told) override { inner->onFirstRow(std::move(told)); }
    QStringList faults() override { return tried(inner).faults(); }
    qint64 writes() const override { return inner->writes(); }
    std::array<qint64, 3> changeCounters() override { return tried(inner).changeCounters(); }
    bool tablesChanged() override { return tried(inner).tablesChanged(); }
    bool tablesMayHaveChanged() override { return inner->tablesMayHaveChanged(); }
    void forget() override { inner->forget(); }

    template <typename Bound>
    std::unique_ptr<Action> wrappedAction(const Bound& bound)
    {
        return std::make_unique<WrappedAction>(inner->action(bound));
    }

    Inner inner;
};

} // namespace

WrappedStore::WrappedStore() : m_inner(std::make_unique<jet::sqlite::Files>()) {}

Inner WrappedStore::open(const QString& path, int lockTimeout)
{
    return std::make_unique<WrappedConnection>(tried(m_inner).open(path, lockTimeout));
}

Inner WrappedStore::create(const QString& path, int lockTimeout)
{
    return std::make_unique<WrappedConnection>(tried(m_inner).create(path, lockTimeout));
}

void WrappedStore::settle(const QString& path, int lockTimeout)
{
    m_inner->settle(path, lockTimeout);
}

void WrappedStore::copyUnopened(const QString& from, const QString& into)
{
    tried(m_inner).copyUnopened(from, into);
}

void WrappedStore::remove(const QString& path)
{
    m_inner->remove(path);
}

void WrappedStore::copy(const QString& from, const QString& into, int lockTimeout, const Progress& progress)
{
    tried(m_inner).copy(from, into, lockTimeout, progress);
}

void WrappedStore::failAt(int call)
{
    g_callsLeft = call;
    g_failed = false;
}

bool WrappedStore::hasFailed()
{
    return g_failed;
}
