#pragma once

#include "platform/jet/Value.h"

#include <optional>
#include <string_view>

namespace jet {

/// The arguments of one call of a function or operator, as whatever runs the statement has them. Counted from
/// 0.
class Arguments {
public:
    virtual ~Arguments() = default;
    virtual int count() const = 0;
    virtual bool isNull(int index) const = 0;
    virtual bool isText(int index) const = 0;
    virtual bool isWhole(int index) const = 0;
    virtual double number(int index) const = 0;
    virtual std::string_view utf8(int index) const = 0;  ///< Until the next call for the same argument.
    virtual Value value(int index, Type type) const = 0; ///< \throws Error ConversionFailed.

    QString text(int index) const;
    QDateTime date(int index) const { return value(index, Type::Date).toDateTime(); }
    bool anyNull() const;
    /// A number as it is, a text by German rules; no value: it is none.
    std::optional<double> readNumber(int index) const;
    /// A count of characters or a place among them. \throws Error InvalidArgument below `least`.
    int place(int index, int least) const;
};

/// How a call is computed.
struct Computation {
    Value (*of)(const Arguments& arguments) = nullptr;
    bool answersNull = false; ///< Else a call with NULL among its arguments is NULL.
};

} // namespace jet
