#include "overview/stammdaten/StammdatenForm.h"

#include "overview/Bildschirmzustand.h"
#include "overview/stammdaten/Stammdatenmodell.h"
#include "platform/controls/WindowMemory.h"
#include "platform/controls/Wiring.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QTabWidget>
#include <QTableView>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize Entwurf(780, 520);
const QString Fenstername = u"FensterStammdatenForm"_s; // in the settings

/// Takes no more letters than the column.
class Zellfeld : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& zelle) const override
    {
        QWidget* const feld = QStyledItemDelegate::createEditor(parent, option, zelle);
        const int laenge = static_cast<const Stammdatenmodell*>(zelle.model())->laenge(zelle);
        if (auto* const text = qobject_cast<QLineEdit*>(feld); text && laenge > 0) text->setMaxLength(laenge);
        return feld;
    }
};

} // namespace

StammdatenForm::StammdatenForm(QWidget* parent)
    : QDialog(parent), m_reiter(new QTabWidget(this)), drpArtikelart(new QComboBox(this))
{
    setObjectName(u"StammdatenForm"_s);
    setWindowTitle(u"Artikel und Lagerorte"_s);
    m_reiter->setObjectName(u"Reiter"_s);
    drpArtikelart->setObjectName(u"drpArtikelart"_s);
    drpArtikelart->setAccessibleName(u"Artikelart"_s);
    for (const Artikelart& art : artikelarten())
        drpArtikelart->addItem(art.name.toString());
    auto* const artwahl = new QWidget;
    auto* const artzeile = new QHBoxLayout(artwahl);
    auto* const artname = new QLabel(u"Arti&kelart:"_s);
    artname->setBuddy(drpArtikelart);
    artzeile->setContentsMargins({});
    artzeile->addWidget(artname);
    artzeile->addWidget(drpArtikelart, 1);
    errichteReiter(u"&Lagerorte"_s, u"Lagerorte"_s, nullptr, lagerorte);
    errichteReiter(u"&Artikel"_s, u"Artikel"_s, artwahl, [this] {
        return artikel(artikelarten()[static_cast<std::size_t>(drpArtikelart->currentIndex())]);
    });
    errichteReiter(u"&Geschäftspartner"_s, u"Geschaeftspartner"_s, nullptr, geschaeftspartner);
    auto* const hinweis =
        new QLabel(u"F2 ändert die Zelle, in der Sie stehen; die Leertaste setzt oder löscht den"
                   u" Haken. Buchstaben suchen in der Spalte."_s);
    hinweis->setWordWrap(true);
    auto* const alles = new QVBoxLayout(this);
    alles->addWidget(m_reiter);
    alles->addWidget(hinweis);
    alles->addLayout(errichteKnoepfe());
    verdrahte(m_reiter, &QTabWidget::currentChanged, this, [this] {
        zeige();
        reiter().tabelle->setFocus();
    });
    verdrahte(drpArtikelart, &QComboBox::currentIndexChanged, this, &StammdatenForm::zeige);
    resize(Entwurf.boundedTo(roomFor(*this)));
    restoreWindow(*this, bildschirmzustand::Abschnitt, Fenstername);
    sys::underErrorReport({[this] { zeige(); }});
    reiter().tabelle->setFocus();
}

void StammdatenForm::errichteReiter(const QString& titel, const QString& name, QWidget* darueber,
                                    std::function<Stammliste()> liste)
{
    auto* const tabelle = new QTableView;
    auto* const modell = new Stammdatenmodell(tabelle);
    tabelle->setObjectName(name);
    tabelle->setAccessibleName(name);
    tabelle->setModel(modell);
    tabelle->setItemDelegate(new Zellfeld(tabelle));
    tabelle->setEditTriggers(QAbstractItemView::EditKeyPressed |
                             QAbstractItemView::DoubleClicked); // letters search
    tabelle->setAlternatingRowColors(true);
    tabelle->verticalHeader()->hide();
    tabelle->verticalHeader()->setDefaultSectionSize(tabelle->verticalHeader()->minimumSectionSize());
    tabelle->horizontalHeader()->setHighlightSections(false);
    auto* const seite = new QWidget;
    auto* const inhalt = new QVBoxLayout(seite);
    if (darueber) inhalt->addWidget(darueber);
    inhalt->addWidget(tabelle);
    m_reiter->addTab(seite, titel);
    m_listen.push_back({tabelle, modell, std::move(liste)});
}

QLayout* StammdatenForm::errichteKnoepfe()
{
    auto* const neu = new QPushButton(u"&Neu"_s);
    auto* const schliessen = new QPushButton(u"&Schließen"_s);
    neu->setObjectName(u"cmdNeu"_s);
    schliessen->setObjectName(u"cmdSchliessen"_s);
    auto* const knoepfe = new QHBoxLayout;
    for (QPushButton* knopf : {neu, schliessen}) {
        knopf->setAutoDefault(false);
        knoepfe->addWidget(knopf);
    }
    knoepfe->insertStretch(1);
    verdrahte(neu, &QPushButton::clicked, this, &StammdatenForm::beginneNeue);
    verdrahte(schliessen, &QPushButton::clicked, this, [this] { close(); });
    return knoepfe;
}

const StammdatenForm::Reiter& StammdatenForm::reiter() const
{
    return m_listen[static_cast<std::size_t>(m_reiter->currentIndex())];
}

/// The tab as the file has it now.
void StammdatenForm::zeige()
{
    const Reiter& gezeigt = reiter();
    gezeigt.modell->zeige(gezeigt.liste());
    QHeaderView& kopf = *gezeigt.tabelle->horizontalHeader();
    gezeigt.tabelle->resizeColumnsToContents();
    const int name =
        kopf.count() > 3 && gezeigt.modell->headerData(0, Qt::Horizontal, 0) == u"Name"_s ? 0 : 1;
    kopf.setSectionResizeMode(name, QHeaderView::Stretch);
    gezeigt.tabelle->setCurrentIndex(gezeigt.modell->index(0, 0));
}

void StammdatenForm::beginneNeue()
{
    const Reiter& gezeigt = reiter();
    const QModelIndex neue = gezeigt.modell->index(gezeigt.modell->rowCount() - 1, 0);
    gezeigt.tabelle->setFocus();
    gezeigt.tabelle->setCurrentIndex(neue);
    gezeigt.tabelle->edit(neue);
}

void StammdatenForm::done(int result)
{
    sys::underErrorReport({[this] { rememberWindow(*this, bildschirmzustand::Abschnitt, Fenstername); }});
    QDialog::done(result);
}
