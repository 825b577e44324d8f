#include "tests/platform/jet/Scratch.h"

#include "tests/platform/jet/Notation.h"

#include <QDir>

#include <algorithm>

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

QStringList Scratch::files() const
{
    return QDir(m_directory.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
}

std::string rowsOf(jet::Database& database, const QString& sql)
{
    return all(*database.OpenRecordset(sql, jet::Kind::Snapshot));
}

std::string refusal(const std::function<void()>& call)
{
    try {
        call();
    } catch (const jet::Error& error) {
        using enum jet::ErrorNumber;
        constexpr jet::ErrorNumber Anywhere[] = {Overflow,    ReadOnly,         TooFewParameters, UnknownTable,
                                                 NoSuchField, ConversionFailed, TypeMismatch};
        const bool anywhere = std::ranges::find(Anywhere, error.number()) != std::end(Anywhere);
        const QString text = anywhere ? error.text().section(u" Datei: "_s, 0, 0) : error.text();
        return std::to_string(static_cast<int>(error.number())) + ' ' + text.toStdString();
    }
    return {};
}
