#include "platform/jet/sqlite/Binding.h"

#include "platform/jet/Conversion.h"
#include "platform/jet/Errors.h"

#include <sqlite3.h>

#include <array>
#include <charconv>
#include <optional>
#include <string_view>

namespace jet::sqlite {

namespace {

struct Column {
    sqlite3_stmt* statement;
    int index;
    int storage() const { return sqlite3_column_type(statement, index); }
    qint64 whole() const { return sqlite3_column_int64(statement, index); }
    double number() const { return sqlite3_column_double(statement, index); }
    std::string_view text() const
    {
        const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(statement, index));
        return {bytes, static_cast<std::size_t>(sqlite3_column_bytes(statement, index))};
    }
};

struct Argument {
    sqlite3_value* value;
    int storage() const { return sqlite3_value_type(value); }
    qint64 whole() const { return sqlite3_value_int64(value); }
    double number() const { return sqlite3_value_double(value); }
    std::string_view text() const
    {
        const auto* bytes = reinterpret_cast<const char*>(sqlite3_value_text(value));
        return {bytes, static_cast<std::size_t>(sqlite3_value_bytes(value))};
    }
};

std::optional<int> digits(std::string_view text, std::size_t from, std::size_t count)
{
    int number = 0;
    if (text.size() < from + count) return {};
    const auto* end = text.data() + from + count;
    const auto result = std::from_chars(text.data() + from, end, number);
    if (result.ptr != end || number < 0) return {};
    return number;
}

QDateTime fromIso(std::string_view text)
{
    const auto year = digits(text, 0, 4);
    const auto month = digits(text, 5, 2);
    const auto day = digits(text, 8, 2);
    if (!year || !month || !day || !QDate::isValid(*year, *month, *day)) raise(ErrorNumber::ConversionFailed);
    QTime time(0, 0);
    if (text.size() > 10) {
        const auto hour = digits(text, 11, 2);
        const auto minute = digits(text, 14, 2);
        const auto second = digits(text, 17, 2);
        if (!hour || !minute || !second || !QTime::isValid(*hour, *minute, *second))
            raise(ErrorNumber::ConversionFailed);
        time = QTime(*hour, *minute, *second);
    }
    return QDateTime(QDate(*year, *month, *day), time, Qt::UTC);
}

template <typename Source>
Value stored(const Source& source)
{
    switch (source.storage()) {
    case SQLITE_INTEGER: return Value(source.whole());
    case SQLITE_FLOAT: return Value(source.number());
    case SQLITE_NULL: return {};
    default: {
        const auto text = source.text();
        return Value(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
    }
    }
}

template <typename Source>
Value read(const Source& source, Type type)
{
    const int storage = source.storage();
    if (storage == SQLITE_NULL) return {};
    switch (type) {
    case Type::Boolean:
        if (storage == SQLITE_INTEGER || storage == SQLITE_FLOAT) return Value(source.number() != 0.0);
        break;
    case Type::Double:
        if (storage == SQLITE_INTEGER || storage == SQLITE_FLOAT) return Value(source.number());
        break;
    case Type::Date:
        if (storage == SQLITE_TEXT) return Value(fromIso(source.text()));
        break;
    case Type::Text:
    case Type::Memo:
        if (storage == SQLITE_TEXT) break;
        return Value(stored(source).toText());
    default: break;
    }
    const Value value = stored(source);
    return type == Type::Null || isText(type) || value.type() == Type::Long ? value : convert(value, type);
}

void appendNumber(QByteArray& text, int number, int width)
{
    std::array<char, 4> buffer{};
    for (int i = width; i-- > 0; number /= 10)
        buffer[static_cast<std::size_t>(i)] = static_cast<char>('0' + number % 10);
    text.append(buffer.data(), width);
}

} // namespace

Value columnValue(sqlite3_stmt* statement, int column, Type type)
{
    return read(Column{statement, column}, type);
}

Value argumentValue(sqlite3_value* argument, Type type)
{
    return read(Argument{argument}, type);
}

void bindValue(sqlite3_stmt* statement, int parameter, const Value& value)
{
    switch (value.type()) {
    case Type::Boolean: sqlite3_bind_int(statement, parameter, value.toBool() ? -1 : 0); return;
    case Type::Long: sqlite3_bind_int64(statement, parameter, value.toLong()); return;
    case Type::Double: sqlite3_bind_double(statement, parameter, value.toDouble()); return;
    case Type::Date: {
        const QByteArray text = isoText(value.toDateTime());
        sqlite3_bind_text64(statement, parameter, text.constData(), static_cast<sqlite3_uint64>(text.size()),
                            SQLITE_TRANSIENT, SQLITE_UTF8);
        return;
    }
    case Type::Text: {
        const QByteArray text = value.toText().toUtf8();
        sqlite3_bind_text64(statement, parameter, text.constData(), static_cast<sqlite3_uint64>(text.size()),
                            SQLITE_TRANSIENT, SQLITE_UTF8);
        return;
    }
    default: sqlite3_bind_null(statement, parameter);
    }
}

void resultValue(sqlite3_context* context, const Value& value)
{
    switch (value.type()) {
    case Type::Boolean: sqlite3_result_int(context, value.toBool() ? -1 : 0); return;
    case Type::Long: sqlite3_result_int64(context, value.toLong()); return;
    case Type::Double: sqlite3_result_double(context, value.toDouble()); return;
    case Type::Date:
    case Type::Text: {
        const QByteArray text =
            value.type() == Type::Date ? isoText(value.toDateTime()) : value.toText().toUtf8();
        sqlite3_result_text64(context, text.constData(), static_cast<sqlite3_uint64>(text.size()),
                              SQLITE_TRANSIENT, SQLITE_UTF8);
        return;
    }
    default: sqlite3_result_null(context);
    }
}

QByteArray isoText(const QDateTime& date)
{
    const QDate day = date.date();
    const QTime time = date.time();
    QByteArray text;
    appendNumber(text, day.year(), 4);
    text += '-';
    appendNumber(text, day.month(), 2);
    text += '-';
    appendNumber(text, day.day(), 2);
    if (time == QTime(0, 0)) return text;
    text += ' ';
    appendNumber(text, time.hour(), 2);
    text += ':';
    appendNumber(text, time.minute(), 2);
    text += ':';
    appendNumber(text, time.second(), 2);
    return text;
}

} // namespace jet::sqlite
