#pragma once

#include "platform/jet/sqlite/Connection.h"
#include "platform/jet/store/Connection.h"

namespace jet::sqlite {

/// A SQLite file as the engine sees it.
class File : public store::Connection {
public:
    File(const QString& path, sqlite::Connection::Mode mode, int lockTimeout);

    QString path() const override { return m_connection.path(); }
    bool isWritable() const override { return m_connection.isWritable(); }
    void setLockTimeout(int milliseconds) override { m_connection.setLockTimeout(milliseconds); }

    QStringList tables(int file) override;
    bind::TablePtr table(const QString& name, int file) override;
    bool hasIndex(const QString& table, const QString& index) override;
    bool isReserved(const QString& name) const override;
    std::vector<store::Note> notes(const QString& kind) override;
    void addNote(const store::Note& note) override;
    void removeNote(const QString& kind, const QString& name) override;

    void define(const bind::BoundDefinition& definition, int file) override;
    std::unique_ptr<store::Query> query(const bind::BoundSelect& select, int parameters) override;
    std::unique_ptr<store::Action> action(const bind::BoundInsert& insert) override;
    std::unique_ptr<store::Action> action(const bind::BoundUpdate& update) override;
    std::unique_ptr<store::Action> action(const bind::BoundDelete& statement) override;
    std::unique_ptr<store::Test> test(const sql::Expression& criterion, int parameters) override;

    store::Key insert(const bind::Table& table, const std::vector<store::Cell>& cells) override;
    void change(const bind::Table& table, store::Key key, const std::vector<store::Cell>& cells) override;
    bool remove(const bind::Table& table, store::Key key) override;

    void begin(Lock lock) override;
    void commit() override { m_connection.execute("COMMIT"); }
    void rollback() override { m_connection.execute("ROLLBACK"); }
    void beginPart() override { m_connection.execute("SAVEPOINT jet"); }
    void keepPart() override { m_connection.execute("RELEASE jet"); }
    void takeBackPart() override { m_connection.execute("ROLLBACK TO jet;RELEASE jet"); }
    bool inTransaction() const override { return m_connection.inTransaction(); }
    bool isWriting() const override { return m_connection.isWriting(); }

    bool attach(store::Connection& other, int file) override;
    void detach(int file) override;
    bind::TablePtr lend(const bind::Table& like, int file) override;

    void onFirstRow(std::function<void()> told) override { m_connection.onFirstRow(std::move(told)); }
    QStringList faults() override;
    qint64 writes() const override { return m_connection.writes(); }
    std::array<qint64, 3> changeCounters() override { return m_connection.changeCounters(); }
    bool tablesChanged() override { return m_connection.schemaChanged(); }
    bool tablesMayHaveChanged() override { return m_connection.takeReprepared(); }
    void forget() override { m_connection.forget(); }

private:
    void attach(const QString& path, int file);
    Statement::Run write(const QByteArray& text, const std::vector<store::Cell>& cells);

    sqlite::Connection m_connection;
};

} // namespace jet::sqlite
