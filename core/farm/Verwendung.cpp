#include "core/farm/Verwendung.h"

#include "core/farm/Betriebe.h"
#include "core/farm/Dateien.h"
#include "core/farm/Jahresdateien.h"
#include "platform/jet/TextLiteral.h"

#include <algorithm>

using namespace Qt::StringLiterals;

std::optional<Verwendung> verwendung(const QString& datenverzeichnis, QStringView spalte, const QString& text)
{
    const QString frage =
        u"SELECT TOP 1 ID FROM LAGERJOURNAL WHERE "_s + spalte.toString() + u" = "_s + jet::textLiteral(text);
    for (const QString& nummer : betriebe(datenverzeichnis)) {
        const QString ordner = betriebsordner(datenverzeichnis, nummer);
        auto jahre = jahresdateien(ordner);
        std::ranges::reverse(jahre);
        for (const int jahr : jahre) {
            const auto journal = oeffne(Dateiart::Lager, journaldatei(ordner, jahr));
            if (!journal->OpenRecordset(frage, jet::Kind::Snapshot)->Eof()) return Verwendung{nummer, jahr};
        }
    }
    return {};
}
