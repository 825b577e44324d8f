#include "platform/system/Pointer.h"

#include "platform/system/Surroundings.h"

#include <QCursor>
#include <QGuiApplication>

namespace sys {

namespace {

bool hasScreen()
{
    return qobject_cast<QGuiApplication*>(QCoreApplication::instance()) != nullptr;
}

} // namespace

void MausWarten()
{
    if (!hasScreen()) return;
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    ++surroundings().hourglasses;
}

void MausNormal()
{
    if (!hasScreen() || surroundings().hourglasses == 0) return;
    QGuiApplication::restoreOverrideCursor();
    --surroundings().hourglasses;
}

void resetPointer()
{
    while (surroundings().hourglasses > 0)
        MausNormal();
}

} // namespace sys
