#pragma once

#include "platform/system/KeptFile.h"
#include "platform/system/Messages.h"
#include "platform/system/SettingsFile.h"

#include <QDate>

#include <functional>
#include <optional>
#include <vector>

namespace sys {

/// What this process finds around it and tests may set: the one mutable state of this room.
struct Surroundings {
    std::optional<QDate> day; ///< No value: the computer's clock.
    ConsoleMessages console;
    Messages* messages = &console;
    std::vector<std::function<void(const QString& path)>>
        letGo; ///< Asked before a file is copied, replaced or deleted.
    KeptFile settingsBytes;
    SettingsFile settings;
    std::function<void(const QString& text)> status; ///< None: no screen is open.
    QString title;                                   ///< Of message boxes; empty: the program's name.
    int hourglasses = 0; ///< Override cursors of ours; a host may have set others.
};

/// Lives from its first use to the end of the process, so that it serves constructors and destructors of
/// statics too.
Surroundings& surroundings();

} // namespace sys
