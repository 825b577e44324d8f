#include "platform/jet/Transaction.h"

#include "platform/jet/Errors.h"
#include "platform/jet/store/Scopes.h"
#include "platform/jet/store/Session.h"

#include <QScopeGuard>

namespace jet {

Transaction::Transaction(Database& database, std::function<void()> takenBack)
    : m_database(database), m_takenBack(std::move(takenBack))
{
    m_database.m_session->use().announceChange();
    m_database.BeginTrans();
}

Transaction::~Transaction()
{
    if (m_ended) return;
    try {
        commit();
    } catch (const Error&) {
        // The error that leaves the scope is the one to tell; what became of the rows is told by takenBack.
    }
}

void Transaction::commit()
{
    m_ended = true;
    const auto session = m_database.m_session;
    auto nothingKept = qScopeGuard([&] {
        session->undo();
        if (m_takenBack) m_takenBack();
    });
    if (!session->hasTransaction()) raiseOfFile(ErrorNumber::DiskError, session->path);
    m_database.CommitTrans();
    nothingKept.dismiss();
}

Reading::Reading(Database& database)
    : m_file((database.m_session->use(), database.m_session->file)),
      m_scope(std::make_unique<store::ReadScope>(m_file->connection()))
{}

Reading::~Reading() = default;

} // namespace jet
