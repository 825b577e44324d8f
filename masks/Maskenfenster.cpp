#include "masks/Maskenfenster.h"

#include "core/Modulzustand.h"
#include "masks/Maskenteile.h"
#include "platform/controls/TasteUmsetzen.h"
#include "platform/controls/Wiring.h"
#include "platform/system/ErrorReport.h"
#include "platform/system/Settings.h"

#include <QPointer>
#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace {

const QString Abschnitt = u"Lagerverwaltung"_s;

} // namespace

Maskenfenster::Maskenfenster(const Hauptansicht& haupt, QWidget* parent) : QDialog(parent), m_haupt(haupt)
{
    if (modulzustand().Aenderungsmodus) m_id = journaldaten().Recordset()[u"ID"].toLong();
}

void Maskenfenster::richteFensterEin(Maskenfuss& fuss)
{
    m_fuss = &fuss;
    nummeriere(u"Command2"_s, {fuss.Command2_0_, fuss.Command2_1_});
    for (QPushButton* knopf : findChildren<QPushButton*>())
        knopf->setAutoDefault(false);
    fuss.Command1->setProperty("CausesValidation", false);
    new FieldKeys(*this);
    verdrahte(fuss.Command1, &QPushButton::clicked, this, [this] { reject(); });
    verdrahte(fuss.Command2_0_, &QPushButton::clicked, this, [this] { Command2_Click(0); });
    verdrahte(fuss.Command2_1_, &QPushButton::clicked, this, [this] { Command2_Click(1); });
    const QString groesse = sys::GetSetting(Abschnitt, u"Fenster"_s + objectName());
    restoreGeometry(QByteArray::fromBase64(groesse.toLatin1()));
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
        if (fokus) fokus->setFocus();
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
    sys::underErrorReport({[this] {
        sys::SaveSetting(Abschnitt, u"Fenster"_s + objectName(), QString::fromLatin1(saveGeometry().toBase64()));
    }});
    QDialog::done(result);
}
