#pragma once

#include "platform/jet/sqlite/Connection.h"
#include "platform/system/FileIdentity.h"

#include <QByteArray>
#include <QString>

#include <functional>
#include <memory>
#include <vector>

namespace jet::sqlite {

/// Opens another file by the engine's rules, so that a missing file or a wrong password is told as everywhere.
using OpenFile = std::function<std::shared_ptr<Connection>(const QString& path, const QString& connect)>;

/// Other files that a statement reads or writes, attached while this lives.
class Attachments {
public:
    Attachments(Connection& connection, OpenFile open) : m_connection(connection), m_open(std::move(open)) {}
    ~Attachments();
    Q_DISABLE_COPY_MOVE(Attachments)

    /// The name under which statements see the file. \throws Error FileNotFound, WrongPassword and whatever opening tells.
    QByteArray attach(const QString& path, const QString& connect);
    /// The linked table as statements see it. \throws Error also ObjectNotFound when the file has no such table.
    bind::TablePtr attach(const Link& link);
    bool isEmpty() const { return m_files.empty(); }

private:
    Connection& m_connection;
    OpenFile m_open;
    std::vector<sys::FileIdentity> m_files; ///< Attached as file0, file1, ...
};

} // namespace jet::sqlite
