#pragma once

#include "tests/support/Child.h"
#include "tests/support/Print.h"

#include <zablager/FileError.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <csignal>

#include <sys/resource.h>

/// A directory of its own, and what happens in it to users who may not, or have no room.
class Folder {
public:
    QString path(const QString& name = {}) const ///< An absolute one stays.
    {
        return name.isEmpty() ? root.path() : QDir(root.path()).filePath(name);
    }

    void write(const QString& name, const QByteArray& bytes) const
    {
        QFile file(path(name));
        EXPECT_TRUE(QDir().mkpath(QFileInfo(file).path()) && file.open(QIODevice::WriteOnly)) << name.toStdString();
        file.write(bytes);
    }

    QByteArray read(const QString& name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no such file");
    }

    QString names(const QString& of = {}) const ///< All in a directory, hidden ones too.
    {
        return QDir(path(of)).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).join(u' ');
    }

    /// "53 Datei nicht gefunden: %", with % for this directory; empty when there is none.
    template <class Action>
    QString refusal(const Action& action) const
    {
        try {
            action();
        } catch (const sys::FileError& error) {
            const QString number = QString::number(static_cast<int>(error.number()));
            return QString(number + u' ' + error.text()).replace(path(), QStringLiteral("%"));
        }
        return {};
    }

    /// Whether it is refused so to a program in that position.
    template <class Action>
    bool refuses(bool (*position)(), const QString& told, const Action& action) const
    {
        return exitCode(startChild([&] { return position() && refusal(action) == told ? 0 : 1; })) == 0;
    }

    static bool asNobody() { return geteuid() != 0 || setuid(65534) == 0; } ///< Root may read and write everywhere.

    template <rlim_t Bytes> ///< That a file may grow to.
    static bool onFullDisk()
    {
        std::signal(SIGXFSZ, SIG_IGN); // the write fails instead of ending the process
        const rlimit limit{Bytes, Bytes};
        return setrlimit(RLIMIT_FSIZE, &limit) == 0;
    }

    /// How refusals begin.
    const QString Access = QStringLiteral("75 Fehler beim Zugriff auf Pfad/Datei: %/"),
                  NoPath = QStringLiteral("76 Pfad nicht gefunden: %/"),
                  NoFile = QStringLiteral("53 Datei nicht gefunden: %/"),
                  Denied = QStringLiteral("70 Zugriff verweigert: %/"),
                  Full = QStringLiteral("61 Datenträger voll: %/");

private:
    const QTemporaryDir root;
};
