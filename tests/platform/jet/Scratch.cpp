#include "tests/platform/jet/Scratch.h"

#include <QFile>

#include <gtest/gtest.h>

#include <cstdlib>

using namespace Qt::StringLiterals;

std::unique_ptr<jet::Database> Scratch::create(const QString& name, const QStringList& statements) const
{
    auto database = jet::engine().CreateDatabase(path(name), {});
    for (const QString& statement : statements)
        database->Execute(statement);
    return database;
}

std::unique_ptr<jet::Database> Scratch::open(const QString& name, const QString& connect) const
{
    return jet::engine().OpenDatabase(path(name), connect);
}

void Scratch::write(const QString& name, const QByteArray& bytes) const
{
    QFile file(path(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

QByteArray Scratch::bytesOf(const QString& name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString written(const jet::Value& value)
{
    switch (value.type()) {
    case jet::Type::Null: return u"NULL"_s;
    case jet::Type::Boolean: return value.toBool() ? u"-1"_s : u"0"_s;
    case jet::Type::Date:
        return value.toDateTime().toString(u"dd.MM.yyyy hh:mm:ss"_s).replace(u" 00:00:00"_s, QString());
    case jet::Type::Text: {
        QString text = value.toText();
        const bool readsAsIs = !text.isEmpty() && !text.contains(u'\n') && read(text) == value;
        return readsAsIs ? text : u'\'' + text.replace(u'\n', u"\\n"_s) + u'\'';
    }
    default: return QString::number(value.toDouble(), 'g', 15);
    }
}

jet::Value read(const QString& cell)
{
    QString text = cell.trimmed();
    if (text == u"NULL") return {};
    if (text.size() >= 2 && text.startsWith(u'\'') && text.endsWith(u'\''))
        return text.mid(1, text.size() - 2).replace(u"\\n"_s, u"\n"_s);
    bool isNumber = false;
    if (const double number = text.toDouble(&isNumber); isNumber) return number;
    const QString moment = text.size() == 10 ? text + u" 00:00:00"_s : text;
    const auto date = QDateTime::fromString(moment, u"dd.MM.yyyy hh:mm:ss"_s);
    return date.isValid() ? jet::Value(date) : jet::Value(text);
}

QString writtenRow(const std::vector<jet::Value>& row)
{
    QStringList cells;
    for (const jet::Value& value : row)
        cells += written(value);
    return cells.join(u" | "_s);
}

QString writtenRow(const jet::Recordset& rows)
{
    std::vector<jet::Value> row;
    for (qsizetype column = 0; column < std::ssize(rows.Fields()); ++column)
        row.push_back(rows[column]);
    return writtenRow(row);
}

std::string rowsOf(jet::Database& database, const QString& sql, jet::Kind kind)
{
    QStringList lines;
    for (const auto rows = database.OpenRecordset(sql, kind); !rows->Eof(); rows->MoveNext())
        lines += writtenRow(*rows);
    return lines.isEmpty() ? "-" : lines.join(u"; "_s).toStdString();
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
