#include "core/farm/pruefung/Dateipruefung.h"

#include "core/farm/Schema.h"
#include "platform/jet/Engine.h"
#include "platform/jet/Errors.h"
#include "platform/system/CaughtError.h"

#include <zablager/FileError.h>

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

QString zurueckholen(Dateiart art)
{
    return art == Dateiart::Lager ? u"'zablager zurueckholen' holt eine Sicherung zurück"_s
                                  : u"die letzte Kopie aus dem Ordner 'sicherung' an ihre Stelle kopieren"_s;
}

} // namespace

Dateipruefung::Dateipruefung(Dateiart art, const QString& datei, Befunde& befunde)
{
    const QString name = QFileInfo(datei).fileName();
    const QString kopie = m_ordner.filePath(u"pruefling"_s);
    const auto grund = [&] { return sys::caughtError().text.replace(kopie, datei); };
    try {
        jet::engine().CopyUnopened(datei, kopie);
        m_kopie = jet::engine().OpenDatabase(kopie, verbindung(art));
        nenneSchaeden(art, name, befunde);
    } catch (const jet::Error& fehler) {
        if (fehler.number() == jet::ErrorNumber::DiskFull) throw; // there is no room for the copy
        befunde.nenne(Befundart::DateiBeschaedigt, name + u" lässt sich nicht lesen: "_s + grund(),
                      zurueckholen(art));
        m_kopie.reset();
    }
    if (!m_kopie) return;
    try {
        nenneStand(art, name, befunde);
    } catch (...) {
        befunde.nenne(Befundart::FalscherStand, name + u": "_s + grund(),
                      u"die neuere Lagerverwaltung verwenden"_s);
        m_kopie.reset();
    }
}

void Dateipruefung::nenneSchaeden(Dateiart art, const QString& name, Befunde& befunde)
{
    const auto schaeden = m_kopie->Faults();
    if (schaeden.isEmpty()) return;
    befunde.nenne(Befundart::DateiBeschaedigt,
                  name + (schaeden.size() == 1 ? u" hat eine schadhafte Stelle."_s
                                               : u" hat %1 schadhafte Stellen."_s.arg(schaeden.size())),
                  zurueckholen(art));
    m_kopie.reset();
}

void Dateipruefung::nenneStand(Dateiart art, const QString& name, Befunde& befunde)
{
    const QStringList fehlende = fehlendeIndices(*m_kopie, art);
    const Aktualisierung stand = bringeAufStand(*m_kopie, art);
    const QString abhilfe = u"'zablager aktualisieren' bringt sie auf den Stand"_s;
    if (stand.vorher != stand.nachher)
        befunde.nenne(Befundart::FalscherStand,
                      u"%1 hat den Stand %2, dieses Programm den Stand %3."_s.arg(name)
                          .arg(stand.vorher)
                          .arg(stand.nachher),
                      abhilfe);
    else
        for (const QString& index : fehlende)
            befunde.nenne(Befundart::IndexFehlt, name + u": Der Index '"_s + index + u"' fehlt."_s, abhilfe);
}
