#include "platform/controls/WindowMemory.h"

#include "platform/system/Settings.h"

#include <QWidget>

void restoreWindow(QWidget& window, const QString& section, const QString& key)
{
    window.restoreGeometry(QByteArray::fromBase64(sys::GetSetting(section, key).toLatin1()));
}

void rememberWindow(const QWidget& window, const QString& section, const QString& key)
{
    sys::SaveSetting(section, key, QString::fromLatin1(window.saveGeometry().toBase64()));
}
