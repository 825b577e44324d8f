#include "platform/jet/sqlite/Functions.h"

#include "platform/jet/Conversion.h"
#include "platform/jet/Errors.h"
#include "platform/jet/Rounding.h"
#include "platform/jet/ShownText.h"
#include "platform/jet/sqlite/Binding.h"
#include "platform/jet/sqlite/Names.h"
#include "platform/jet/sqlite/Pattern.h"
#include "platform/jet/sqlite/SqliteError.h"
#include "platform/system/Blanks.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <new>
#include <optional>
#include <string>
#include <string_view>

using namespace Qt::StringLiterals;

namespace jet::sqlite {

namespace {

/// The arguments of one call. All but IIF and the tests for NULL give NULL when one of them is NULL.
class Arguments {
public:
    Arguments(int count, sqlite3_value** values) : m_count(count), m_values(values) {}

    int count() const { return m_count; }
    bool anyNull() const
    {
        return std::any_of(m_values, m_values + m_count,
                           [](sqlite3_value* value) { return sqlite3_value_type(value) == SQLITE_NULL; });
    }
    double number(int index) const { return sqlite3_value_double(m_values[index]); }
    QString text(int index) const
    {
        const auto* bytes = reinterpret_cast<const char*>(sqlite3_value_text(m_values[index]));
        return QString::fromUtf8(bytes, sqlite3_value_bytes(m_values[index]));
    }
    /// A number as it is, a text by German rules; no value: it is none.
    std::optional<double> readNumber(int index) const
    {
        if (sqlite3_value_type(m_values[index]) != SQLITE_TEXT) return number(index);
        return jet::readNumber(text(index));
    }
    QDateTime date(int index) const { return argumentValue(m_values[index], Type::Date).toDateTime(); }
    /// A count of characters or a place among them.
    int place(int index, int least) const
    {
        const bool isWhole = sqlite3_value_type(m_values[index]) == SQLITE_INTEGER; // as nearly always
        const double value = isWhole ? number(index) : Round(number(index), 0);
        if (!(value >= least)) raise(ErrorNumber::InvalidArgument);
        return static_cast<int>(std::min(value, 1e9));
    }
    Value value(int index, Type type) const { return argumentValue(m_values[index], type); }
    int whole(int index) const { return sqlite3_value_int(m_values[index]); }

private:
    int m_count;
    sqlite3_value** m_values;
};

void result(sqlite3_context* context, const Value& value)
{
    resultValue(context, value);
}

/// A number needs no detour: a stock list rounds four times a row.
void result(sqlite3_context* context, double number)
{
    sqlite3_result_double(context, number);
}

/// Calls a function of ours; what it throws becomes the failure of the statement.
template <auto function>
void call(sqlite3_context* context, int count, sqlite3_value** values)
{
    try {
        const Arguments arguments(count, values);
        if (arguments.anyNull()) return sqlite3_result_null(context);
        result(context, function(arguments));
    } catch (const Error& error) {
        resultError(context, error);
    } catch (const std::bad_alloc&) {
        sqlite3_result_error_nomem(context);
    }
}

Value lowerCase(const Arguments& a)
{
    return Value(a.text(0).toLower());
}

/// ß has no capital here.
Value upperCase(const Arguments& a)
{
    QString text = a.text(0);
    for (QChar& c : text)
        c = c.toUpper();
    return Value(text);
}

Value fold(const Arguments& a)
{
    return Value(sys::trimBlanks(a.text(0).toLower()));
}

Value left(const Arguments& a)
{
    return Value(a.text(0).left(a.place(1, 0)));
}

Value right(const Arguments& a)
{
    return Value(a.text(0).right(a.place(1, 0)));
}

Value mid(const Arguments& a)
{
    const int from = a.place(1, 1) - 1;
    return Value(a.count() == 3 ? a.text(0).mid(from, a.place(2, 0)) : a.text(0).mid(from));
}

/// Counts from 1; 0: not found. Case does not count.
Value inStr(const Arguments& a)
{
    const int first = a.count() == 3 ? 1 : 0;
    const int from = first == 1 ? a.place(0, 1) - 1 : 0;
    const QString text = a.text(first);
    if (from >= text.size()) return Value(0);
    return Value(qint64{text.indexOf(a.text(first + 1), from, Qt::CaseInsensitive) + 1});
}

Value like(const Arguments& a)
{
    return Value(qint64{matches(a.text(0), a.text(1)) ? 1 : 0});
}

double rounded(const Arguments& a)
{
    return Round(a.number(0), a.count() == 2 ? a.place(1, 0) : 0);
}

Value floored(const Arguments& a)
{
    return Value(std::floor(a.number(0)));
}

Value truncated(const Arguments& a)
{
    return Value(std::trunc(a.number(0)));
}

double wholeWithin(double value, double least, double greatest)
{
    const double whole = Round(value, 0);
    if (!(whole >= least && whole <= greatest)) raise(ErrorNumber::Overflow);
    return whole;
}

double fourBytes(double value)
{
    return wholeWithin(value, std::numeric_limits<qint32>::min(), std::numeric_limits<qint32>::max());
}

Value toShort(const Arguments& a)
{
    return Value(static_cast<qint64>(wholeWithin(a.number(0), -32768, 32767)));
}

Value toLong(const Arguments& a)
{
    return Value(static_cast<qint64>(fourBytes(a.number(0))));
}

double toDouble(const Arguments& a)
{
    const auto number = a.readNumber(0);
    if (!number) raise(ErrorNumber::ConversionFailed);
    return *number;
}

/// Whether CDBL would read it. Unlike most functions it has an answer to NULL.
void isNumeric(sqlite3_context* context, int count, sqlite3_value** values)
{
    try {
        const Arguments a(count, values);
        resultValue(context, Value(!a.anyNull() && a.readNumber(0)));
    } catch (const std::bad_alloc&) {
        sqlite3_result_error_nomem(context);
    }
}

Value divide(const Arguments& a)
{
    if (a.number(1) == 0.0) raise(ErrorNumber::DivisionByZero);
    return Value(a.number(0) / a.number(1));
}

/// Both operands become whole numbers first.
Value wholeQuotient(const Arguments& a)
{
    const double divisor = fourBytes(a.number(1));
    if (divisor == 0.0) raise(ErrorNumber::DivisionByZero);
    return Value(static_cast<qint64>(std::trunc(fourBytes(a.number(0)) / divisor)));
}

Value modulo(const Arguments& a)
{
    const double divisor = fourBytes(a.number(1));
    if (divisor == 0.0) raise(ErrorNumber::DivisionByZero);
    return Value(static_cast<qint64>(std::fmod(fourBytes(a.number(0)), divisor)));
}

Value power(const Arguments& a)
{
    if (a.number(0) == 0.0 && a.number(1) < 0.0) raise(ErrorNumber::DivisionByZero);
    const double result = std::pow(a.number(0), a.number(1));
    if (std::isnan(result)) raise(ErrorNumber::InvalidArgument);
    return Value(result);
}

Value dayNumberOf(const Arguments& a)
{
    return Value(dayNumber(a.date(0)));
}

Value dateOf(const Arguments& a)
{
    return Value(fromDayNumber(a.number(0)));
}

Value yearOf(const Arguments& a)
{
    return Value(a.date(0).date().year());
}

Value monthOf(const Arguments& a)
{
    return Value(a.date(0).date().month());
}

Value dayOf(const Arguments& a)
{
    return Value(a.date(0).date().day());
}

/// A column of another program's may hold other numbers, which read as True. They are not handed on.
Value converted(const Arguments& a)
{
    const auto from = static_cast<Type>(a.whole(1));
    const auto to = static_cast<Type>(a.whole(2));
    const bool isTruth = from == Type::Boolean && to == Type::Boolean;
    if (isTruth && a.number(0) != 0.0 && a.number(0) != -1.0) throw noTruthValue({});
    return convert(a.value(0, from), to);
}

/// value, type it has, type it gets, name of the field that gets it or '': NULL too has an answer, since a truth value is
/// never NULL.
void convertValue(sqlite3_context* context, int count, sqlite3_value** values)
{
    const Arguments a(count, values);
    try {
        resultValue(context, converted(a));
    } catch (const Error& error) {
        const QString field = a.text(3);
        resultError(context, field.isEmpty() ? error : named(error, u"Feld"_s, field));
    } catch (const std::bad_alloc&) {
        sqlite3_result_error_nomem(context);
    }
}

bool showsBeginning(const Arguments& a)
{
    const QString format = a.text(1);
    const Value value = a.value(0, format == DayFormat ? Type::Date : Type::Null);
    return shownText(value, format).startsWith(a.text(2), Qt::CaseInsensitive);
}

/// Texts that BEGINS was asked about last: in the order of an index those of the next row are mostly the same.
struct Asked {
    std::array<std::string, 3> texts;
    bool answer;
};

std::string_view rawText(sqlite3_value* value)
{
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return {bytes, static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

bool beginsAsBefore(sqlite3_context* context, const Arguments& a, sqlite3_value** values)
{
    constexpr int Word = 2; // mostly the same in all rows; only then is anything kept with it
    const std::array texts{rawText(values[0]), rawText(values[1]), rawText(values[Word])};
    auto* asked = static_cast<Asked*>(sqlite3_get_auxdata(context, Word));
    if (asked && std::equal(texts.begin(), texts.end(), asked->texts.begin())) return asked->answer;
    const bool answer = showsBeginning(a);
    Asked now{{std::string(texts[0]), std::string(texts[1]), std::string(texts[2])}, answer};
    if (asked)
        *asked = std::move(now);
    else
        sqlite3_set_auxdata(context, Word, new Asked(std::move(now)),
                            [](void* kept) { delete static_cast<Asked*>(kept); });
    return answer;
}

/// value, format, word: whether what a list shows of the value begins with the word, in any case.
void begins(sqlite3_context* context, int count, sqlite3_value** values)
{
    try {
        const Arguments a(count, values);
        if (a.anyNull()) return sqlite3_result_null(context);
        const bool isText = sqlite3_value_type(values[0]) == SQLITE_TEXT;
        resultValue(context, Value(isText ? beginsAsBefore(context, a, values) : showsBeginning(a)));
    } catch (const Error& error) {
        resultError(context, error);
    } catch (const std::bad_alloc&) {
        sqlite3_result_error_nomem(context);
    }
}

/// The value in the row with the lowest or highest key of a group; NULL is a value like any other.
struct Keyed {
    sqlite3_value* value;
    qint64 key;
};

template <bool lowest>
void keepKeyed(sqlite3_context* context, int, sqlite3_value** values)
{
    auto* kept = static_cast<Keyed*>(sqlite3_aggregate_context(context, sizeof(Keyed)));
    if (!kept) return sqlite3_result_error_nomem(context);
    const qint64 key = sqlite3_value_int64(values[1]);
    if (kept->value && (lowest ? key >= kept->key : key <= kept->key)) return;
    sqlite3_value_free(kept->value);
    kept->value = sqlite3_value_dup(values[0]);
    kept->key = key;
}

void finishKeyed(sqlite3_context* context)
{
    auto* kept = static_cast<Keyed*>(sqlite3_aggregate_context(context, 0));
    if (!kept || !kept->value) return sqlite3_result_null(context);
    sqlite3_result_value(context, kept->value);
    sqlite3_value_free(kept->value);
}

struct Row {
    const char* name;
    int arguments;
    void (*function)(sqlite3_context*, int, sqlite3_value**);
};

// clang-format off
constexpr Row Rows[] = {
    {"jet_lcase", 1, call<lowerCase>},     {"jet_ucase", 1, call<upperCase>},   {FoldFunction, 1, call<fold>},
    {"jet_left", 2, call<left>},           {"jet_right", 2, call<right>},
    {"jet_mid", 2, call<mid>},             {"jet_mid", 3, call<mid>},
    {"jet_instr", 2, call<inStr>},         {"jet_instr", 3, call<inStr>},       {"jet_like", 2, call<like>},
    {"jet_begins", 3, begins},
    {"jet_round", 1, call<rounded>},       {"jet_round", 2, call<rounded>},
    {"jet_int", 1, call<floored>},         {"jet_fix", 1, call<truncated>},
    {"jet_cint", 1, call<toShort>},        {"jet_clng", 1, call<toLong>},
    {"jet_cdbl", 1, call<toDouble>},       {"jet_isnumeric", 1, isNumeric},
    {"jet_div", 2, call<divide>},          {"jet_idiv", 2, call<wholeQuotient>},
    {"jet_mod", 2, call<modulo>},          {"jet_pow", 2, call<power>},
    {"jet_daynumber", 1, call<dayNumberOf>}, {"jet_date", 1, call<dateOf>},
    {"jet_year", 1, call<yearOf>},         {"jet_month", 1, call<monthOf>},     {"jet_day", 1, call<dayOf>},
    {"jet_convert", 4, convertValue},
};
// clang-format on

} // namespace

void registerFunctions(sqlite3* connection)
{
    constexpr int flags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
    for (const Row& row : Rows)
        sqlite3_create_function_v2(connection, row.name, row.arguments, flags, nullptr, row.function, nullptr, nullptr,
                                   nullptr);
    sqlite3_create_function_v2(connection, "jet_first", 2, flags, nullptr, nullptr, keepKeyed<true>, finishKeyed,
                               nullptr);
    sqlite3_create_function_v2(connection, "jet_last", 2, flags, nullptr, nullptr, keepKeyed<false>, finishKeyed,
                               nullptr);
}

} // namespace jet::sqlite
