#pragma once

#include "platform/system/FileIdentity.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace sys {

/// A small file that is read again and again. It stays open from one reading to the next, since opening costs
/// more than reading does, and is not read while it cannot have changed.
class KeptFile {
public:
    KeptFile() = default;
    ~KeptFile();
    Q_DISABLE_COPY_MOVE(KeptFile)

    /// All that the file of this path holds at this moment; no value when it is missing. When another file
    /// has taken the path over, it is the other one that is read. `path` in the local form. \throws FileError
    /// when the file is there and cannot be read, or its directory cannot be entered.
    std::optional<QByteArray> bytes(const QString& path);

private:
    QByteArray read(const QString& path, const FileIdentity& now);
    bool open(const QString& path); ///< False: there is no such file.
    void close();

    int m_file = -1;
    FileIdentity m_identity;  // of the open file; while it is open no other file can have its number
    QByteArray m_bytes;       // as it was then
    bool m_isSettled = false; // then: a later change has a later time
};

} // namespace sys
