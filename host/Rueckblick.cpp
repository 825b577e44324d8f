#include "host/Rueckblick.h"

#include "host/Einrichtung.h"
#include "platform/system/Files.h"
#include "platform/system/Path.h"
#include "platform/system/Settings.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

constexpr QFile::Permissions NurLesen = QFile::ReadOwner | QFile::ExeOwner;

} // namespace

Rueckblick::Rueckblick(const Installation& ort, const QString& betrieb,
                       const std::map<int, Sicherung>& staende)
    : m_ort(m_ordner.path())
{
    const QString ordner = m_ort.betriebsordner(betrieb);
    for (const QString& pfad : {ordner, m_ort.anlagen(), m_ort.einstellungen()})
        legeVerzeichnisAn(pfad);
    sys::FileCopy(sys::localPath(grundstammdatei(ort.daten())), grundstammdatei(m_ort.daten()));
    sys::FileCopy(sys::localPath(anlagendatei(ort.anlagen())), anlagendatei(m_ort.anlagen()));
    const QString einstellungen = u"/ZAB - Programme.ini"_s;
    if (sys::Exist(ort.einstellungen() + einstellungen))
        sys::FileCopy(ort.einstellungen() + einstellungen, m_ort.einstellungen() + einstellungen);
    for (const auto& [jahr, stand] : staende) {
        m_gesperrte.append(m_ort.journaldatei(betrieb, jahr));
        sys::FileCopy(stand.datei, m_gesperrte.back());
    }
    m_gesperrte.append(ordner);
    m_ort.verwende();
    sys::SaveSetting(u"Gemeinsame"_s, u"Verzeichnisname"_s,
                     ort.programm()); // forms and registers stay where they are
    for (const QString& pfad : m_gesperrte)
        QFile::setPermissions(pfad, NurLesen);
}

Rueckblick::~Rueckblick()
{
    for (const QString& pfad : m_gesperrte)
        QFile::setPermissions(pfad, NurLesen | QFile::WriteOwner);
}
