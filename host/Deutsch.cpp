#include "host/Deutsch.h"

#include <algorithm>
#include <iterator>
#include <string_view>

using namespace Qt::StringLiterals;

namespace {

struct Eintrag {
    std::string_view englisch;
    QStringView deutsch;
};

constexpr Eintrag Eintraege[] = {
    {"Usage: %1", u"Aufruf: %1"},
    {"[options]", u"[Optionen]"},
    {"Options:", u"Optionen:"},
    {"Arguments:", u"Befehl:"},
    {"Unknown option '%1'.", u"Die Option '%1' gibt es nicht."},
    {"Unknown options: %1.", u"Diese Optionen gibt es nicht: %1."},
    {"Missing value after '%1'.", u"Nach '%1' fehlt der Wert."},
    {"Unexpected value after '%1'.", u"'%1' nimmt keinen Wert."},
};

} // namespace

QString Deutsch::translate(const char* kontext, const char* text, const char*, int) const
{
    if (std::string_view(kontext) != "QCommandLineParser") return {};
    const auto* const gefunden = std::find_if(std::begin(Eintraege), std::end(Eintraege),
                                              [text](const Eintrag& e) { return e.englisch == text; });
    return gefunden == std::end(Eintraege) ? QString() : gefunden->deutsch.toString();
}
