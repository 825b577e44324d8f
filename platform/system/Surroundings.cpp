#include "platform/system/Surroundings.h"

namespace sys {

Surroundings& surroundings()
{
    // never deleted: a static destroyed later may still report a message
    static Surroundings& theOne = *new Surroundings;
    return theOne;
}

} // namespace sys
