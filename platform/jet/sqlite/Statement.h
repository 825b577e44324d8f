#pragma once

#include "platform/jet/Value.h"

#include <QByteArray>

#include <string_view>
#include <vector>

struct sqlite3_stmt;

namespace jet::sqlite {

class Connection;

/// A prepared statement of SQLite. Between two runs it is not open, so it holds no lock.
class Statement {
public:
    enum class Kind { Null, Whole, Real, Text, Bytes }; ///< As a value lies in the file.

    Statement(Connection& connection, const QByteArray& sql); ///< \throws Error
    ~Statement();
    Q_DISABLE_COPY_MOVE(Statement)

    /// One run: ends, also by an exception, with the statement closed.
    class Run {
    public:
        explicit Run(Statement& statement) : m_statement(statement) {}
        ~Run();
        Q_DISABLE_COPY_MOVE(Run)

        void bind(
            int parameter,
            const Value& value); ///< Parameters count from 0; one that does not stand in the text is ignored.
        void bindText(int parameter, const QByteArray& text);
        bool step(); ///< Whether there is a row. \throws Error
        Value value(int column, Type type) const;
        qint64 whole(int column) const; ///< A column that is known to hold whole numbers.
        QByteArray text(int column) const;
        Kind kind(int column) const;
        double number(int column) const;
        std::string_view view(int column) const; ///< Of a text, until the next step.

    private:
        Statement& m_statement;
        bool m_began = false;
    };

private:
    Connection& m_connection;
    sqlite3_stmt* m_statement = nullptr;
    int m_parameters = 0;
};

/// The parameters of a statement's shape, in their order.
void bindParameters(Statement::Run& run, const std::vector<std::vector<Value>>& parameters);
/// Becomes one text that SQLite reads as a list.
void bindList(Statement::Run& run, int parameter, const std::vector<Value>& values);

} // namespace jet::sqlite
