#include "platform/system/Clipboard.h"

#include <QClipboard>
#include <QGuiApplication>

namespace sys {

void setClipboardText(const QString& text)
{
    if (qobject_cast<QGuiApplication*>(QCoreApplication::instance()))
        QGuiApplication::clipboard()->setText(text);
}

} // namespace sys
