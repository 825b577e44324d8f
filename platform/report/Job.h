#pragma once

#include <QMap>
#include <QString>

namespace report {

/// What is to be printed, as the control's properties say it.
struct Job {
    QString reportFile;
    QString selection; ///< A condition that rows must meet; empty: all.
    QMap<int, QString> formulas;
    QMap<int, QString>
        dataFiles; ///< Of the rows (0) and of the lookups in their order; a gap is the file of the rows.
    QMap<int, QString> sortFields; ///< "+{TABLE.Column}" ascending, "-{TABLE.Column}" descending.
};

} // namespace report
