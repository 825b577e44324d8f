#include "overview/inventur/Zaehltabelle.h"

#include "overview/inventur/Inventurmodell.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QStyledItemDelegate>

using namespace Qt::StringLiterals;

namespace {

/// Knows whether what was typed last was taken.
class Zaehlfeld : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    void setModelData(QWidget* feld, QAbstractItemModel* modell, const QModelIndex& zelle) const override
    {
        genommen = modell->setData(zelle, feld->property("text"), Qt::EditRole);
    }
    mutable bool genommen = false;
};

} // namespace

Zaehltabelle::Zaehltabelle(QWidget* parent) : QTableView(parent)
{
    setItemDelegate(new Zaehlfeld(this));
    setEditTriggers(QAbstractItemView::AnyKeyPressed | QAbstractItemView::DoubleClicked);
    setAlternatingRowColors(true);
    setTabKeyNavigation(false);
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(verticalHeader()->minimumSectionSize());
    horizontalHeader()->setHighlightSections(false);
}

bool Zaehltabelle::uebernimm()
{
    if (state() != EditingState) return true;
    setFocus(); // a field that is left gives its text
    return static_cast<Zaehlfeld*>(itemDelegate())->genommen;
}

void Zaehltabelle::keyPressEvent(QKeyEvent* taste)
{
    if (state() == EditingState)
        return QTableView::keyPressEvent(taste); // what the field leaves to its table
    const QString text = taste->text();
    const bool gedrueckt = !text.isEmpty() && text[0].isPrint() &&
                           !(taste->modifiers() & ~Qt::ShiftModifier & ~Qt::KeypadModifier);
    const QModelIndex zelle = currentIndex().siblingAtColumn(Inventurmodell::Gezaehlt);
    if (taste->key() == Qt::Key_Return || taste->key() == Qt::Key_Enter) return geheWeiter();
    if (taste->key() == Qt::Key_F2) {
        setCurrentIndex(zelle);
        edit(zelle);
        return;
    }
    if (taste->key() == Qt::Key_Delete && zelle.isValid()) {
        model()->setData(zelle, QString(), Qt::EditRole);
        return;
    }
    if (!gedrueckt) return QTableView::keyPressEvent(taste);
    if (!text[0].isDigit() && text[0] != u',' && text[0] != u'-') return suche(text);
    m_wort.clear(); // a figure ends it
    setCurrentIndex(zelle);
    edit(zelle, QAbstractItemView::AnyKeyPressed, taste);
}

/// What was refused stays to be typed again.
void Zaehltabelle::closeEditor(QWidget* feld, QAbstractItemDelegate::EndEditHint wie)
{
    QTableView::closeEditor(feld, wie);
    if (wie == QAbstractItemDelegate::SubmitModelCache && static_cast<Zaehlfeld*>(itemDelegate())->genommen)
        geheWeiter();
}

void Zaehltabelle::geheWeiter()
{
    const int zeile = std::min(currentIndex().row() + 1, model()->rowCount() - 1);
    setCurrentIndex(model()->index(zeile, Inventurmodell::Gezaehlt));
}

void Zaehltabelle::suche(const QString& buchstabe)
{
    constexpr int Pause = 1000; // ms
    if (!m_seitBuchstabe.isValid() || m_seitBuchstabe.hasExpired(Pause)) m_wort.clear();
    const int ab = currentIndex().row() + (m_wort.isEmpty() ? 1 : 0);
    m_wort += buchstabe;
    m_seitBuchstabe.start();
    const auto gefunden =
        model()->match(model()->index(ab % std::max(1, model()->rowCount()), Inventurmodell::Artikel),
                       Qt::DisplayRole, m_wort, 1, Qt::MatchStartsWith | Qt::MatchWrap);
    if (!gefunden.isEmpty()) setCurrentIndex(gefunden.first().siblingAtColumn(Inventurmodell::Gezaehlt));
}
