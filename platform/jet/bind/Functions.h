#pragma once

#include "platform/jet/Value.h"

#include <QStringView>

namespace jet::bind {

enum class FunctionKind : quint8 { Scalar, IsNull, IIf, Aggregate, Count, First, Last };

/// A function of the dialect with one number of arguments; one that takes more or fewer has several rows.
struct Function {
    QStringView name;
    /// One letter an argument: T text, N number, X number or text, D date, C condition, A anything. Text is made of
    /// anything, a number of anything but text; all else is a type mismatch.
    const char* arguments;
    Type result; ///< Null: that of the first argument; for IIF the common one of both branches.
    FunctionKind kind;
    const char* sqlite; ///< The function that computes it there.
};

/// The row of a function; -1: there is none of that name.
int findFunction(QStringView name, std::size_t arguments);
/// Whether the name is known with some number of arguments.
bool isFunction(QStringView name);
const Function& functionAt(int row);
bool isAggregate(const Function& function);

} // namespace jet::bind
