#include "platform/jet/TemplateCopy.h"

#include "platform/jet/Engine.h"
#include "platform/jet/store/Scopes.h"
#include "platform/jet/store/Session.h"
#include "platform/system/Files.h"

namespace jet {

void copyWhereMissing(const QString& templateFile, const QString& connect, const QString& target)
{
    if (sys::Exist(target)) return;
    if (!sys::Exist(templateFile)) return sys::CopyWhereMissing(templateFile, target); // tells of it
    const auto original = engine().OpenDatabase(templateFile, connect);
    const store::ReadScope whole(original->m_session->use().connection());
    original->m_session->use().forgetIfChanged(); // the lock comes with the first question
    sys::CopyWhereMissing(templateFile, target);
}

} // namespace jet
