#include "platform/jet/value/Functions.h"

#include "platform/jet/Errors.h"
#include "platform/jet/Rounding.h"
#include "platform/jet/ShownText.h"
#include "platform/jet/value/WholeNumber.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <iterator>
#include <string>

namespace jet {

namespace {

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

Value rounded(const Arguments& a)
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

Value toShort(const Arguments& a)
{
    return Value(static_cast<qint64>(wholeWithin(a.number(0), -32768, 32767)));
}

Value toLong(const Arguments& a)
{
    return Value(static_cast<qint64>(fourBytes(a.number(0))));
}

Value toDouble(const Arguments& a)
{
    const auto number = a.readNumber(0);
    if (!number) raise(ErrorNumber::ConversionFailed);
    return *number;
}

/// Whether CDBL would read it.
Value isNumeric(const Arguments& a)
{
    return Value(!a.anyNull() && a.readNumber(0));
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

bool showsBeginning(const Arguments& a)
{
    const QString format = a.text(1);
    const Value value = a.value(0, format == DayFormat ? Type::Date : Type::Null);
    return shownText(value, format).startsWith(a.text(2), Qt::CaseInsensitive);
}

/// value, format, word: whether what a list shows of the value begins with the word, in any case. In the
/// order of an index the texts of the next row are mostly the same, so the last answer is kept with what was
/// asked.
Value begins(const Arguments& a)
{
    struct Asked {
        std::array<std::string, 3> texts;
        bool answer = false;
    };
    thread_local Asked asked;
    if (!a.isText(0)) return showsBeginning(a);
    const std::array texts{a.utf8(0), a.utf8(1), a.utf8(2)};
    if (std::equal(texts.begin(), texts.end(), asked.texts.begin())) return asked.answer;
    const bool answer = showsBeginning(a);
    asked = {{std::string(texts[0]), std::string(texts[1]), std::string(texts[2])}, answer};
    return answer;
}

using K = FunctionKind;

// clang-format off
constexpr Function Functions[] = {
    {u"IIF",    "CAA", Type::Null,    K::IIf,       {}},
    {u"ISNULL", "A",   Type::Boolean, K::IsNull,    {}},
    {u"LCASE",  "T",   Type::Text,    K::Scalar,    {lowerCase}},
    {u"UCASE",  "T",   Type::Text,    K::Scalar,    {upperCase}},
    {u"TRIM",   "T",   Type::Text,    K::Scalar,    {}}, // blanks only, there as here
    {u"LTRIM",  "T",   Type::Text,    K::Scalar,    {}},
    {u"RTRIM",  "T",   Type::Text,    K::Scalar,    {}},
    {u"LEN",    "T",   Type::Long,    K::Scalar,    {}},
    {u"LEFT",   "TN",  Type::Text,    K::Scalar,    {left}},
    {u"RIGHT",  "TN",  Type::Text,    K::Scalar,    {right}},
    {u"MID",    "TN",  Type::Text,    K::Scalar,    {mid}},
    {u"MID",    "TNN", Type::Text,    K::Scalar,    {mid}},
    {u"INSTR",  "TT",  Type::Long,    K::Scalar,    {inStr}},
    {u"INSTR",  "NTT", Type::Long,    K::Scalar,    {inStr}},
    {u"ROUND",  "N",   Type::Double,  K::Scalar,    {rounded}},
    {u"ROUND",  "NN",  Type::Double,  K::Scalar,    {rounded}},
    {u"INT",    "N",   Type::Double,  K::Scalar,    {floored}},
    {u"FIX",    "N",   Type::Double,  K::Scalar,    {truncated}},
    {u"ABS",    "N",   Type::Null,    K::Scalar,    {}},
    {u"CINT",   "N",   Type::Long,    K::Scalar,    {toShort}},
    {u"CLNG",   "N",   Type::Long,    K::Scalar,    {toLong}},
    {u"CDBL",   "X",   Type::Double,  K::Scalar,    {toDouble}},
    {u"ISNUMERIC", "X", Type::Boolean, K::Scalar,   {isNumeric, true}},
    {u"BEGINS", "ATT", Type::Boolean, K::Scalar,    {begins}},
    {u"YEAR",   "D",   Type::Long,    K::Scalar,    {yearOf}},
    {u"MONTH",  "D",   Type::Long,    K::Scalar,    {monthOf}},
    {u"DAY",    "D",   Type::Long,    K::Scalar,    {dayOf}},
    {u"SUM",    "N",   Type::Double,  K::Aggregate, {}},
    {u"AVG",    "N",   Type::Double,  K::Aggregate, {}},
    {u"MIN",    "A",   Type::Null,    K::Aggregate, {}},
    {u"MAX",    "A",   Type::Null,    K::Aggregate, {}},
    {u"COUNT",  "A",   Type::Long,    K::Count,     {}},
    {u"FIRST",  "A",   Type::Null,    K::First,     {}},
    {u"LAST",   "A",   Type::Null,    K::Last,      {}},
};
// clang-format on

} // namespace

int findFunction(QStringView name, std::size_t arguments)
{
    const auto* found = std::find_if(std::begin(Functions), std::end(Functions), [&](const Function& row) {
        return std::strlen(row.arguments) == arguments && row.name.compare(name, Qt::CaseInsensitive) == 0;
    });
    return found == std::end(Functions) ? -1 : static_cast<int>(found - std::begin(Functions));
}

bool isFunction(QStringView name)
{
    return std::any_of(std::begin(Functions), std::end(Functions),
                       [&](const Function& row) { return row.name.compare(name, Qt::CaseInsensitive) == 0; });
}

const Function& functionAt(int row)
{
    return Functions[row];
}

std::span<const Function> functions()
{
    return Functions;
}

bool isAggregate(const Function& function)
{
    return function.kind >= FunctionKind::Aggregate;
}

} // namespace jet
