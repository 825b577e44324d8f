#include "overview/Listenpapier.h"

#include "core/Modulzustand.h"
#include "core/Verzeichnisse.h"
#include "platform/jet/Engine.h"
#include "platform/jet/TextLiteral.h"
#include "platform/report/PrintControl.h"
#include "platform/report/ReportZurucksetzen.h"
#include "platform/system/Files.h"

using namespace Qt::StringLiterals;

Listenpapier::Listenpapier(QWidget* fenster) : m_druck(new report::PrintControl(fenster))
{
    m_druck->setObjectName(u"Report"_s);
}

void Listenpapier::drucke(const Auftrag& auftrag)
{
    const QString datei = m_ordner.filePath(auftrag.tabelle + u".mdb"_s);
    baue(datei, auftrag);
    report::ReportZurucksetzen(*m_druck);
    m_druck->setReportFileName(ProgrammVerzeichnis() + u"\\Report\\Lagerverwaltung\\"_s + auftrag.formular);
    m_druck->setDocumentName(auftrag.titel);
    m_druck->setDataFiles(0, datei);
    int formel = 0;
    const auto setze = [&](const QString& name, const QString& text) {
        m_druck->setFormulas(formel++, name + u" = "_s + jet::textLiteral(text));
    };
    setze(u"Betriebsnummer"_s, modulzustand().Betriebsnummer);
    setze(u"Betriebsname"_s, modulzustand().Betriebsname);
    for (const auto& [name, text] : auftrag.formeln)
        setze(name, text);
    m_druck->PrintReport();
}

void Listenpapier::baue(const QString& datei, const Auftrag& auftrag)
{
    if (sys::Exist(datei)) sys::Kill(datei);
    const auto neue = jet::engine().CreateDatabase(datei, u";LANGID=0x0409;CP=1252;COUNTRY=0"_s);
    QStringList spalten;
    for (const auto& [name, typ] : auftrag.spalten)
        spalten.append(name + u' ' + typ);
    neue->Execute(u"CREATE TABLE "_s + auftrag.tabelle + u" ("_s + spalten.join(u", "_s) + u')');
    neue->BeginTrans();
    const auto ziel = neue->OpenRecordset(auftrag.tabelle);
    for (const auto& zeile : auftrag.zeilen) {
        ziel->AddNew();
        for (std::size_t i = 0; i < zeile.size(); ++i)
            if (!zeile[i].isNull()) ziel->Set(auftrag.spalten[i].first, zeile[i]);
        ziel->Update();
    }
    neue->CommitTrans();
}
