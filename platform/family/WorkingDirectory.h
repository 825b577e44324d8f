#pragma once

#include "platform/system/FileFault.h"

#include <QDir>
#include <QString>
#include <QTemporaryDir>

/// The family's component that names the directory in which databases for printing are built. It belongs to
/// one open screen and goes with it, so that closing one program's screen never deletes what another one is
/// printing.
class WorkingDirectory {
public:
    /// \throws sys::FileError when no directory can be made below the user's temporary one.
    QString path() const
    {
        if (m_directory.isValid()) return m_directory.path();
        throw sys::fileFault(sys::FileErrorNumber::PathAccess, QDir::tempPath());
    }

private:
    QTemporaryDir m_directory{QDir::tempPath() +
                              QStringLiteral("/Lagerverwaltung-XXXXXX")}; // whatever the host is called
};
