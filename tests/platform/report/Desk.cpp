#include "tests/platform/report/Desk.h"

#include "platform/jet/Engine.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

Desk::Desk()
{
    jet::engine().CreateDatabase(path(u"daten.mdb"_s), {})->Close();
    execute({u"CREATE TABLE J (Nr Long, Artikel Text(20), Ort Text(5), Menge Double, T Memo)"_s});
}

QString Desk::write(const QString& name, const QByteArray& content) const
{
    QFile file(path(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
    return file.fileName();
}

void Desk::execute(const QStringList& statements) const
{
    const auto file = jet::engine().OpenDatabase(path(u"daten.mdb"_s));
    for (const QString& statement : statements)
        file->Execute(statement);
}

void Desk::fill(int rows) const
{
    execute({u"DELETE FROM J"_s});
    for (int i = 1; i <= rows; ++i)
        execute({u"INSERT INTO J (Nr) VALUES (%1)"_s.arg(i)});
}

report::Job Desk::job(const QByteArray& form) const
{
    const bool isWhole = form.startsWith("<?xml") || form.startsWith("<report") || form.startsWith("<html");
    const QByteArray begin = "<report paper='A5' left='10' top='10' right='10' bottom='10' size='10'>\n";
    report::Job job;
    job.reportFile = write(u"form.rpt"_s, isWhole ? form : begin + form + "</report>\n");
    job.dataFiles[0] = path(u"daten.mdb"_s);
    return job;
}
