#include "overview/dateien/PruefungForm.h"

#include "core/Modulzustand.h"
#include "core/Verzeichnisse.h"
#include "core/farm/pruefung/Pruefung.h"
#include "overview/Bildschirmzustand.h"
#include "platform/controls/WindowMemory.h"
#include "platform/controls/Wiring.h"
#include "platform/system/ErrorReport.h"
#include "platform/system/Pointer.h"

#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize Pruefungsgroesse(780, 480);
constexpr int Textspalte = 3;
const QString Pruefungsfenster = u"FensterPruefungForm"_s; // in the settings

QString zahlText(std::optional<qint64> zahl)
{
    return zahl ? QString::number(*zahl) : QString();
}

} // namespace

PruefungForm::PruefungForm(QWidget* parent)
    : QDialog(parent), m_liste(new QTableWidget(0, 5)), m_ergebnis(new QLabel)
{
    setObjectName(u"PruefungForm"_s);
    setWindowTitle(u"Dateien prüfen"_s);
    m_ergebnis->setObjectName(u"Ergebnis"_s);
    m_liste->setObjectName(u"Befunde"_s);
    m_liste->setAccessibleName(u"Befunde"_s);
    m_liste->setHorizontalHeaderLabels({u"Schwere"_s, u"Jahr"_s, u"Nummer"_s, u"Befund"_s, u"Abhilfe"_s});
    m_liste->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_liste->setSelectionMode(QAbstractItemView::SingleSelection);
    m_liste->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_liste->setTabKeyNavigation(false);
    m_liste->setAlternatingRowColors(true);
    m_liste->setWordWrap(true);
    m_liste->verticalHeader()->hide();
    m_liste->horizontalHeader()->setHighlightSections(false);
    auto* const zeigen = new QPushButton(u"&Buchung zeigen"_s);
    auto* const neu = new QPushButton(u"&Neu prüfen"_s);
    auto* const schliessen = new QPushButton(u"&Schließen"_s);
    auto* const knoepfe = new QHBoxLayout;
    for (QPushButton* knopf : {zeigen, neu, schliessen}) {
        knopf->setAutoDefault(false);
        knoepfe->addWidget(knopf);
    }
    zeigen->setDefault(true);
    knoepfe->insertStretch(2);
    auto* const alles = new QVBoxLayout(this);
    alles->addWidget(m_ergebnis);
    alles->addWidget(m_liste);
    alles->addLayout(knoepfe);
    verdrahte(zeigen, &QPushButton::clicked, this, &PruefungForm::waehle);
    verdrahte(neu, &QPushButton::clicked, this, &PruefungForm::pruefeAlles);
    verdrahte(schliessen, &QPushButton::clicked, this, [this] { close(); });
    verdrahte(m_liste, &QTableWidget::cellDoubleClicked, this, &PruefungForm::waehle);
    resize(Pruefungsgroesse.boundedTo(roomFor(*this)));
    restoreWindow(*this, bildschirmzustand::Abschnitt, Pruefungsfenster);
    sys::underErrorReport({[this] { pruefeAlles(); }});
}

void PruefungForm::pruefeAlles()
{
    const sys::Hourglass warten;
    const Modulzustand& zustand = modulzustand();
    m_befunde = pruefe(
        {datenverzeichnis(), ProgrammVerzeichnis(), zustand.Anlagenverzeichnis, {zustand.Betriebsnummer}});
    zeige();
}

void PruefungForm::zeige()
{
    const auto fehler = std::ranges::count_if(m_befunde, &Befund::istFehler);
    const auto hinweise = qsizetype(m_befunde.size()) - fehler;
    m_ergebnis->setText(m_befunde.empty()
                            ? u"Alle Dateien sind heil, und was in ihnen steht, passt zusammen."_s
                            : u"Fehler: %1, Hinweise: %2"_s.arg(fehler).arg(hinweise));
    m_liste->setRowCount(static_cast<int>(m_befunde.size()));
    for (int zeile = 0; zeile < m_liste->rowCount(); ++zeile) {
        const Befund& befund = m_befunde[static_cast<std::size_t>(zeile)];
        int spalte = 0;
        for (const QString& text : {befund.istFehler() ? u"Fehler"_s : u"Hinweis"_s, zahlText(befund.jahr),
                                    zahlText(befund.ID), befund.text, befund.abhilfe})
            m_liste->setItem(zeile, spalte++, new QTableWidgetItem(text));
    }
    for (int spalte = 0; spalte < Textspalte; ++spalte)
        m_liste->resizeColumnToContents(spalte);
    m_liste->horizontalHeader()->setSectionResizeMode(Textspalte, QHeaderView::Stretch);
    m_liste->setColumnWidth(Textspalte + 1, width() / 3);
    m_liste->resizeRowsToContents();
    m_liste->setCurrentCell(0, Textspalte);
    m_liste->setFocus();
}

void PruefungForm::waehle()
{
    const int zeile = m_liste->currentRow();
    if (zeile < 0) return;
    m_gewaehlter = m_befunde[static_cast<std::size_t>(zeile)];
    accept();
}

void PruefungForm::done(int result)
{
    sys::underErrorReport(
        {[this] { rememberWindow(*this, bildschirmzustand::Abschnitt, Pruefungsfenster); }});
    QDialog::done(result);
}
