#include "overview/Jahreswahl.h"

#include "core/JahresUbertrag.h"
#include "core/Journaldatei.h"
#include "core/Modulzustand.h"
#include "core/Verzeichnisse.h"
#include "core/farm/Schema.h"
#include "overview/Statusmeldung.h"
#include "platform/controls/Wiring.h"
#include "platform/family/DatabaseFile.h"
#include "platform/system/ErrorReport.h"
#include "platform/system/Files.h"

using namespace Qt::StringLiterals;

Jahreswahl::Jahreswahl(const Felder& felder, std::function<void(int)> zeigt, QObject* bildschirm)
    : QObject(bildschirm), m_felder(felder), m_zeigt(std::move(zeigt)),
      m_meldungen([this](const QString& text) {
          m_stoerung = text.isEmpty() ? text : u" · "_s + text;
          zeigeStatus();
          m_felder.Statuszeile.repaint(); // nobody may be back in the event loop for seconds
      })
{
    felder.drpJahr.setListOnly(true);
    felder.drpJahr.setColumns({u"Jahr"_s}, 0);
    verdrahte(&felder.drpJahr, &ComboBox::DropDown, this, &Jahreswahl::fuelleJahre);
}

void Jahreswahl::waehle(int jahr)
{
    m_felder.drpJahr.setText(QString::number(jahr));
    fuelleJahre();
}

int Jahreswahl::gewaehltesJahr() const
{
    const QString jahr = m_felder.drpJahr.Text();
    if (jahr.toInt() < 1000 || jahr.size() != 4)
        throw jet::Error(jet::ErrorNumber::InvalidArgument, u"'"_s + jahr + u"' ist kein Jahr."_s);
    return jahr.toInt();
}

void Jahreswahl::binde()
{
    Modulzustand& zustand = modulzustand();
    const QString datei = Journaldatei(gewaehltesJahr());
    const QString vorlage = vorlagedatei(ProgrammVerzeichnis());
    if (sys::Exist(vorlage)) {
        if (!sys::Exist(datei)) verweigereNeuere(Dateiart::Lager, vorlage, zustand.Lagerpasswort);
        DatabaseFile jahresdatei;
        jahresdatei.setPassword(zustand.Lagerpasswort);
        jahresdatei.setFileName(datei);
        jahresdatei.setTemplate(vorlage);
        jahresdatei.Provide();
    }
    if (sys::Exist(datei)) bringeAufStandWennMoeglich(Dateiart::Lager, datei, zustand.Lagerpasswort);
    zustand.Lagerdatei = datei;
    zustand.Jahr = m_felder.drpJahr.Text(); // the year that masks book into, whatever the key date becomes
    for (DataControl* daten : {&m_felder.Journaldaten, &m_felder.Bestanddaten}) {
        daten->setDatabaseName(datei);
        daten->setConnect(zustand.Lagerpasswort);
    }
}

void Jahreswahl::LagerDateiEinstellen()
{
    binde();
    for (DataControl* daten : {&m_felder.Journaldaten, &m_felder.Bestanddaten})
        daten->Refresh();
    zeigeJahr();
}

void Jahreswahl::zeigeJahr()
{
    m_gebundenesJahr = modulzustand().Jahr;
    m_zeigt(m_gebundenesJahr.toInt());
    zeigeStatus();
}

void Jahreswahl::zeigeStatus(const QString& hinweis)
{
    m_felder.Statuszeile.setText(u"Betrieb "_s + modulzustand().Betriebsnummer + u" · Lager."_s +
                                 m_gebundenesJahr + hinweis + m_stoerung);
}

bool Jahreswahl::wechsle()
{
    const QDate Stichdatum = modulzustand().Stichdatum;
    const auto ausgang = sys::underErrorReport({
        [this] { modulzustand().Stichdatum = QDate(gewaehltesJahr() - 1, 1, 1); },
        [this] { schreibeWeiter(); },
        [this] { LagerDateiEinstellen(); },
    });
    if (ausgang != sys::Outcome::Left && m_gebundenesJahr == m_felder.drpJahr.Text()) return true;
    modulzustand().Stichdatum = Stichdatum;
    kehreZurueck();
    return false;
}

void Jahreswahl::schreibeWeiter()
{
    const Statusmeldung meldung(m_felder.Statuszeile, u"Die Bestände werden weitergeschrieben ..."_s);
    JahresUbertrag();
}

void Jahreswahl::fuelleJahre()
{
    m_felder.drpJahr.Clear();
    for (const int jahr : journaljahre())
        m_felder.drpJahr.AddItem(QString::number(jahr));
}

void Jahreswahl::kehreZurueck()
{
    if (!istGebunden()) return;
    m_felder.drpJahr.setText(m_gebundenesJahr);
    if (modulzustand().Jahr != m_gebundenesJahr) sys::underErrorReport({[this] { binde(); }});
}
