#pragma once

#include "platform/jet/sqlite/Connection.h"

#include <QByteArray>

#include <string_view>

struct sqlite3_stmt;

/// A file as the engine opens it: the same collation and functions, the same settings of SQLite. What is
/// asked of it goes past the engine.
class BareFile {
public:
    explicit BareFile(const QString& path);
    void execute(const char* sql);

private:
    friend class BareStatement;
    jet::sqlite::Connection m_connection;
};

/// A statement of SQLite that stays prepared, with nothing around it: the limit that figures are measured
/// against. Texts are not copied, they must outlive the run. \throws std::runtime_error with SQLite's
/// message.
class BareStatement {
public:
    /// `%C` in the text is the engine's collation.
    BareStatement(BareFile& file, QByteArray sql);
    ~BareStatement();
    Q_DISABLE_COPY_MOVE(BareStatement)

    void bind(int parameter, const QByteArray& text); ///< Parameters count from 1.
    void bind(int parameter, double number);
    void bind(int parameter, qint64 number);
    void bindNull(int parameter);
    bool step();
    void reset();
    void run(); ///< step() and reset().

    double number(int column) const; ///< Columns count from 0.
    qint64 whole(int column) const;
    QByteArray text(int column) const;
    std::string_view view(int column) const; ///< Of a text, until the next step.
    bool isNull(int column) const;

private:
    sqlite3* m_file;
    sqlite3_stmt* m_statement = nullptr;
};
