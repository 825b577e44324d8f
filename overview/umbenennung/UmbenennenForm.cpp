#include "overview/umbenennung/UmbenennenForm.h"

#include "core/JahresUbertrag.h"
#include "core/Journaldatei.h"
#include "core/Modulzustand.h"
#include "core/Verzeichnisse.h"
#include "core/farm/umbenennung/Umbenennungslauf.h"
#include "core/farm/umbenennung/Umbenennungsplan.h"
#include "overview/Knopfzeile.h"
#include "platform/controls/CheckBox.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/MemoBox.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/WindowMemory.h"
#include "platform/controls/Wiring.h"
#include "platform/system/ErrorReport.h"
#include "platform/system/Messages.h"
#include "platform/system/Pointer.h"

#include <QGridLayout>
#include <QLabel>
#include <QScopeGuard>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize Fenstergroesse(640, 460);

/// In the order of Namensart.
const QString Arten[] = {u"Artikel"_s, u"Lagerort"_s, u"Geschäftspartner"_s};

Umbenennungsort ort()
{
    return {datenverzeichnis(), ProgrammVerzeichnis(), modulzustand().Anlagenverzeichnis};
}

/// Of each farm from the first changed year on, as if it were the open one.
void schreibeBestaendeWeiter(const ErsteJahre& ab)
{
    Modulzustand& zustand = modulzustand();
    const auto vorher = qScopeGuard([&zustand, nummer = zustand.Betriebsnummer, tag = zustand.Stichdatum] {
        zustand.Betriebsnummer = nummer;
        zustand.Stichdatum = tag;
    });
    for (const auto& [betrieb, jahr] : ab) {
        zustand.Betriebsnummer = betrieb;
        zustand.Stichdatum = QDate(jahr, 1, 1);
        JahresUbertrag();
    }
}

} // namespace

UmbenennenForm::UmbenennenForm(QWidget* parent)
    : QDialog(parent), drpWas(new ComboBox), drpAlt(new ComboBox), txtNeu(new TextBox),
      chkNurBetrieb(new CheckBox), m_plan(new MemoBox)
{
    setObjectName(u"UmbenennenForm"_s);
    setWindowTitle(u"Umbenennen und zusammenführen"_s);
    drpWas->setObjectName(u"drpWas"_s);
    drpWas->setListOnly(true);
    for (const QString& art : Arten)
        drpWas->AddItem(art);
    drpWas->setText(Arten[0]);
    drpAlt->setObjectName(u"drpAlt"_s);
    txtNeu->setObjectName(u"txtNeu"_s);
    chkNurBetrieb->setObjectName(u"chkNurBetrieb"_s);
    chkNurBetrieb->setText(u"nur &in diesem Betrieb"_s);
    m_plan->setObjectName(u"Plan"_s);
    m_plan->setAccessibleName(u"Was geschehen wird"_s);
    m_plan->setReadOnly(true);
    m_plan->setTabChangesFocus(true);
    m_plan->setPlaceholderText(u"Prüfen sagt, was geschehen wird, und ob es geht."_s);
    auto* const alles = new QVBoxLayout(this);
    alles->addLayout(errichteFelder());
    alles->addWidget(m_plan);
    alles->addLayout(errichteKnoepfe());
    verdrahte(drpWas, &ComboBox::Click, this, &UmbenennenForm::fuelleNamen);
    resize(Fenstergroesse.boundedTo(roomFor(*this)));
    sys::underErrorReport({[this] { fuelleNamen(); }});
    drpAlt->setFocus();
}

QLayout* UmbenennenForm::errichteFelder()
{
    auto* const felder = new QGridLayout;
    const auto fuege = [felder](const QString& titel, QWidget* feld) {
        const int zeile = felder->rowCount();
        auto* const name = new QLabel(titel);
        name->setBuddy(feld);
        felder->addWidget(name, zeile, 0);
        felder->addWidget(feld, zeile, 1);
    };
    fuege(u"&Was:"_s, drpWas);
    fuege(u"&Bisheriger Name:"_s, drpAlt);
    fuege(u"&Neuer Name:"_s, txtNeu);
    felder->addWidget(chkNurBetrieb, felder->rowCount(), 1);
    felder->setColumnStretch(1, 1);
    return felder;
}

QLayout* UmbenennenForm::errichteKnoepfe()
{
    auto* const knoepfe = new Knopfzeile;
    knoepfe->fuege(this, u"cmdPruefen"_s, u"&Prüfen"_s, [this] { pruefe(); });
    knoepfe->fuege(this, u"cmdUmbenennen"_s, u"&Umbenennen"_s, &UmbenennenForm::benenne);
    knoepfe->addStretch();
    knoepfe->fuege(this, u"cmdSchliessen"_s, u"S&chließen"_s, [this] { close(); });
    return knoepfe;
}

/// What the open year knows; a name of another year can be typed.
void UmbenennenForm::fuelleNamen()
{
    drpAlt->Clear();
    const QString spalte = journalspalte(umbenennung().was).toString();
    const auto journal = oeffneJournaldatei();
    const auto namen = journal->OpenRecordset(u"SELECT DISTINCT "_s + spalte +
                                                  u" FROM LAGERJOURNAL WHERE "_s + spalte + u" <> ''"_s,
                                              jet::Kind::Snapshot);
    for (; !namen->Eof(); namen->MoveNext())
        drpAlt->AddItem((*namen)[0].toText());
}

Umbenennung UmbenennenForm::umbenennung() const
{
    return {static_cast<Namensart>(qMax(0, drpWas->ListIndex())), drpAlt->Text(), txtNeu->Text(),
            chkNurBetrieb->Value() != 0 ? modulzustand().Betriebsnummer : QString()};
}

bool UmbenennenForm::pruefe()
{
    const sys::Hourglass warten;
    const Umbenennungsplan plan = plane(umbenennung(), ort());
    m_plan->setText(plan.text());
    return plan.hindernisse.isEmpty();
}

void UmbenennenForm::benenne()
{
    if (!pruefe()) return sys::critical(u"Das geht nicht. Warum, steht im Fenster."_s);
    const Umbenennung diese = umbenennung();
    if (sys::messages().show(u"'"_s + diese.alt + u"' in '"_s + diese.neu + u"' umbenennen ?"_s,
                             sys::YesNo | sys::Question | sys::DefaultButton2) != sys::Answer::Yes)
        return;
    const sys::Hourglass warten;
    modulzustand().Ruecknahmen.clear(); // they would bring the old name back
    schreibeBestaendeWeiter(benenneUm(diese, ort()));
    m_plan->setText(u"Erledigt: '"_s + diese.alt + u"' heißt jetzt '"_s + diese.neu + u"'."_s);
    fuelleNamen();
    drpAlt->setText({});
    txtNeu->setText({});
}
