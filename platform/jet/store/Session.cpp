#include "platform/jet/store/Session.h"

#include "platform/jet/Errors.h"

#include <algorithm>
#include <iterator>
#include <utility>

using namespace Qt::StringLiterals;

namespace jet {

namespace {

/// What also comes of a file that was emptied, cut or overwritten while it was open.
bool comesOfDamage(ErrorNumber number)
{
    using enum ErrorNumber;
    constexpr ErrorNumber Numbers[] = {ReservedError, TooFewParameters, ObjectNotFound,
                                       UnknownTable,  UnknownFormat,    NoSuchTable};
    return std::ranges::find(Numbers, number) != std::end(Numbers);
}

/// What is said of a statement or a value, and is told of which file it was asked.
bool needsFile(ErrorNumber number)
{
    using enum ErrorNumber;
    constexpr ErrorNumber Numbers[] = {Overflow,     ReservedError, ReadOnly,     TooFewParameters,
                                       UnknownTable, NoSuchField,   TypeMismatch, ConversionFailed};
    return std::ranges::find(Numbers, number) != std::end(Numbers);
}

} // namespace

OpenFile& Database::Session::use() const
{
    if (!file) raise(ErrorNumber::ObjectClosed);
    return *file;
}

bool Database::Session::hasTransaction()
{
    transaction = transaction && use().connection().inTransaction(); // a full disk ends it by itself
    return transaction;
}

void Database::Session::undo()
{
    if (hasTransaction()) file->connection().rollback();
    transaction = false;
}

void Database::Session::tell(const Error& error) const
{
    if (comesOfDamage(error.number()) && file && !file->connection().inTransaction()) requireDatabase(path);
    throw needsFile(error.number()) ? named(error, u"Datei"_s, path) : error;
}

void Database::Session::letGo()
{
    giveBack(std::exchange(file, nullptr));
}

} // namespace jet
