#include "masks/Maskenfenster.h"

#include "core/Modulzustand.h"
#include "masks/Maskenteile.h"
#include "masks/Textlaenge.h"
#include "platform/controls/FocusWhole.h"
#include "platform/controls/TasteUmsetzen.h"
#include "platform/controls/WindowMemory.h"
#include "platform/controls/Wiring.h"
#include "platform/system/ErrorReport.h"

#include <QPointer>
#include <QScopeGuard>

using namespace Qt::StringLiterals;

Maskenfenster::Maskenfenster(const Hauptansicht& haupt, QWidget* parent) : QDialog(parent), m_haupt(haupt)
{
    if (modulzustand().Aenderungsmodus) m_id = journaldaten().Recordset()[u"ID"].toLong();
}

void Maskenfenster::richteFensterEin(Maskenfuss& fuss)
{
    m_fuss = &fuss;
    nummeriere(u"Command2"_s, {fuss.Command2_0_, fuss.Command2_1_});
    fuss.Command1->setProperty("CausesValidation", false);
    new FieldKeys(*this);
    begrenze(*fuss.txtKommentar, u"Kommentar"_s, 255);
    verdrahte(fuss.Command1, &QPushButton::clicked, this, [this] { reject(); });
    verdrahte(fuss.Command2_0_, &QPushButton::clicked, this, [this] { Command2_Click(0); });
    verdrahte(fuss.Command2_1_, &QPushButton::clicked, this, [this] { Command2_Click(1); });
    restoreWindow(*this, u"Lagerverwaltung"_s, u"Fenster"_s + objectName());
}

bool Maskenfenster::speichereUnterBericht(const std::function<void()>& merke, const std::function<void()>& schreibe)
{
    const QPointer<QWidget> fokus = focusWidget(); // a button that is disabled gives it away
    const auto sperre = [this](bool gesperrt) {
        for (QPushButton* knopf : {m_fuss->Command2_0_, m_fuss->Command2_1_})
            knopf->setDisabled(gesperrt);
    };
    sperre(true);
    const auto entsperre = qScopeGuard([&] {
        sperre(false);
        if (fokus) focusWhole(*fokus);
    });
    bool geschrieben = false;
    sys::underErrorReport({merke, [&] {
                               schreibe();
                               geschrieben = true;
                           }});
    return geschrieben;
}

void Maskenfenster::done(int result)
{
    sys::underErrorReport({[this] { rememberWindow(*this, u"Lagerverwaltung"_s, u"Fenster"_s + objectName()); }});
    QDialog::done(result);
}
