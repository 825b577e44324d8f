#pragma once

#include <QString>
#include <QTemporaryDir>

/// The family's component that names the directory in which databases for printing are built. It belongs to one open
/// screen and goes with it, so that closing one program's screen never deletes what another one is printing.
class WorkingDirectory {
public:
    QString path() const { return m_directory.path(); }

private:
    QTemporaryDir m_directory;
};
