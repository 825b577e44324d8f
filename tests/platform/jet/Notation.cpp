#include "tests/platform/jet/Notation.h"

#include <QRegularExpression>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

const QRegularExpression& numberForm()
{
    static const QRegularExpression form(u"^[+-]?\\d+(\\.\\d+)?(e[+-]?\\d+)?$"_s);
    return form;
}

const QRegularExpression& dateForm()
{
    static const QRegularExpression form(u"^(\\d\\d\\.\\d\\d\\.\\d{4})( \\d\\d:\\d\\d:\\d\\d)?$"_s);
    return form;
}

bool needsQuotes(const QString& text)
{
    return text.isEmpty() || text != text.trimmed() || text == u"NULL"_s || text.contains(u'\n') ||
           text.startsWith(u'\'') || numberForm().match(text).hasMatch() || dateForm().match(text).hasMatch();
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
    if (text.size() >= 2 && text.startsWith(u'\'') && text.endsWith(u'\'')) {
        return text.mid(1, text.size() - 2).replace(u"\\n"_s, u"\n"_s);
    }
    if (dateForm().match(text).hasMatch()) {
        const QString time = text.size() > 10 ? text.mid(11) : u"00:00:00"_s;
        return QDateTime(QDate::fromString(text.left(10), u"dd.MM.yyyy"_s), QTime::fromString(time), Qt::UTC);
    }
    if (numberForm().match(text).hasMatch()) return text.toDouble();
    return text;
}

QString writtenRow(const jet::Recordset& rows)
{
    QStringList cells;
    for (qsizetype column = 0; column < std::ssize(rows.Fields()); ++column)
        cells += written(rows[column]);
    return cells.join(u" | "_s);
}

QString writtenType(const jet::Field& field)
{
    switch (field.type) {
    case jet::Type::Null: return u"Null"_s;
    case jet::Type::Boolean: return u"Boolean"_s;
    case jet::Type::Byte: return u"Byte"_s;
    case jet::Type::Short: return u"Short"_s;
    case jet::Type::Long: return u"Long"_s;
    case jet::Type::Counter: return u"Counter"_s;
    case jet::Type::Currency: return u"Currency"_s;
    case jet::Type::Single: return u"Single"_s;
    case jet::Type::Double: return u"Double"_s;
    case jet::Type::Date: return u"Date"_s;
    case jet::Type::Text: return u"Text("_s + QString::number(field.size) + u')';
    case jet::Type::Memo: return u"Memo"_s;
    }
    return {};
}

std::string all(jet::Recordset& rows)
{
    QStringList lines;
    if (rows.RecordCount() > 0) rows.MoveFirst();
    for (; !rows.Eof(); rows.MoveNext())
        lines += writtenRow(rows);
    return lines.join(u'\n').toStdString();
}
