#pragma once

#include <QTranslator>

namespace sys {

/// While it lives, the toolkit's own dialogs (printer, files) that are made speak German, where its
/// translations are installed. Hosts keep their language.
class GermanDialogs {
public:
    GermanDialogs();

private:
    QTranslator m_translator; // leaves the application when it goes
};

/// Makes the context menu of a field of the toolkit's own class German; our classes do it themselves.
void makeMenuGerman(QObject& field);

} // namespace sys
