#include "component/Zablager.h"

#include "core/farm/Sicherung.h"
#include "overview/LagerbestandNeu.h"
#include "platform/system/Application.h"

#include <zablager/DatabaseError.h>

#include <QApplication>

using namespace Qt::StringLiterals;

namespace {

bool hatBildschirm()
{
    return qobject_cast<QApplication*>(QCoreApplication::instance()) != nullptr;
}

void zeigeHauptbildschirm()
{
    if (!hatBildschirm())
        throw jet::Error(
            jet::ErrorNumber::NotSupported,
            u"Die Lagerverwaltung braucht einen Bildschirm, das aufrufende Programm hat keinen."_s);
    LagerbestandNeu(QApplication::activeWindow()).exec();
}

} // namespace

std::unique_ptr<Lagerverwaltungsdaten> Zablager::neu(const std::shared_ptr<Meldungsziele>& meldungen)
{
    const auto ziel = [meldungen] { return hatBildschirm() ? &meldungen->boxen : meldungen->desWirts; };
    return std::make_unique<Lagerverwaltungsdaten>(
        Lagerverwaltungsdaten::Anschluesse{.meldungen = ziel, .hauptbildschirm = &zeigeHauptbildschirm});
}

/// Whatever a host or a screen then books, the state before it can be had again.
Zablager::Zablager()
{
    sichereVorAenderungen();
}

QObject* Zablager::CreateObject(const QString& klasse)
{
    m_fehler.clear();
    if (klasse == u"ZABLAGER.Lagerverwaltungsdaten"_s) return neu(m_meldungen).release();
    m_fehler = u"Objekterstellung nicht möglich: Die Klasse '"_s + klasse + u"' gibt es nicht."_s;
    return nullptr;
}

QString Zablager::Version()
{
    return sys::applicationVersion();
}

std::unique_ptr<_Lagerverwaltungsdaten> Zablager::erzeuge()
{
    return neu(m_meldungen);
}
