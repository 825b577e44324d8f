#include "platform/system/GermanDialogs.h"

#include <QCoreApplication>
#include <QLibraryInfo>

using namespace Qt::StringLiterals;

namespace sys {

GermanDialogs::GermanDialogs()
{
    if (m_translator.load(u"qtbase_de"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&m_translator);
}

} // namespace sys
