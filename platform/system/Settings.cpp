#include "platform/system/Settings.h"

#include "platform/system/FileFault.h"
#include "platform/system/Files.h"
#include "platform/system/Surroundings.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QStandardPaths>

#include <chrono>

namespace sys {

using namespace Qt::StringLiterals;

namespace {

constexpr std::chrono::milliseconds LockPatience{
    5000}; // a writer holds the lock for the time of one small write

/// Looked up at every call: a host may set the variable that names the configuration home after it loaded us.
QString settingsPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           u"/ZAB - Programme.ini"_s;
}

void lock(QLockFile& lockFile, const QString& path)
{
    if (lockFile.tryLock(LockPatience)) return;
    switch (lockFile.error()) {
    case QLockFile::UnknownError: throw fileFault(FileErrorNumber::DiskFull, path); // Qt's word for it
    case QLockFile::PermissionError: throw fileFault(FileErrorNumber::PathAccess, path);
    case QLockFile::LockFailedError:
    case QLockFile::NoError: break;
    }
    throw fileFault(FileErrorNumber::AccessDenied, path);
}

} // namespace

QString GetSetting(const QString& section, const QString& key, const QString& preset)
{
    const QByteArray bytes = surroundings().settingsBytes.bytes(settingsPath()).value_or(QByteArray());
    return surroundings().settings.value(bytes, section, key).value_or(preset);
}

void SaveSetting(const QString& section, const QString& key, const QString& value)
{
    const QString path = settingsPath();
    if (!QDir().mkpath(QFileInfo(path).path())) throw fileFault(FileErrorNumber::PathAccess, path);
    QLockFile lockFile(path + u".lock"_s); // two programs that write at once lose neither value
    lock(lockFile, path);

    QString line = value;
    line.replace(u"\r\n"_s, u" "_s).replace(u'\r', u' ').replace(u'\n', u' ');
    const auto before = surroundings().settingsBytes.bytes(path);
    const QByteArray after = SettingsFile::withValue(before.value_or(QByteArray()), section, key, line);
    if (after != before) writeWhole(path, after);
}

} // namespace sys
