#include "tests/platform/report/Pdf.h"

#include <QProcess>
#include <QStandardPaths>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

bool canReadPdf()
{
    return !QStandardPaths::findExecutable(u"pdftotext"_s).isEmpty();
}

std::vector<QStringList> readPdf(const QString& file)
{
    QProcess reader;
    reader.start(u"pdftotext"_s, {u"-layout"_s, u"-enc"_s, u"UTF-8"_s, file, u"-"_s});
    EXPECT_TRUE(reader.waitForFinished());
    std::vector<QStringList> pages;
    QStringList sheets = QString::fromUtf8(reader.readAllStandardOutput()).split(u'\f');
    sheets.removeLast(); // each page ends with a form feed
    for (const QString& sheet : sheets) {
        QStringList lines;
        for (const QString& line : sheet.split(u'\n'))
            if (!line.trimmed().isEmpty()) lines.append(line.simplified());
        pages.push_back(lines);
    }
    return pages;
}
