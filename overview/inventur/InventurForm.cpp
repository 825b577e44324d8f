#include "overview/inventur/InventurForm.h"

#include "core/Datumstext.h"
#include "core/Journaldatei.h"
#include "core/Modulzustand.h"
#include "core/inventur/Zaehlung.h"
#include "overview/Bildschirmzustand.h"
#include "overview/Filter.h"
#include "overview/inventur/Inventurmodell.h"
#include "overview/inventur/Zaehlpapier.h"
#include "overview/inventur/Zaehltabelle.h"
#include "platform/controls/CheckBox.h"
#include "platform/controls/CheckedField.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/DateCombo.h"
#include "platform/controls/WindowMemory.h"
#include "platform/controls/Wiring.h"
#include "platform/report/ProgressBox.h"
#include "platform/system/Clock.h"
#include "platform/system/ErrorReport.h"
#include "platform/system/Messages.h"
#include "platform/system/Pointer.h"

#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize Inventurgroesse(980, 600);
const QString Inventurfenster = u"FensterInventurForm"_s; // in the settings

int offenesJahr()
{
    return modulzustand().Jahr.toInt();
}

/// Today, or the last day of a year that is over or has not begun.
QDate letzterTag()
{
    const QDate heute = sys::heute();
    return heute.year() == offenesJahr() ? heute : QDate(offenesJahr(), 12, 31);
}

/// As it is printed: what was counted is to be written into it.
SheetRows zaehltabelle(const std::vector<Zaehlzeile>& zeilen, bool mitBestand)
{
    const auto werte = [zeilen, mitBestand](int erste, int anzahl) {
        std::vector<std::vector<jet::Value>> alle;
        for (int i = erste; i < erste + anzahl; ++i) {
            const Zaehlzeile& zeile = zeilen[static_cast<std::size_t>(i)];
            alle.push_back({zeile.paar.Artikel, zeile.paar.LagerortKurzKu, zeile.Artikelart,
                            mitBestand ? jet::Value(zeile.Bestand) : jet::Value(), zeile.Einheit,
                            zeile.Gezaehlt ? jet::Value(*zeile.Gezaehlt) : jet::Value()});
        }
        return alle;
    };
    return {{{u"Artikel"_s, {}},
             {u"Lagerort"_s, {}},
             {u"Artikelgruppe"_s, {}},
             {u"Bestand"_s, Inventurmodell::Mengenformat, Qt::AlignRight},
             {u"Einheit"_s, {}},
             {u"Gezählt"_s, Inventurmodell::Mengenformat, Qt::AlignRight}},
            qsizetype(zeilen.size()),
            werte};
}

QString zeilen(int anzahl)
{
    return QString::number(anzahl) + (anzahl == 1 ? u" Zeile"_s : u" Zeilen"_s);
}

} // namespace

InventurForm::InventurForm(QWidget* parent)
    : QDialog(parent), m_datei(modulzustand().Lagerdatei), Zaehltag(new DateCombo), drpLagerort(new ComboBox),
      drpArtikelgruppe(new ComboBox), m_tabelle(new Zaehltabelle),
      m_modell(new Inventurmodell([this](const Paar& paar, auto gezaehlt) { m_datei.merke(paar, gezaehlt); },
                                  this)),
      chkMitBestand(new CheckBox), m_stand(new QLabel), m_papier(this)
{
    setObjectName(u"InventurForm"_s);
    setWindowTitle(u"Inventur "_s + modulzustand().Jahr);
    Zaehltag->setObjectName(u"Zaehltag"_s);
    drpLagerort->setObjectName(u"drpLagerort"_s);
    drpArtikelgruppe->setObjectName(u"drpArtikelgruppe"_s);
    m_stand->setObjectName(u"Stand"_s);
    chkMitBestand->setObjectName(u"chkMitBestand"_s);
    chkMitBestand->setText(u"mit Be&stand"_s);
    m_tabelle->setObjectName(u"Zaehlliste"_s);
    m_tabelle->setAccessibleName(u"Zählliste"_s);
    m_tabelle->setModel(m_modell);
    auto* const hinweis =
        new QLabel(u"Tippen Sie in der Spalte „Gezählt“, was daliegt; Eingabe geht zur nächsten Zeile,"
                   u" Entf nimmt eine Zahl zurück, Buchstaben suchen den Artikel. Was leer bleibt,"
                   u" wird nicht gebucht."_s);
    hinweis->setWordWrap(true);
    auto* const alles = new QVBoxLayout(this);
    alles->addLayout(errichteKopf());
    alles->addWidget(m_tabelle);
    alles->addWidget(m_stand);
    alles->addWidget(hinweis);
    alles->addLayout(errichteKnoepfe());
    verdrahte(Zaehltag, &DateCombo::Change, this, &InventurForm::waehleTag);
    for (ComboBox* const liste : {drpLagerort, drpArtikelgruppe})
        verdrahte(liste, &ComboBox::Click, this, &InventurForm::zeige);
    connect(m_modell, &QAbstractItemModel::dataChanged, this,
            [this] { m_stand->setText(zeilen(m_modell->gezaehlte()) + u" gezählt"_s); });
    resize(Inventurgroesse.boundedTo(roomFor(*this)));
    restoreWindow(*this, bildschirmzustand::Abschnitt, Inventurfenster);
    sys::underErrorReport({[this] { beginne(); }});
    m_tabelle->setFocus();
}

QLayout* InventurForm::errichteKopf()
{
    Zaehltag->setMinDate(QDate(offenesJahr(), 1, 1));
    Zaehltag->setMaxDate(QDate(offenesJahr(), 12, 31));
    auto* const kopf = new QHBoxLayout;
    const auto fuege = [kopf](const QString& titel, QWidget* feld, int breite) {
        auto* const name = new QLabel(titel);
        name->setBuddy(feld);
        kopf->addWidget(name);
        kopf->addWidget(feld, breite);
    };
    fuege(u"Gezählt a&m:"_s, Zaehltag, 0);
    fuege(u"&Lagerort:"_s, drpLagerort, 1);
    fuege(u"Artikel&gruppe:"_s, drpArtikelgruppe, 1);
    for (ComboBox* const liste : {drpLagerort, drpArtikelgruppe})
        liste->setListOnly(true);
    return kopf;
}

QLayout* InventurForm::errichteKnoepfe()
{
    auto* const buchen = new QPushButton(u"&Buchen"_s);
    auto* const drucken = new QPushButton(u"Zählliste &drucken"_s);
    auto* const excel = new QPushButton(u"an E&xcel übergeben"_s);
    auto* const schliessen = new QPushButton(u"S&chließen"_s);
    drucken->setObjectName(u"cmdDrucken"_s);
    excel->setObjectName(u"cmdExcel"_s);
    buchen->setObjectName(u"cmdBuchen"_s);
    schliessen->setObjectName(u"cmdSchliessen"_s);
    auto* const knoepfe = new QHBoxLayout;
    for (QPushButton* const knopf : {buchen, drucken, excel, schliessen}) {
        knopf->setAutoDefault(false);
        knoepfe->addWidget(knopf);
    }
    knoepfe->insertWidget(3, chkMitBestand);
    knoepfe->insertStretch(4);
    verdrahte(buchen, &QPushButton::clicked, this, &InventurForm::buche);
    verdrahte(drucken, &QPushButton::clicked, this, &InventurForm::drucke);
    verdrahte(excel, &QPushButton::clicked, this, &InventurForm::uebergib);
    verdrahte(schliessen, &QPushButton::clicked, this, [this] { close(); });
    return knoepfe;
}

/// A count that was begun before is gone on with, on its own day.
void InventurForm::beginne()
{
    m_datei.lies(*oeffneJournaldatei());
    const bool offen = !m_datei.offene().empty();
    if (!offen) m_datei.setTag(letzterTag());
    Zaehltag->setDate(m_datei.Tag());
    lies();
    fuelleListen();
    if (offen) m_stand->setText(u"Noch nicht gebucht vom letzten Mal: "_s + zeilen(m_modell->gezaehlte()));
}

void InventurForm::lies()
{
    const sys::Hourglass warten;
    auto liste = zaehlliste(*oeffneJournaldatei(), m_datei.Tag());
    for (Zaehlzeile& zeile : liste)
        if (const auto gezaehlt = m_datei.offene().find(zeile.paar); gezaehlt != m_datei.offene().end())
            zeile.Gezaehlt = gezaehlt->second;
    m_modell->setze(std::move(liste));
    zeige();
}

void InventurForm::zeige()
{
    const auto gewaehlt = [](const ComboBox& liste) {
        return liste.ListIndex() > 0 ? liste.Text() : QString();
    };
    m_modell->grenzeEin(gewaehlt(*drpLagerort), gewaehlt(*drpArtikelgruppe));
    m_stand->setText(zeilen(m_modell->gezaehlte()) + u" gezählt"_s);
    m_tabelle->resizeColumnsToContents();
    m_tabelle->horizontalHeader()->setStretchLastSection(true);
    m_tabelle->setCurrentIndex(m_modell->index(0, Inventurmodell::Gezaehlt));
}

void InventurForm::fuelleListen()
{
    QStringList orte, gruppen;
    for (const Zaehlzeile& zeile : m_modell->zeilen()) {
        orte.append(zeile.paar.LagerortKurzKu);
        gruppen.append(zeile.Artikelart);
    }
    const auto fuelle = [](ComboBox& liste, const QString& alle, QStringList& namen) {
        namen.sort();
        namen.removeDuplicates();
        namen.removeAll(QString());
        liste.AddItem(alle);
        for (const QString& name : namen)
            liste.AddItem(name);
        liste.setText(alle);
    };
    fuelle(*drpLagerort, AlleLagerorte, orte);
    fuelle(*drpArtikelgruppe, AlleArtikelgruppen, gruppen);
}

void InventurForm::waehleTag()
{
    const QDate tag = Zaehltag->Date(); // as typed, before the field refuses it
    if (!tag.isValid() || tag.year() != offenesJahr()) return;
    m_datei.setTag(tag);
    lies();
}

/// A mnemonic presses a button without leaving the field.
bool InventurForm::istUebernommen()
{
    return owedChecksPass(*this) && m_tabelle->uebernimm();
}

/// The lines that are shown: a place is counted by itself.
void InventurForm::drucke()
{
    if (!istUebernommen()) return;
    const sys::Hourglass warten;
    m_papier.drucke(zaehlpapier(m_modell->gezeigte(), m_datei.Tag(), chkMitBestand->Value() != 0));
}

void InventurForm::uebergib()
{
    if (!istUebernommen()) return;
    const sys::Hourglass warten;
    report::ProgressBox fortschritt(u"Die Tabelle wird geschrieben ..."_s, this);
    m_uebergabe.Export(zaehltabelle(m_modell->gezeigte(), chkMitBestand->Value() != 0),
                       u"Zählliste "_s + m_datei.Tag().toString(Qt::ISODate), fortschritt.progress());
}

void InventurForm::buche()
{
    if (!istUebernommen()) return;
    const int gezaehlt = m_modell->gezaehlte();
    if (gezaehlt == 0) return sys::critical(u"Es ist noch nichts gezählt."_s);
    if (sys::messages().show(zeilen(gezaehlt) + u" als Korrektur zum "_s + datumText(m_datei.Tag()) +
                                 u" buchen ?"_s,
                             sys::YesNo | sys::Question) != sys::Answer::Yes)
        return;
    const sys::Hourglass warten;
    const Zaehlergebnis ergebnis = bucheZaehlung(m_modell->zeilen(), m_datei);
    m_gebucht += ergebnis.gebucht;
    lies();
    m_modell->markiere(ergebnis.geaendert);
    QString satz = u"Gebucht: "_s + zeilen(ergebnis.gebucht) + u'.';
    if (!ergebnis.geaendert.empty())
        satz += u"\r\n\r\nNicht gebucht, weil sich der Bestand geändert hat, seit er gezeigt wurde: "_s +
                zeilen(static_cast<int>(ergebnis.geaendert.size())) + u'.';
    sys::messages().show(satz, sys::OKOnly | sys::Information);
}

void InventurForm::done(int result)
{
    sys::underErrorReport({[this] { rememberWindow(*this, bildschirmzustand::Abschnitt, Inventurfenster); }});
    QDialog::done(result);
}
