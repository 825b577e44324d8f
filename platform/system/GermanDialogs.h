#pragma once

#include <QTranslator>

namespace sys {

/// While it lives, the toolkit's own dialogs (printer, files) that are made speak German, where its translations are
/// installed. Hosts keep their language.
class GermanDialogs {
public:
    GermanDialogs();

private:
    QTranslator m_translator; // leaves the application when it goes
};

} // namespace sys
