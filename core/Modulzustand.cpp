#include "core/Modulzustand.h"

Modulzustand& modulzustand()
{
    static Modulzustand zustand;
    return zustand;
}
