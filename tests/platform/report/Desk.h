#pragma once

#include "platform/jet/Engine.h"
#include "platform/report/Paginator.h"
#include "tests/platform/system/Folder.h"

/// A directory with a data file and a report form. The table J has the columns Nr, Artikel, Ort, Menge and T.
class Desk : public Folder {
public:
    Desk()
    {
        jet::engine().CreateDatabase(path(QStringLiteral("daten.mdb")), {})->Close();
        execute(
            QStringLiteral("CREATE TABLE J (Nr Long, Artikel Text(20), Ort Text(5), Menge Double, T Memo)"));
    }

    void execute(const QString& statement) const ///< On the data file.
    {
        jet::engine().OpenDatabase(path(QStringLiteral("daten.mdb")))->Execute(statement);
    }

    /// Of a form that has its own <report>, or of the elements, from its second line on, of one on A5 with
    /// margins of 10 mm and letters of 10 points.
    report::Job job(QByteArray form) const
    {
        if (!form.startsWith("<?xml") && !form.startsWith("<report") && !form.startsWith("<html"))
            form = "<report paper='A5' left='10' top='10' right='10' bottom='10' size='10'>\n" + form +
                   "</report>\n";
        write(QStringLiteral("form.rpt"), form);
        report::Job job;
        job.reportFile = path(QStringLiteral("form.rpt"));
        job.dataFiles[0] = path(QStringLiteral("daten.mdb"));
        return job;
    }
};

inline const auto goOn = [](qsizetype, qsizetype) { return true; };
