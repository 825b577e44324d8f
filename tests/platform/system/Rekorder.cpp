#include "tests/platform/system/Rekorder.h"

#include <QFile>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

Rekorder::Rekorder(const QString& programm) : m_pfad(qgetenv("PATH"))
{
    QFile datei(m_ordner.filePath(programm));
    EXPECT_TRUE(datei.open(QIODevice::WriteOnly));
    // The record takes its name when it is complete.
    datei.write("#!/bin/bash\nprintf '%s\\n' \"$@\" > \"${0%/*}/halb\"\n/bin/mv \"${0%/*}/halb\" "
                "\"${0%/*}/aufruf\"\n");
    datei.setPermissions(datei.permissions() | QFile::ExeOwner);
    qputenv("PATH", QFile::encodeName(m_ordner.path()));
}

Rekorder::~Rekorder()
{
    qputenv("PATH", m_pfad);
}

QStringList Rekorder::aufruf()
{
    constexpr int Geduld = 5000; // ms
    QFile aufruf(m_ordner.filePath(u"aufruf"_s));
    if (!QTest::qWaitFor([&] { return aufruf.exists(); }, Geduld) || !aufruf.open(QIODevice::ReadOnly)) {
        ADD_FAILURE() << "the program was not called";
        return {};
    }
    QStringList worte = QString::fromUtf8(aufruf.readAll()).split(u'\n');
    worte.removeLast(); // behind the last line break
    aufruf.remove();
    return worte;
}
