#include "overview/verlauf/VerlaufForm.h"

#include "core/Datumstext.h"
#include "core/Journaldatei.h"
#include "core/Modulzustand.h"
#include "overview/Bildschirmzustand.h"
#include "overview/Knopfzeile.h"
#include "overview/verlauf/Tagesmodell.h"
#include "overview/verlauf/Verlaufsbild.h"
#include "platform/controls/CheckBox.h"
#include "platform/controls/WindowMemory.h"
#include "platform/controls/Wiring.h"
#include "platform/jet/NumberFormat.h"
#include "platform/report/PreviewWindow.h"
#include "platform/system/ErrorReport.h"
#include "platform/system/FileName.h"
#include "platform/system/Files.h"
#include "platform/system/GermanDialogs.h"
#include "platform/system/Pointer.h"

#include <QBuffer>
#include <QFileDialog>
#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QPainter>
#include <QTableView>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize Verlaufsgroesse(980, 600);
const QString Verlaufsfenster = u"FensterVerlaufForm"_s; // in the settings
constexpr QSize Bilddatei(1600, 900);                    // pixels
constexpr int Bildschrift = 22;                          // pixels
constexpr double Blattrand = 15;                         // mm
constexpr double Blattschrift = 3.5;                     // mm

QString mengentext(double wert)
{
    return jet::formatted(wert, u"##,##0.00##");
}

QString satz(int jahr, const Verlaufsbuchung& buchung)
{
    QString text = datumText(buchung.tag) + u": "_s + buchung.Buchungsart + u' ' +
                   (buchung.Menge > 0 ? u"+"_s : QString()) + mengentext(buchung.Menge) + u", Lagerort "_s +
                   buchung.LagerortKurzKu + u", danach "_s + mengentext(buchung.Bestand);
    if (buchung.tag.year() != jahr) text += u" (im Jahr "_s + QString::number(jahr) + u')';
    for (const QString& dazu : {buchung.Uberstallt_alt, buchung.Kommentar})
        if (!dazu.trimmed().isEmpty()) text += u" · "_s + dazu.simplified();
    return text;
}

} // namespace

VerlaufForm::VerlaufForm(const Verlaufsziel& ziel, std::optional<qint64> ID, QWidget* parent)
    : QDialog(parent), m_ziel(ziel), m_ID(ID), chkAlleLagerorte(new CheckBox), chkAlleJahre(new CheckBox),
      m_titel(new QLabel), m_bild(new Verlaufsbild), m_buchung(new QLabel), m_liste(new QTableView),
      m_tage(new Tagesmodell(this))
{
    setObjectName(u"VerlaufForm"_s);
    setWindowTitle(u"Verlauf des Bestandes"_s);
    chkAlleLagerorte->setObjectName(u"chkAlleLagerorte"_s);
    chkAlleLagerorte->setText(u"an &allen Lagerorten zusammen"_s);
    chkAlleLagerorte->setValue(ziel.LagerortKurzKu.isEmpty() ? 1 : 0);
    chkAlleLagerorte->setEnabled(!ziel.LagerortKurzKu.isEmpty());
    chkAlleJahre->setObjectName(u"chkAlleJahre"_s);
    chkAlleJahre->setText(u"über alle &Jahre"_s);
    m_titel->setObjectName(u"Titel"_s);
    m_bild->setObjectName(u"Verlaufsbild"_s);
    m_buchung->setObjectName(u"Buchung"_s);
    m_buchung->setWordWrap(true);
    m_buchung->setMinimumHeight(2 * m_buchung->fontMetrics().lineSpacing());
    m_liste->setObjectName(u"Tagesliste"_s);
    m_liste->setAccessibleName(u"Bestand an jedem Tag mit Buchungen"_s);
    m_liste->setModel(m_tage);
    m_liste->setTabKeyNavigation(false);
    m_liste->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_liste->verticalHeader()->hide();
    m_liste->verticalHeader()->setDefaultSectionSize(3 * fontMetrics().height() / 2);
    auto* const wahl = new QHBoxLayout;
    wahl->addWidget(m_titel, 1);
    wahl->addWidget(chkAlleLagerorte);
    wahl->addWidget(chkAlleJahre);
    auto* const mitte = new QHBoxLayout;
    mitte->addWidget(m_bild, 1);
    mitte->addWidget(m_liste);
    auto* const alles = new QVBoxLayout(this);
    alles->addLayout(wahl);
    alles->addLayout(mitte, 1);
    alles->addWidget(m_buchung);
    alles->addLayout(errichteKnoepfe());
    for (CheckBox* const haken : {chkAlleLagerorte, chkAlleJahre})
        verdrahte(haken, &CheckBox::Click, this, &VerlaufForm::lies);
    verdrahte(m_bild, &Verlaufsbild::Bewegt, this, &VerlaufForm::zeigeBuchung);
    verdrahte(m_bild, &Verlaufsbild::Gewaehlt, this, &VerlaufForm::waehle);
    resize(Verlaufsgroesse.boundedTo(roomFor(*this)));
    restoreWindow(*this, bildschirmzustand::Abschnitt, Verlaufsfenster);
    lies();
    m_bild->setFocus();
}

QLayout* VerlaufForm::errichteKnoepfe()
{
    auto* const knoepfe = new Knopfzeile;
    knoepfe->fuege(this, u"cmdJournal"_s, u"&Buchung im Journal zeigen"_s, &VerlaufForm::waehle);
    knoepfe->fuege(this, u"cmdDrucken"_s, u"&Drucken"_s, &VerlaufForm::drucke);
    knoepfe->fuege(this, u"cmdBild"_s, u"Als Bild &speichern ..."_s, &VerlaufForm::speichere);
    knoepfe->addStretch();
    knoepfe->fuege(this, u"cmdSchliessen"_s, u"S&chließen"_s, [this] { close(); });
    return knoepfe;
}

/// A year that cannot be read is reported and left out.
void VerlaufForm::lies()
{
    const sys::Hourglass warten;
    const Verlaufsziel ziel{m_ziel.Artikel,
                            chkAlleLagerorte->Value() != 0 ? QString() : m_ziel.LagerortKurzKu};
    const int offenes = modulzustand().Jahr.toInt();
    std::vector<Jahresverlauf> jahre;
    const auto nimm = [&](int jahr) {
        const auto ausgang = sys::underErrorReport({[&] {
            jahre.emplace_back(jahr, jahr == offenes ? oeffneJournaldatei() : oeffneJournal(jahr), ziel);
        }});
        return ausgang != sys::Outcome::Left;
    };
    for (const int jahr : chkAlleJahre->Value() != 0 ? journaljahre() : std::vector{offenes})
        if (!nimm(jahr)) break;
    m_einheiten.clear();
    for (const Jahresverlauf& jahr : jahre)
        m_einheiten += jahr.einheiten();
    m_einheiten.removeDuplicates();
    m_titel->setText(titel());
    m_bild->zeige(std::move(jahre), m_ID);
    m_tage->setze(m_bild->kurven());
    m_liste->resizeColumnsToContents();
    m_liste->setFixedWidth(m_liste->horizontalHeader()->length() + m_liste->fontMetrics().height() * 2);
    m_liste->scrollToBottom();
    zeigeBuchung();
}

QString VerlaufForm::titel() const
{
    const QString wo =
        chkAlleLagerorte->Value() != 0 ? u"alle Lagerorte"_s : u"Lagerort "_s + m_ziel.LagerortKurzKu;
    const QString was = m_ziel.Artikel + u", "_s + wo + u", "_s +
                        (chkAlleJahre->Value() != 0 ? u"alle Jahre"_s : modulzustand().Jahr);
    const QString einheiten = m_einheiten.join(u", "_s);
    if (m_einheiten.size() > 1) return was + u": in mehreren Einheiten gebucht ("_s + einheiten + u')';
    return m_einheiten.isEmpty() ? was : was + u", in "_s + einheiten;
}

void VerlaufForm::zeigeBuchung()
{
    const auto buchung = m_bild->aktuelle();
    m_buchung->setText(buchung                   ? satz(buchung->first, buchung->second)
                       : m_bild->buchungen() > 0 ? u"Diese Buchung hat ein anderes Programm gelöscht."_s
                                                 : u"Keine Buchungen"_s);
    m_bild->setAccessibleDescription(m_buchung->text()); // read out when it changes
}

void VerlaufForm::waehle()
{
    const auto buchung = m_bild->aktuelle();
    if (!buchung) return;
    m_gewaehlte = {buchung->first, buchung->second.ID};
    accept();
}

/// Into the preview, which prints and writes PDF files.
void VerlaufForm::drucke()
{
    if (m_bild->kurven().empty()) return; // the file could not be read
    report::Document blatt;
    blatt.title = u"Verlauf "_s + m_ziel.Artikel;
    blatt.layout = QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Landscape, QMarginsF());
    blatt.layout.setMode(QPageLayout::FullPageMode);
    const double rand = Blattrand * report::DotsPerMm;
    const QRectF flaeche = QRectF({}, blatt.pageSize()).adjusted(rand, rand, -rand, -rand);
    blatt.pages.push_back({});
    blatt.pages.back().picture = [=, titel = titel(), jahre = m_bild->kurven()](QPainter& maler) {
        maleVerlaufsblatt(maler, flaeche, titel, jahre, static_cast<int>(Blattschrift * report::DotsPerMm));
    };
    (new report::PreviewWindow(std::move(blatt), {}, this))->show();
}

void VerlaufForm::speichere()
{
    if (m_bild->kurven().empty()) return;
    const sys::GermanDialogs deutsch;
    QFileDialog dialog(this, u"Als Bild speichern"_s);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilter(u"PNG-Bilder (*.png)"_s);
    dialog.setDefaultSuffix(u"png"_s);
    dialog.selectFile(sys::fileNameFor(u"Verlauf "_s + m_ziel.Artikel) + u".png"_s);
    if (dialog.exec() != QDialog::Accepted) return;
    QImage bild(Bilddatei, QImage::Format_RGB32);
    bild.fill(Qt::white);
    QPainter maler(&bild);
    maleVerlaufsblatt(maler,
                      QRectF(bild.rect()).adjusted(Bildschrift, Bildschrift, -Bildschrift, -Bildschrift),
                      titel(), m_bild->kurven(), Bildschrift);
    maler.end();
    QByteArray bytes;
    QBuffer puffer(&bytes);
    bild.save(&puffer, "PNG");
    sys::writeWhole(dialog.selectedFiles().constFirst(), bytes);
}

void VerlaufForm::done(int result)
{
    sys::underErrorReport({[this] { rememberWindow(*this, bildschirmzustand::Abschnitt, Verlaufsfenster); }});
    QDialog::done(result);
}
