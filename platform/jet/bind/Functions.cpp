#include "platform/jet/bind/Functions.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace jet::bind {

namespace {

using K = FunctionKind;

// clang-format off
constexpr Function Functions[] = {
    {u"IIF",    "CAA", Type::Null,    K::IIf,       "iif"},
    {u"ISNULL", "A",   Type::Boolean, K::IsNull,    ""},
    {u"LCASE",  "T",   Type::Text,    K::Scalar,    "jet_lcase"},
    {u"UCASE",  "T",   Type::Text,    K::Scalar,    "jet_ucase"},
    {u"TRIM",   "T",   Type::Text,    K::Scalar,    "trim"}, // blanks only, there as here
    {u"LTRIM",  "T",   Type::Text,    K::Scalar,    "ltrim"},
    {u"RTRIM",  "T",   Type::Text,    K::Scalar,    "rtrim"},
    {u"LEN",    "T",   Type::Long,    K::Scalar,    "length"},
    {u"LEFT",   "TN",  Type::Text,    K::Scalar,    "jet_left"},
    {u"RIGHT",  "TN",  Type::Text,    K::Scalar,    "jet_right"},
    {u"MID",    "TN",  Type::Text,    K::Scalar,    "jet_mid"},
    {u"MID",    "TNN", Type::Text,    K::Scalar,    "jet_mid"},
    {u"INSTR",  "TT",  Type::Long,    K::Scalar,    "jet_instr"},
    {u"INSTR",  "NTT", Type::Long,    K::Scalar,    "jet_instr"},
    {u"ROUND",  "N",   Type::Double,  K::Scalar,    "jet_round"},
    {u"ROUND",  "NN",  Type::Double,  K::Scalar,    "jet_round"},
    {u"INT",    "N",   Type::Double,  K::Scalar,    "jet_int"},
    {u"FIX",    "N",   Type::Double,  K::Scalar,    "jet_fix"},
    {u"ABS",    "N",   Type::Null,    K::Scalar,    "abs"},
    {u"CINT",   "N",   Type::Long,    K::Scalar,    "jet_cint"},
    {u"CLNG",   "N",   Type::Long,    K::Scalar,    "jet_clng"},
    {u"CDBL",   "X",   Type::Double,  K::Scalar,    "jet_cdbl"},
    {u"ISNUMERIC", "X", Type::Boolean, K::Scalar,   "jet_isnumeric"},
    {u"BEGINS", "ATT", Type::Boolean, K::Scalar,    "jet_begins"},
    {u"YEAR",   "D",   Type::Long,    K::Scalar,    "jet_year"},
    {u"MONTH",  "D",   Type::Long,    K::Scalar,    "jet_month"},
    {u"DAY",    "D",   Type::Long,    K::Scalar,    "jet_day"},
    {u"SUM",    "N",   Type::Double,  K::Aggregate, "sum"},
    {u"AVG",    "N",   Type::Double,  K::Aggregate, "avg"},
    {u"MIN",    "A",   Type::Null,    K::Aggregate, "min"},
    {u"MAX",    "A",   Type::Null,    K::Aggregate, "max"},
    {u"COUNT",  "A",   Type::Long,    K::Count,     "count"},
    {u"FIRST",  "A",   Type::Null,    K::First,     "jet_first"},
    {u"LAST",   "A",   Type::Null,    K::Last,      "jet_last"},
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

bool isAggregate(const Function& function)
{
    return function.kind >= FunctionKind::Aggregate;
}

} // namespace jet::bind
