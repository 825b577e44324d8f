#include "platform/jet/store/Scopes.h"

#include <zablager/DatabaseError.h>

namespace jet::store {

namespace {

/// What is undone on the way out of a scope: the error that leaves it is the one to tell.
template <typename Undo>
void quietly(Undo undo)
{
    try {
        undo();
    } catch (const Error&) {
        return;
    }
}

} // namespace

WriteScope::WriteScope(Connection& connection, Connection::Lock lock)
    : m_connection(connection), m_nested(connection.inTransaction())
{
    m_nested ? connection.beginPart() : connection.begin(lock);
}

WriteScope::~WriteScope()
{
    if (m_done || !m_connection.inTransaction()) return; // a fault of the disk undoes by itself
    quietly([this] { m_nested ? m_connection.takeBackPart() : m_connection.rollback(); });
}

void WriteScope::commit()
{
    m_nested ? m_connection.keepPart() : m_connection.commit();
    m_done = true;
}

ReadScope::ReadScope(Connection& connection) : m_connection(connection), m_nested(connection.inTransaction())
{
    if (!m_nested) connection.begin(Connection::Lock::WhenWriting);
}

ReadScope::~ReadScope()
{
    if (m_nested || !m_connection.inTransaction()) return;
    quietly([this] { m_connection.rollback(); });
}

} // namespace jet::store
