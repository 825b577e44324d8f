#include "tests/platform/report/Desk.h"

#include "platform/jet/Engine.h"
#include "platform/report/Output.h"
#include "platform/report/Paginator.h"
#include "platform/system/CaughtError.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

bool goOn(qsizetype, qsizetype)
{
    return true;
}

} // namespace

Desk::Desk()
{
    jet::engine().CreateDatabase(path(u"daten.mdb"_s), {})->Close();
}

QString Desk::write(const QString& name, const QByteArray& content) const
{
    QFile file(path(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
    return file.fileName();
}

QString Desk::form(const QByteArray& elements) const
{
    return write(u"form.rpt"_s, R"(<report paper="A5" left="10" top="10" right="10" bottom="10" size="10">)"
                                "\n" +
                                    elements + "</report>\n");
}

void Desk::execute(const QStringList& statements) const
{
    const auto file = jet::engine().OpenDatabase(path(u"daten.mdb"_s));
    file->BeginTrans();
    for (const QString& statement : statements)
        file->Execute(statement);
    file->CommitTrans();
}

report::Job Desk::job(const QString& form) const
{
    report::Job job;
    job.reportFile = form;
    job.dataFiles[0] = path(u"daten.mdb"_s);
    return job;
}

std::vector<QStringList> Desk::print(const report::Job& job) const
{
    const QString pdf = path(u"druck.pdf"_s);
    EXPECT_TRUE(report::writePdf(*report::setPages(job, goOn), pdf, goOn));
    return readPdf(pdf);
}

QStringList Desk::printedLines(const report::Job& job) const
{
    QStringList lines;
    for (const QStringList& page : print(job))
        lines += page;
    return lines;
}

QString Desk::refusal(const report::Job& job)
{
    try {
        report::setPages(job, goOn);
    } catch (const std::exception&) {
        return sys::caughtError().text;
    }
    ADD_FAILURE() << "nothing was refused";
    return {};
}
