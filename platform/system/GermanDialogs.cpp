#include "platform/system/GermanDialogs.h"

#include <QCoreApplication>
#include <QEvent>
#include <QLibraryInfo>

using namespace Qt::StringLiterals;

namespace sys {

namespace {

class GermanMenu final : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* field, QEvent* event) override
    {
        if (event->type() != QEvent::ContextMenu) return false;
        const GermanDialogs german;
        return field->event(event);
    }
};

} // namespace

GermanDialogs::GermanDialogs()
{
    if (m_translator.load(u"qtbase_de"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&m_translator);
}

void makeMenuGerman(QObject& field)
{
    field.installEventFilter(new GermanMenu(&field));
}

} // namespace sys
