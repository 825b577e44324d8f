#pragma once

#include "platform/report/Paginator.h"

#include <QStringList>
#include <QTemporaryDir>

/// A directory with a data file and a report form. The table J has the columns Nr, Artikel, Ort, Menge and T.
class Desk {
public:
    Desk();
    Q_DISABLE_COPY_MOVE(Desk)

    QString path(const QString& name) const { return m_directory.filePath(name); }
    QString write(const QString& name, const QByteArray& content) const; ///< \returns the full name.
    void execute(const QStringList& statements) const;                   ///< On the data file.
    void fill(int rows) const; ///< With so many, in place of those before; Nr counts from 1.
    /// Of a form that has its own <report>, or of the elements, from its second line on, of one on A5 with margins of 10 mm
    /// and letters of 10 points.
    report::Job job(const QByteArray& form) const;

private:
    QTemporaryDir m_directory;
};

inline bool goOn(qsizetype, qsizetype)
{
    return true;
}
