#include "overview/inventur/Zaehlpapier.h"

#include "core/Datumstext.h"
#include "core/Modulzustand.h"
#include "core/Verzeichnisse.h"
#include "platform/jet/Engine.h"
#include "platform/report/PrintControl.h"
#include "platform/report/ReportZurucksetzen.h"
#include "platform/system/Files.h"

using namespace Qt::StringLiterals;

Zaehlpapier::Zaehlpapier(QWidget* fenster) : m_druck(new report::PrintControl(fenster))
{
    m_druck->setObjectName(u"Report"_s);
}

void Zaehlpapier::drucke(const std::vector<Zaehlzeile>& zeilen, QDate tag, bool mitBestand)
{
    const Modulzustand& zustand = modulzustand();
    const QString datei = m_ordner.filePath(u"Zaehlliste.mdb"_s);
    baue(datei, zeilen);
    report::ReportZurucksetzen(*m_druck);
    m_druck->setReportFileName(ProgrammVerzeichnis() + u"\\Report\\Lagerverwaltung\\Zaehlliste.rpt"_s);
    m_druck->setDocumentName(u"Zählliste "_s + datumText(tag));
    m_druck->setDataFiles(0, datei);
    int formel = 0;
    for (const auto& [name, text] : {std::pair{u"Betriebsnummer"_s, zustand.Betriebsnummer},
                                     {u"Betriebsname"_s, zustand.Betriebsname},
                                     {u"Stichdatum"_s, datumText(tag)},
                                     {u"MitBestand"_s, mitBestand ? u"J"_s : u"N"_s}})
        m_druck->setFormulas(formel++, name + u" = '"_s + QString(text).replace(u'\'', u"''"_s) + u'\'');
    m_druck->PrintReport();
}

void Zaehlpapier::baue(const QString& datei, const std::vector<Zaehlzeile>& zeilen) const
{
    if (sys::Exist(datei)) sys::Kill(datei);
    const auto neue = jet::engine().CreateDatabase(datei, u";LANGID=0x0409;CP=1252;COUNTRY=0"_s);
    neue->Execute(u"CREATE TABLE ZAEHLLISTE (Artikel Text(50), LagerortKurzKu Text(15), Artikelart Text(25),"
                  u" Einheit Text(15), Bestand Double)"_s);
    neue->BeginTrans();
    const auto ziel = neue->OpenRecordset(u"ZAEHLLISTE"_s);
    for (const Zaehlzeile& zeile : zeilen) {
        ziel->AddNew();
        ziel->Set(u"Artikel", zeile.paar.Artikel);
        ziel->Set(u"LagerortKurzKu", zeile.paar.LagerortKurzKu);
        ziel->Set(u"Artikelart", zeile.Artikelart);
        ziel->Set(u"Einheit", zeile.Einheit);
        ziel->Set(u"Bestand", zeile.Bestand);
        ziel->Update();
    }
    neue->CommitTrans();
}
