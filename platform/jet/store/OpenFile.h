#pragma once

#include "platform/jet/store/Catalogue.h"

#include <QCache>
#include <QString>

#include <functional>
#include <memory>

namespace jet {

struct Plan;

/// A file that the engine has open: its store's connection, what it holds, and the plans of the statements
/// used last.
class OpenFile {
public:
    explicit OpenFile(std::unique_ptr<store::Connection> connection);
    ~OpenFile();
    Q_DISABLE_COPY_MOVE(OpenFile)

    store::Connection& connection() const { return *m_connection; }
    store::Catalogue& catalogue() { return m_catalogue; }
    const QString& path() const { return m_path; }

    /// By the key of a statement's shape. Shared: a recordset keeps its plan while newer ones push it out.
    std::shared_ptr<Plan> plan(const QString& key) const;
    void keepPlan(const QString& key, const std::shared_ptr<Plan>& plan);

    /// Calls a function before rows of the file change: at announceChange(), and at the first row of a
    /// commit.
    void tellChanges(std::function<void()> told);
    /// Rows are about to change; within a transaction its first row tells that.
    void announceChange() const
    {
        if (m_told && !m_connection->inTransaction()) m_told();
    }

    /// Forgets all that was read and prepared, after a change of the tables.
    void forget();
    /// Forgets it when another program has changed the tables since. \returns whether that is so.
    bool forgetIfChanged();
    /// The same, but only looked into where a statement has met changed tables: nearly free.
    bool forgetIfNoticed();

private:
    std::unique_ptr<store::Connection> m_connection;
    QString m_path; // every question asks for it
    store::Catalogue m_catalogue;
    QCache<QString, std::shared_ptr<Plan>> m_plans;
    std::function<void()> m_told;
};

/// Opens another file by the engine's rules, so that a missing file or a wrong password is told as
/// everywhere.
using OpenOther = std::function<std::shared_ptr<OpenFile>(const QString& path, const QString& connect)>;

} // namespace jet
