#pragma once

#include <QString>

namespace jet {

/// Whether a text has the form of a LIKE pattern: * is any run of characters, ? is one, # one digit, [abc]
/// and [a-z] one of these, [!a-z] one other. Case does not count; % and _ are ordinary characters. \throws
/// Error InvalidArgument when a [ is not closed.
bool matches(const QString& text, const QString& pattern);

} // namespace jet
