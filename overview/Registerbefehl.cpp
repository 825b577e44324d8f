#include "overview/Registerbefehl.h"

#include "core/TextImEditorZeigen.h"
#include "core/Verzeichnisse.h"
#include "core/farm/Artikelarten.h"
#include "core/farm/Dateien.h"
#include "overview/Filter.h"
#include "overview/Hilfetaste.h"
#include "overview/Registerhinweis.h"
#include "overview/Registerpruefung.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/DataControl.h"
#include "platform/controls/DateCombo.h"
#include "platform/controls/Wiring.h"
#include "platform/system/Files.h"
#include "platform/system/Messages.h"
#include "platform/system/Path.h"
#include "platform/system/Pointer.h"

using namespace Qt::StringLiterals;

Registerbefehl::Registerbefehl(const Felder& felder, std::function<bool()> filtere, QObject* bildschirm)
    : QObject(bildschirm), m_felder(felder), m_filtere(std::move(filtere))
{
    verdrahte(&felder.M_PflanzschPrufen, &QAction::triggered, this, [this] { M_PflanzschPrufen_Click(); });
}

void Registerbefehl::M_PflanzschPrufen_Click()
{
    const QString Jahr = m_felder.drpJahr.Text();
    const QString datei = stammdatei(ProgrammVerzeichnis(), Jahr);
    if (!sys::Exist(datei)) {
        sys::critical(u"Die für die Prüfung notwendige Stammdatenbank mit der Bezeichnung "_s +
                      sys::localPath(datei) +
                      u" ist nicht vorhanden.\r\n\r\nDie Prüfung kann nicht durchgeführt werden.\r\n\r\n"_s +
                      registerhinweis(Jahr));
        return;
    }
    std::optional<QString> befund;
    {
        const sys::Hourglass warten;
        if (!grenzeEin(Jahr.toInt())) return; // other rows would be given the all-clear
        const auto stamm = oeffne(Dateiart::ZABStammdaten, datei);
        befund = registerpruefung(m_felder.Bestanddaten.Recordset(), *stamm, Jahr.toInt());
    }
    const Hilfeseite seite(*parent(), u"pruefen"_s);
    if (befund) TextImEditorZeigen(*befund);
}

/// The stock list then holds the year's plant-protection products, one line a storage place unless they are
/// shown in sum, and without those of which nothing is left where the user hides them. It stays so after the
/// check.
bool Registerbefehl::grenzeEin(int Jahr)
{
    m_felder.drpLagerOrte.setText(AlleLagerorte);
    m_felder.drpArtikelGruppe.setText(Pflanzenschutzmittel.toString());
    m_felder.drpArtikel.setText(AlleArtikel);
    m_felder.VonDatum.setDate(QDate(Jahr, 1, 1));
    m_felder.Buchdatum.setDate(QDate(Jahr, 12, 31));
    return m_filtere();
}
