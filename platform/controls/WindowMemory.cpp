#include "platform/controls/WindowMemory.h"

#include "platform/system/Settings.h"

#include <QScreen>
#include <QStyle>
#include <QWidget>

QSize roomFor(const QWidget& window)
{
    const QWidget* const below = window.parentWidget() ? window.parentWidget()->window() : nullptr;
    const int border = window.style()->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth, nullptr, &window);
    const int titleBar = 5 * window.fontMetrics().lineSpacing() / 2; // the highest that desktops draw
    QSize frame(2 * border, titleBar + border);
    if (below) frame = frame.expandedTo(below->frameGeometry().size() - below->size());
    return (below ? below : &window)->screen()->availableGeometry().size() - frame;
}

void restoreWindow(QWidget& window, const QString& section, const QString& key)
{
    window.restoreGeometry(QByteArray::fromBase64(sys::GetSetting(section, key).toLatin1()));
}

void rememberWindow(const QWidget& window, const QString& section, const QString& key)
{
    sys::SaveSetting(section, key, QString::fromLatin1(window.saveGeometry().toBase64()));
}
