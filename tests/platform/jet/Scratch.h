#pragma once

#include "platform/jet/Engine.h"

#include <QString>
#include <QTemporaryDir>

#include <functional>
#include <memory>
#include <string>

/// A directory of its own for the database files of one test, removed with everything in it.
class Scratch {
public:
    Scratch() = default;
    ~Scratch();
    Q_DISABLE_COPY_MOVE(Scratch)

    /// Local path of a file in the directory.
    QString path(const QString& name) const { return m_directory.filePath(name); }
    /// A new, empty database file. `statements` are executed in it one after the other.
    std::unique_ptr<jet::Database> create(const QString& name, const QStringList& statements = {}) const;
    std::unique_ptr<jet::Database> open(const QString& name, const QString& connect = {}) const;

    QByteArray bytes(const QString& name) const;
    void write(const QString& name, const QByteArray& bytes) const; ///< The whole file.

private:
    QTemporaryDir m_directory;
};

/// Rows of a statement, read at once; see Notation.h.
std::string rowsOf(jet::Database& database, const QString& sql);

/// Number and text of the refusal that a call ends with, "3021 Kein aktueller Datensatz."; empty when it went through.
std::string refusal(const std::function<void()>& call);
/// The number alone; 0 when it went through.
int refused(const std::function<void()>& call);
