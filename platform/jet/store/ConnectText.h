#pragma once

#include <QString>

namespace jet {

/// "[type];key=value;..." taken apart. Keys and type count in any case, their order and blanks around them do
/// not.
struct ConnectText {
    QString password; ///< pwd
    QString database; ///< database: the file of a link
};

/// \throws Error UnknownDatabaseType when the type word is not empty, "Access" or "MS Access".
ConnectText readConnect(const QString& text);

} // namespace jet
