#include "component/Zablager.h"

#include "core/Lagerverwaltungsdaten.h"

using namespace Qt::StringLiterals;

namespace {

std::unique_ptr<Lagerverwaltungsdaten> lagerverwaltungsdaten(const std::shared_ptr<sys::Messages*>& meldungen)
{
    return std::make_unique<Lagerverwaltungsdaten>([meldungen] { return *meldungen; });
}

} // namespace

QObject* Zablager::CreateObject(const QString& klasse)
{
    m_fehler.clear();
    if (klasse == u"ZABLAGER.Lagerverwaltungsdaten"_s) return lagerverwaltungsdaten(m_meldungen).release();
    m_fehler =
        u"Objekterstellung durch ActiveX-Komponente nicht möglich: Die Klasse '"_s + klasse + u"' gibt es nicht."_s;
    return nullptr;
}

std::unique_ptr<_Lagerverwaltungsdaten> Zablager::erzeuge()
{
    return lagerverwaltungsdaten(m_meldungen);
}
