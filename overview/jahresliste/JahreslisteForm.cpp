#include "overview/jahresliste/JahreslisteForm.h"

#include "core/Journaldatei.h"
#include "core/Modulzustand.h"
#include "overview/Bildschirmzustand.h"
#include "overview/Blattmodell.h"
#include "overview/Knopfzeile.h"
#include "overview/jahresliste/Jahresblatt.h"
#include "platform/controls/WindowMemory.h"
#include "platform/jet/NumberFormat.h"
#include "platform/report/ProgressBox.h"
#include "platform/system/ErrorReport.h"
#include "platform/system/Pointer.h"

#include <QHeaderView>
#include <QLabel>
#include <QTableView>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize Listengroesse(980, 600);
const QString Listenfenster = u"FensterJahreslisteForm"_s; // in the settings

} // namespace

JahreslisteForm::JahreslisteForm(QWidget* parent)
    : QDialog(parent), m_liste(new QTableView), m_modell(new Blattmodell(this)), m_summe(new QLabel),
      m_papier(this)
{
    setObjectName(u"JahreslisteForm"_s);
    setWindowTitle(u"Jahresliste "_s + modulzustand().Jahr);
    m_liste->setObjectName(u"Jahresliste"_s);
    m_liste->setAccessibleName(u"Jahresliste"_s);
    m_liste->setModel(m_modell);
    m_liste->setTabKeyNavigation(false);
    m_liste->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_liste->verticalHeader()->hide();
    m_liste->verticalHeader()->setDefaultSectionSize(3 * fontMetrics().height() / 2);
    m_summe->setObjectName(u"Summe"_s);
    auto* const hinweis = new QLabel(
        u"Der Preis ist der mittlere der Zugänge mit Preis (Anfangsbestand, Zukauf, Produktion, Ernte). Wo es"
        u" keinen gibt oder in verschiedenen Einheiten gebucht ist, bleibt er leer."_s);
    hinweis->setWordWrap(true);
    auto* const alles = new QVBoxLayout(this);
    alles->addWidget(m_liste);
    alles->addWidget(m_summe);
    alles->addWidget(hinweis);
    alles->addLayout(errichteKnoepfe());
    resize(Listengroesse.boundedTo(roomFor(*this)));
    restoreWindow(*this, bildschirmzustand::Abschnitt, Listenfenster);
    sys::underErrorReport({[this] { lies(); }});
    m_liste->setFocus();
}

QLayout* JahreslisteForm::errichteKnoepfe()
{
    auto* const knoepfe = new Knopfzeile;
    knoepfe->fuege(this, u"cmdDrucken"_s, u"&Drucken"_s, &JahreslisteForm::drucke);
    knoepfe->fuege(this, u"cmdExcel"_s, u"an E&xcel übergeben"_s, &JahreslisteForm::uebergib);
    knoepfe->addStretch();
    knoepfe->fuege(this, u"cmdSchliessen"_s, u"S&chließen"_s, [this] { close(); });
    return knoepfe;
}

void JahreslisteForm::lies()
{
    const sys::Hourglass warten;
    m_zeilen = jahresliste(*oeffneJournaldatei(), modulzustand().Jahr.toInt());
    m_modell->setze(jahresblatt(m_zeilen));
    m_liste->resizeColumnsToContents();
    m_liste->setCurrentIndex(m_modell->index(0, 0));
    const Jahressumme alle = summe(m_zeilen);
    const QString ohne = ohnePreisText(alle);
    m_summe->setText(u"Wert aller Bestände: "_s + jet::formatted(alle.Wert, u"##,##0.00") +
                     (ohne.isEmpty() ? QString() : u", "_s + ohne));
}

void JahreslisteForm::drucke()
{
    const sys::Hourglass warten;
    m_papier.drucke(jahrespapier(m_zeilen, modulzustand().Jahr.toInt()));
}

void JahreslisteForm::uebergib()
{
    const sys::Hourglass warten;
    report::ProgressBox fortschritt(u"Die Tabelle wird geschrieben ..."_s, this);
    m_uebergabe.Export(jahresblatt(m_zeilen), u"Jahresliste "_s + modulzustand().Jahr,
                       fortschritt.progress());
}

void JahreslisteForm::done(int result)
{
    sys::underErrorReport({[this] { rememberWindow(*this, bildschirmzustand::Abschnitt, Listenfenster); }});
    QDialog::done(result);
}
