#include "tests/platform/jet/Notation.h"

#include <QRegularExpression>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

const QRegularExpression NumberForm(u"^[+-]?\\d+(\\.\\d+)?(e[+-]?\\d+)?$"_s);
const QRegularExpression DateForm(u"^(\\d\\d\\.\\d\\d\\.\\d{4})( \\d\\d:\\d\\d:\\d\\d)?$"_s);

bool needsQuotes(const QString& text)
{
    return text.isEmpty() || text != text.trimmed() || text == u"NULL"_s || text.contains(u'\n') ||
           text.startsWith(u'\'') || NumberForm.match(text).hasMatch() || DateForm.match(text).hasMatch();
}

QString writtenText(QString text)
{
    return needsQuotes(text) ? u'\'' + text.replace(u'\n', u"\\n"_s) + u'\'' : text;
}

QString writtenDate(const QDateTime& date)
{
    return date.toString(date.time() == QTime(0, 0) ? u"dd.MM.yyyy"_s : u"dd.MM.yyyy hh:mm:ss"_s);
}

} // namespace

QString written(const jet::Value& value)
{
    switch (value.type()) {
    case jet::Type::Null: return u"NULL"_s;
    case jet::Type::Boolean: return value.toBool() ? u"-1"_s : u"0"_s;
    case jet::Type::Date: return writtenDate(value.toDateTime());
    case jet::Type::Text: return writtenText(value.toText());
    default: return QString::number(value.toDouble(), 'g', 15);
    }
}

jet::Value read(QStringView cell)
{
    const QString text = cell.trimmed().toString();
    if (text == u"NULL"_s) return {};
    if (text.size() >= 2 && text.startsWith(u'\'') && text.endsWith(u'\''))
        return text.mid(1, text.size() - 2).replace(u"\\n"_s, u"\n"_s);
    if (DateForm.match(text).hasMatch()) {
        const QString time = text.size() > 10 ? text.mid(11) : u"00:00:00"_s;
        return QDateTime(QDate::fromString(text.left(10), u"dd.MM.yyyy"_s), QTime::fromString(time), Qt::UTC);
    }
    if (NumberForm.match(text).hasMatch()) return text.toDouble();
    return text;
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

QString writtenType(const jet::Field& field)
{
    static const char* const names[] = {"Null",     "Boolean", "Byte",   "Short", "Long", "Counter",
                                        "Currency", "Single",  "Double", "Date",  "Text", "Memo"};
    const QString name = QString::fromLatin1(names[static_cast<int>(field.type)]);
    return field.type == jet::Type::Text ? u"%1(%2)"_s.arg(name).arg(field.size) : name;
}

QString writtenTypes(jet::Database& database, const QString& sql)
{
    QStringList columns;
    for (const jet::Field& field : database.OpenRecordset(sql)->Fields())
        columns += field.name + u' ' + writtenType(field);
    return columns.join(u", "_s);
}

QString writtenRows(jet::Database& database, const QString& sql, jet::Kind kind)
{
    QStringList lines;
    for (const auto rows = database.OpenRecordset(sql, kind); !rows->Eof(); rows->MoveNext())
        lines += writtenRow(*rows);
    return lines.isEmpty() ? u"-"_s : lines.join(u"; "_s);
}
