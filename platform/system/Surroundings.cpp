#include "platform/system/Surroundings.h"

namespace sys {

Surroundings& surroundings()
{
    static Surroundings& theOne =
        *new Surroundings; // never deleted: a static destroyed later may still report a message
    return theOne;
}

} // namespace sys
