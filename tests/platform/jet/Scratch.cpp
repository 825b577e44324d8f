#include "tests/platform/jet/Scratch.h"

#include "tests/platform/jet/Notation.h"

#include <QFile>

#include <gtest/gtest.h>

#include <cstdlib>

using namespace Qt::StringLiterals;

Scratch::~Scratch()
{
    jet::engine().release();
}

std::unique_ptr<jet::Database> Scratch::create(const QString& name, const QStringList& statements) const
{
    auto database = jet::engine().CreateDatabase(path(name), u";LANGID=0x0409;CP=1252;COUNTRY=0"_s);
    for (const QString& statement : statements)
        database->Execute(statement);
    return database;
}

std::unique_ptr<jet::Database> Scratch::open(const QString& name, const QString& connect) const
{
    return jet::engine().OpenDatabase(path(name), connect);
}

QByteArray Scratch::bytes(const QString& name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void Scratch::write(const QString& name, const QByteArray& bytes) const
{
    QFile file(path(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size()) << name.toStdString();
}

std::string rowsOf(jet::Database& database, const QString& sql)
{
    return writtenRows(database, sql, jet::Kind::Snapshot).toStdString();
}

std::string refusal(const std::function<void()>& call)
{
    try {
        call();
    } catch (const jet::Error& error) {
        return std::to_string(static_cast<int>(error.number())) + ' ' + error.what();
    }
    return {};
}

int refused(const std::function<void()>& call)
{
    return std::atoi(refusal(call).c_str());
}
