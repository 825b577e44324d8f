#include "transfer/ampel/Systemfarbe.h"

#include <iterator>

namespace {

constexpr quint32 Systembit = 0x80000000;

/// In the order of the system colours' numbers. Button face is what classic dialogs are painted with, here
/// the window.
constexpr QPalette::ColorRole Rollen[] = {
    QPalette::Midlight,        //  0 scroll bar
    QPalette::Dark,            //  1 desktop
    QPalette::Highlight,       //  2 active title
    QPalette::Mid,             //  3 inactive title
    QPalette::Window,          //  4 menu
    QPalette::Base,            //  5 window
    QPalette::Shadow,          //  6 window frame
    QPalette::WindowText,      //  7 menu text
    QPalette::Text,            //  8 window text
    QPalette::HighlightedText, //  9 title text
    QPalette::Window,          // 10 active border
    QPalette::Window,          // 11 inactive border
    QPalette::Dark,            // 12 application workspace
    QPalette::Highlight,       // 13 selection
    QPalette::HighlightedText, // 14 selected text
    QPalette::Window,          // 15 button face
    QPalette::Mid,             // 16 button shadow
    QPalette::PlaceholderText, // 17 grey text
    QPalette::ButtonText,      // 18 button text
    QPalette::WindowText,      // 19 inactive title text
    QPalette::Light,           // 20 button highlight
    QPalette::Shadow,          // 21 dark shadow
    QPalette::Midlight,        // 22 light edge
    QPalette::ToolTipText,     // 23 tool tip text
    QPalette::ToolTipBase,     // 24 tool tip
};

} // namespace

QColor farbeZu(quint32 wert, const QPalette& palette)
{
    const quint32 unten = wert & 0xFF;
    if (!(wert & Systembit)) return QColor(int(unten), int(wert >> 8 & 0xFF), int(wert >> 16 & 0xFF));
    return palette.color(unten < std::size(Rollen) ? Rollen[unten] : QPalette::Window);
}
