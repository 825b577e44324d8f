#pragma once

#include "platform/jet/store/Connection.h"

namespace jet::store {

/// A write of several statements that is done as a whole: undone when it ends without commit(), also as a
/// part of a transaction that is open already.
class WriteScope {
public:
    explicit WriteScope(Connection& connection, Connection::Lock lock = Connection::Lock::AtOnce);
    ~WriteScope();
    Q_DISABLE_COPY_MOVE(WriteScope)
    void commit();

private:
    Connection& m_connection;
    bool m_nested;
    bool m_done = false;
};

/// Several reads under one lock, which sees to it that others write before or after all of them. Not for
/// long: they wait.
class ReadScope {
public:
    explicit ReadScope(Connection& connection);
    ~ReadScope();
    Q_DISABLE_COPY_MOVE(ReadScope)

private:
    Connection& m_connection;
    bool m_nested;
};

} // namespace jet::store
