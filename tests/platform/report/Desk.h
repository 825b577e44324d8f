#pragma once

#include "platform/jet/Database.h"
#include "platform/report/Job.h"
#include "tests/support/Pdf.h"

#include <QStringList>
#include <QTemporaryDir>

#include <vector>

/// A directory with a data file and report forms, and what a print of them says.
class Desk {
public:
    Desk();
    Q_DISABLE_COPY_MOVE(Desk)

    QString path(const QString& name) const { return m_directory.filePath(name); }
    QString write(const QString& name, const QByteArray& content) const; ///< \returns the full name.
    /// Writes a form on a sheet of A5 with margins of 10 mm: the elements, inside <report>, begin in its second line.
    QString form(const QByteArray& elements) const;
    void execute(const QStringList& statements) const; ///< On the data file.

    report::Job job(const QString& form) const; ///< With the data file.
    /// The pages of a print, each as its lines with single blanks between words, as another program reads them in the
    /// PDF.
    std::vector<QStringList> print(const report::Job& job) const;
    QStringList printedLines(const report::Job& job) const; ///< Of all pages.
    /// The text of the refusal; empty, and a failure of the test, when there was none.
    static QString refusal(const report::Job& job);

private:
    QTemporaryDir m_directory;
};
