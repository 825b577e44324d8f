#include "platform/system/CaughtError.h"

#include <zablager/DatabaseError.h>
#include <zablager/FileError.h>

namespace sys {

using namespace Qt::StringLiterals;

namespace {

constexpr int InternalError = 51; // what should not happen, such as lack of memory

} // namespace

CaughtError caughtError()
{
    try {
        throw;
    } catch (const jet::Error& error) {
        return {int(error.number()), error.text()};
    } catch (const FileError& error) {
        return {int(error.number()), error.text()};
    } catch (const std::exception& error) {
        return {InternalError, u"Interner Fehler: "_s + QString::fromUtf8(error.what())};
    } catch (...) { // a host's message place may throw anything
        return {InternalError, u"Interner Fehler."_s};
    }
}

} // namespace sys
