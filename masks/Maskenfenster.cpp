#include "masks/Maskenfenster.h"

#include "core/Modulzustand.h"
#include "masks/ErfassungsmaskenModul.h"
#include "masks/Maskenteile.h"
#include "masks/Textlaenge.h"
#include "platform/controls/ListField.h"
#include "platform/controls/TasteUmsetzen.h"
#include "platform/controls/Tasten.h"
#include "platform/controls/WindowMemory.h"
#include "platform/controls/Wiring.h"
#include "platform/system/ErrorReport.h"
#include "platform/system/Messages.h"

#include <QApplication>
#include <QScrollArea>

using namespace Qt::StringLiterals;

namespace {

/// Takes no room of its own, and as much as its content needs.
class Rollbereich final : public QScrollArea {
public:
    explicit Rollbereich(QWidget* parent) : QScrollArea(parent)
    {
        setFrameShape(QFrame::NoFrame);
        setWidgetResizable(true);
        setFocusPolicy(Qt::NoFocus);
    }
    QSize sizeHint() const override
    {
        QSize groesse = widget()->sizeHint();
        if (widget()->hasHeightForWidth()) groesse.setHeight(widget()->heightForWidth(groesse.width()));
        return groesse;
    }
};

} // namespace

Maskenfenster::Maskenfenster(const Hauptansicht& haupt, QWidget* parent) : QDialog(parent), m_haupt(haupt)
{
    if (modulzustand().Aenderungsmodus) m_id = journaldaten().Recordset()[u"ID"].toLong();
}

void Maskenfenster::richteFensterEin(Maskenfuss& fuss, const std::vector<QWidget*>& anfaenge)
{
    m_fuss = &fuss;
    nummeriere(u"Command2"_s, {fuss.Command2_0_, fuss.Command2_1_});
    fuss.Command1->setProperty("CausesValidation", false);
    setzeInRollbereich();
    new FieldKeys(*this);
    bindeTasten();
    bindeGruppen(*this, anfaenge);
    bewache(*fuss.txtKommentar);
    begrenze(*fuss.txtKommentar, u"Kommentar"_s, 255);
    verdrahte(fuss.Command1, &QPushButton::clicked, this, [this] { QDialog::reject(); });
    restoreWindow(*this, u"Lagerverwaltung"_s, u"Fenster"_s + objectName());
}

/// Everything but the buttons.
void Maskenfenster::setzeInRollbereich()
{
    auto* const inhalt = new QWidget(this);
    QLayout* const aufbau = layout();
    const QMargins rand = aufbau->contentsMargins();
    inhalt->setLayout(aufbau); // with all that stands in it
    aufbau->setContentsMargins(rand.left(), rand.top(), rand.right(), 0);
    auto* const bereich = new Rollbereich(this);
    bereich->setWidget(inhalt);
    QLayout* const knoepfe = m_fuss->Knoepfe;
    m_fuss->Fuss->removeItem(knoepfe);
    knoepfe->setParent(nullptr);
    auto* const rahmen = new QVBoxLayout(this);
    rahmen->setContentsMargins(0, 0, 0, rand.bottom());
    rahmen->addWidget(bereich);
    auto* const zeile = new QVBoxLayout;
    zeile->setContentsMargins(rand.left(), 0, rand.right(), 0);
    zeile->addLayout(knoepfe);
    rahmen->addLayout(zeile);
    connect(qApp, &QApplication::focusChanged, bereich, [bereich](QWidget*, QWidget* feld) {
        if (feld && bereich->widget()->isAncestorOf(feld)) bereich->ensureWidgetVisible(feld);
    });
}

void Maskenfenster::bindeTasten()
{
    QPushButton* const beenden = m_fuss->Command2_1_;
    // one booking is changed, there is no next
    QPushButton* const erster = aendert() ? beenden : m_fuss->Command2_0_;
    bindeTaste(Taste::Naechster, *this, [erster] { erster->click(); });
    bindeTaste(Taste::Beenden, *this, [beenden] { beenden->click(); });
    nenneTaste(Taste::Naechster, *erster);
    nenneTaste(Taste::Beenden, *beenden);
}

void Maskenfenster::setVisible(bool visible)
{
    if (visible && !testAttribute(Qt::WA_Resized)) resize(sizeHint().boundedTo(roomFor(*this)));
    QDialog::setVisible(visible);
}

void Maskenfenster::bewache(EditField& feld)
{
    connect(&feld, &QLineEdit::textEdited, this, [this] { m_getippt = true; });
    connect(&feld, &EditField::Change, this, [this] { m_getippt = true; });
}

void Maskenfenster::bewache(ListField& feld)
{
    connect(&feld, &ListField::Change, this, [this] { m_getippt = true; });
    connect(&feld, &ListField::Click, this, [this] { m_getippt = true; });
}

void Maskenfenster::zeigeBestand(const QString& Artikel, const QString& Lagerort)
{
    DataControl& Bestanddaten = m_haupt.Bestanddaten;
    const qsizetype platz = Bestanddaten.AbsolutePosition();
    Bestanddaten.Refresh();
    Bestanddaten.FindFirst(u"Artikel = '"_s + Artikel + u"' AND LagerortKurzKu = '"_s + Lagerort + u"'"_s);
    if (!Bestanddaten.NoMatch()) return waehleNurAktuelleZeile(m_haupt.BestandListe);
    if (platz >= 0 && platz < Bestanddaten.RecordCount()) Bestanddaten.MoveTo(platz);
}

void Maskenfenster::reject()
{
    if (m_getippt &&
        sys::messages().show(u"Was Sie eingetragen haben, ist noch nicht gespeichert."_s + u"\r\n\r\n"_s +
                                 u"Wollen Sie die Maske trotzdem verlassen ?"_s,
                             sys::YesNo | sys::Question | sys::DefaultButton2) != sys::Answer::Yes)
        return;
    QDialog::reject();
}

void Maskenfenster::done(int result)
{
    sys::underErrorReport(
        {[this] { rememberWindow(*this, u"Lagerverwaltung"_s, u"Fenster"_s + objectName()); }});
    QDialog::done(result);
}
