#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

#include <gtest/gtest.h>

#include <functional>

/// One run of the program zablager to its end.
struct Lauf {
    int ende = -1; ///< Exit code.
    QString ausgabe, fehler;
};

/// `vorher` runs in the new process before the program begins.
inline Lauf zablager(const QStringList& worte, const QByteArray& eingabe = {}, const std::function<void()>& vorher = {})
{
    QProcess prozess;
    prozess.setChildProcessModifier(vorher);
    prozess.start(QStringLiteral(ZABLAGER_PROGRAM), worte);
    prozess.write(eingabe);
    prozess.closeWriteChannel();
    EXPECT_TRUE(prozess.waitForFinished(120'000)) << prozess.errorString().toStdString();
    EXPECT_EQ(prozess.exitStatus(), QProcess::NormalExit);
    return {prozess.exitCode(), QString::fromUtf8(prozess.readAllStandardOutput()),
            QString::fromUtf8(prozess.readAllStandardError())};
}
