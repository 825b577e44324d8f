#pragma once

#include <QString>

namespace report {

/// Where in what the user has given something stands: "Das Berichtsformular '...', Zeile 12" or "Die Formel
/// 'X'".
struct Place {
    QString name;

    /// \throws jet::Error InvalidArgument: the place, a colon and what is wrong there.
    [[noreturn]] void refuse(const QString& what) const;
};

/// A line of a report form, from 1.
Place formPlace(const QString& file, qint64 line);

} // namespace report
