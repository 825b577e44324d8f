#include "platform/jet/TemplateCopy.h"

#include "platform/jet/Engine.h"
#include "platform/system/Files.h"

namespace jet {

void copyWhereMissing(const QString& templateFile, const QString& connect, const QString& target)
{
    if (sys::Exist(target)) return;
    if (sys::Exist(templateFile)) engine().OpenDatabase(templateFile, connect)->Close();
    sys::CopyWhereMissing(templateFile, target); // tells of a missing one, too
}

} // namespace jet
