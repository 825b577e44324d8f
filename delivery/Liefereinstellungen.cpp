#include "delivery/Liefereinstellungen.h"

#include "core/Modulzustand.h"
#include "platform/system/Settings.h"

using namespace Qt::StringLiterals;

namespace {

// a longer name of a farm is cut: the user sees the line and can change it
constexpr qsizetype Zeilenlaenge = 100;

QString vorgabe(const QString& name, const QString& sonst)
{
    return sys::GetSetting(u"Lagerverwaltung"_s, name, sonst);
}

} // namespace

void ergaenzeLiefereinstellungen(jet::Database& journal)
{
    const auto einstellungen = journal.OpenRecordset(u"Liefereinstellungen"_s);
    if (!einstellungen->Eof()) return;
    einstellungen->AddNew();
    einstellungen->Set(u"Lieferscheinformular",
                       vorgabe(u"Lieferscheinformular"_s, u"Standardlieferschein.rpt"_s));
    einstellungen->Set(u"LieferscheinZeile1",
                       vorgabe(u"LieferscheinZeile1"_s, modulzustand().Betriebsname).left(Zeilenlaenge));
    einstellungen->Set(u"LieferscheinZeile2",
                       vorgabe(u"LieferscheinZeile2"_s, modulzustand().Betriebsadresse).left(Zeilenlaenge));
    einstellungen->Set(u"LieferscheinZeile3", vorgabe(u"LieferscheinZeile3"_s, {}).left(Zeilenlaenge));
    einstellungen->Set(u"LieferscheinZusatztext", vorgabe(u"LieferscheinZusatztext"_s, {}));
    einstellungen->Set(u"LieferscheinMitPreis", vorgabe(u"LieferscheinMitPreis"_s, u"False"_s));
    einstellungen->Update();
}
