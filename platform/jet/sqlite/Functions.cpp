#include "platform/jet/sqlite/Functions.h"

#include "platform/jet/sqlite/Binding.h"
#include "platform/jet/sqlite/Names.h"
#include "platform/jet/sqlite/SqliteError.h"
#include "platform/jet/value/Functions.h"
#include "platform/jet/value/Operators.h"
#include "platform/system/Blanks.h"

#include <sqlite3.h>

#include <cstring>
#include <new>

namespace jet::sqlite {

namespace {

constexpr int Flags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;

class CallArguments : public Arguments {
public:
    CallArguments(int count, sqlite3_value** values) : m_count(count), m_values(values) {}

    int count() const override { return m_count; }
    bool isNull(int index) const override { return sqlite3_value_type(m_values[index]) == SQLITE_NULL; }
    bool isText(int index) const override { return sqlite3_value_type(m_values[index]) == SQLITE_TEXT; }
    bool isWhole(int index) const override { return sqlite3_value_type(m_values[index]) == SQLITE_INTEGER; }
    double number(int index) const override { return sqlite3_value_double(m_values[index]); }
    std::string_view utf8(int index) const override
    {
        const auto* bytes = reinterpret_cast<const char*>(sqlite3_value_text(m_values[index]));
        return {bytes, static_cast<std::size_t>(sqlite3_value_bytes(m_values[index]))};
    }
    Value value(int index, Type type) const override { return argumentValue(m_values[index], type); }

private:
    int m_count;
    sqlite3_value** m_values;
};

/// Computes a call; what that throws becomes the failure of the statement.
void call(sqlite3_context* context, int count, sqlite3_value** values)
{
    try {
        const auto& computation = *static_cast<const Computation*>(sqlite3_user_data(context));
        const CallArguments arguments(count, values);
        if (!computation.answersNull && arguments.anyNull()) return sqlite3_result_null(context);
        resultValue(context, computation.of(arguments));
    } catch (const Error& error) {
        resultError(context, error);
    } catch (const std::bad_alloc&) {
        sqlite3_result_error_nomem(context);
    }
}

void registerCall(sqlite3* connection, const QByteArray& name, int arguments, const Computation& computation)
{
    sqlite3_create_function_v2(connection, name.constData(), arguments, Flags,
                               const_cast<Computation*>(&computation), // handed back to call() as it is
                               call, nullptr, nullptr, nullptr);
}

Value fold(const Arguments& a)
{
    return Value(sys::trimBlanks(a.text(0).toLower()));
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

void registerKeyed(sqlite3* connection, const char* name,
                   void (*keep)(sqlite3_context*, int, sqlite3_value**))
{
    sqlite3_create_function_v2(connection, name, 2, Flags, nullptr, nullptr, keep, finishKeyed, nullptr);
}

} // namespace

QByteArray calledHere(const Function& function)
{
    const QByteArray name = function.name.toLatin1().toLower();
    const bool isOurs = function.computation.of || function.kind >= FunctionKind::First;
    if (isOurs) return "jet_" + name;
    return name == "len" ? "length" : name;
}

void registerFunctions(sqlite3* connection)
{
    static constexpr Computation Fold{fold};
    for (const Function& function : functions())
        if (function.computation.of)
            registerCall(connection, calledHere(function), static_cast<int>(std::strlen(function.arguments)),
                         function.computation);
    for (const Operator& row : operators())
        registerCall(connection, QByteArray("jet_") + row.name, row.arguments, row.computation);
    registerCall(connection, FoldFunction, 1, Fold);
    registerKeyed(connection, "jet_first", keepKeyed<true>);
    registerKeyed(connection, "jet_last", keepKeyed<false>);
}

} // namespace jet::sqlite
