#pragma once

#include "platform/jet/Engine.h"

#include <QString>
#include <QTemporaryDir>

#include <functional>
#include <memory>
#include <string>
#include <vector>

/// A directory of its own for the database files of one test, removed with everything in it.
class Scratch {
public:
    Scratch() = default;
    ~Scratch() { jet::engine().release(); }
    Q_DISABLE_COPY_MOVE(Scratch)

    /// Local path of a file in the directory.
    QString path(const QString& name) const { return m_directory.filePath(name); }
    /// A new, empty database file. `statements` are executed in it one after the other.
    std::unique_ptr<jet::Database> create(const QString& name, const QStringList& statements = {}) const;
    std::unique_ptr<jet::Database> open(const QString& name, const QString& connect = {}) const;
    void write(const QString& name, const QByteArray& bytes) const; ///< The whole of a file of any kind.
    QByteArray bytesOf(const QString& name) const;

private:
    QTemporaryDir m_directory;
};

// How values, rows and columns are written in the tests of the engine, going in and coming out alike:
//
//   NULL                      no value
//   12  -0.25  5.5e-17        a number, with a decimal point and at most 15 digits; a truth value is -1 or 0
//   05.03.2024                a date; 05.03.2024 13:45:00 when it has a time of day
//   Weizen                    a text
//   'Weizen  '  ''  '100'     a text that is empty, has blanks at an end or a line break in it, or would read
//            as one
//                             of the above; a quote in it is not doubled, a line break is written \n
//
// A text never has " | " or "; " in it, which stand between the cells of a row and between rows.

QString written(const jet::Value& value);
jet::Value read(const QString& cell); ///< The reverse of written().

/// The fields of a row, the current one of a recordset, joined by " | ".
QString writtenRow(const std::vector<jet::Value>& row);
QString writtenRow(const jet::Recordset& rows);
/// All rows of a statement, joined by "; "; "-" without.
std::string rowsOf(jet::Database& database, const QString& sql, jet::Kind kind = jet::Kind::Dynaset);

/// Number and text of the refusal that a call ends with, "3021 Kein aktueller Datensatz."; empty when it went
/// through.
std::string refusal(const std::function<void()>& call);
/// The number alone; 0 when it went through.
int refused(const std::function<void()>& call);
