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
        EXPECT_TRUE(QDir().mkpath(QFileInfo(file).path()) && file.open(QIODevice::WriteOnly))
            << name.toStdString();
        file.write(bytes);
    }

    QByteArray read(const QString& name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no such file");
    }

    QString names() const ///< All in the directory, hidden ones too.
    {
        const QStringList all =
            QDir(path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
        return all.join(u' ');
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

    /// Whether a program of one who is not root is refused so.
    template <class Action>
    bool refusesNobody(const QString& told, const Action& action) const
    {
        return exitCode(startChild([&] {
                   constexpr uid_t Nobody = 65534; // root may read and write everywhere
                   return (geteuid() == 0 && setuid(Nobody) != 0) || refusal(action) != told ? 1 : 0;
               })) == 0;
    }

    /// Whether it is refused so where no file can grow beyond `bytes`.
    template <class Action>
    bool refusesFullDisk(rlim_t bytes, const QString& told, const Action& action) const
    {
        return exitCode(startChild([&] {
                   std::signal(SIGXFSZ, SIG_IGN); // the write fails instead of ending the process
                   const rlimit limit{bytes, bytes};
                   return setrlimit(RLIMIT_FSIZE, &limit) != 0 || refusal(action) != told ? 1 : 0;
               })) == 0;
    }

private:
    const QTemporaryDir root;
};
