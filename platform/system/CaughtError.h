#pragma once

#include <QString>

namespace sys {

/// What users and hosts are told of an exception.
struct CaughtError {
    /// That of a jet::Error or sys::FileError; 51, the classic internal error, for everything else.
    int number = 0;
    QString text;
};

/// The exception that is being handled; only inside a catch block.
CaughtError caughtError();

} // namespace sys
