#pragma once

#include "platform/jet/value/Arguments.h"

#include <QStringView>

#include <span>

namespace jet {

enum class FunctionKind : quint8 { Scalar, IsNull, IIf, Aggregate, Count, First, Last };

/// A function of the dialect with one number of arguments; one that takes more or fewer has several rows.
struct Function {
    QStringView name;
    /// One letter an argument: T text, N number, X number or text, D date, C condition, A anything. Text is
    /// made of anything, a number of anything but text; all else is a type mismatch.
    const char* arguments;
    Type result; ///< Null: that of the first argument; for IIF the common one of both branches.
    FunctionKind kind;
    Computation computation; ///< None where every store computes it by itself.
};

/// The row of a function; -1: there is none of that name.
int findFunction(QStringView name, std::size_t arguments);
/// Whether the name is known with some number of arguments.
bool isFunction(QStringView name);
const Function& functionAt(int row);
std::span<const Function> functions();
bool isAggregate(const Function& function);

} // namespace jet
