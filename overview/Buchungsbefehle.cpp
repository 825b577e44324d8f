#include "overview/Buchungsbefehle.h"

#include "core/Modulzustand.h"
#include "masks/LAKorrekturForm.h"
#include "masks/LAZukaufForm.h"
#include "overview/FremdeBuchung.h"
#include "platform/controls/DataGrid.h"
#include "platform/controls/RowIds.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/Wiring.h"
#include "platform/system/Messages.h"
#include "platform/system/Pointer.h"
#include "transfer/LAUmbuchForm.h"

#include <QCoreApplication>
#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

Buchungsbefehle::Buchungsbefehle(const Felder& felder, const Hauptansicht& haupt,
                                 std::function<void(const Wiederfinden&)> danach, QWidget* bildschirm)
    : QObject(bildschirm), m_felder(felder), m_haupt(haupt), m_danach(std::move(danach)),
      m_bildschirm(bildschirm)
{
    fuelleBuchungsarten();
    verdrahte(&felder.KurzEingabe, &TextBox::KeyPress, this, [this](QChar& zeichen) {
        zeichen = zeichen.toUpper();
        m_felder.KurzEingabe
            .selectAll(); // a letter takes the place of the one before, wherever a click set the cursor
    });
    verdrahte(&felder.KurzEingabe, &TextBox::KeyUp, this, &Buchungsbefehle::KurzEingabe_KeyUp);
    verdrahte(&felder.KurzEingabe, &TextBox::GotFocus, this, [this] { m_felder.KurzEingabe.selectAll(); });
    verdrahte(&felder.DrpBuchart, &ComboBox::Click, this, &Buchungsbefehle::DrpBuchart_Click);
    verdrahte(&felder.neu, &QPushButton::clicked, this, &Buchungsbefehle::beginne);
    verdrahte(&felder.aendern, &QPushButton::clicked, this, &Buchungsbefehle::aendere);
    verdrahte(&haupt.Journalliste, &DataGrid::DblClick, this, &Buchungsbefehle::aendere);
}

void Buchungsbefehle::fuelleBuchungsarten()
{
    m_felder.DrpBuchart.setColumns({u"Kürzel"_s, u"Art der Eintragung"_s}, 1);
    m_felder.DrpBuchart.setListOnly(true);
    for (const Buchungsart& art : buchungsarten())
        m_felder.DrpBuchart.AddItem({art.kurzel.toString(), art.eintragung.toString()});
}

/// A key that waits behind the one that is looked up, as Enter does when somebody types fast, opens no second
/// mask.
void Buchungsbefehle::KurzEingabe_KeyUp()
{
    if (m_oeffnet) return;
    const QScopedValueRollback oeffnet(m_oeffnet, true);
    const auto* const art = buchungsartZuKurzel(m_felder.KurzEingabe.Text());
    if (!art) {
        m_felder.KurzEingabe.setText({});
        return m_felder.DrpBuchart.setText({});
    }
    m_felder.DrpBuchart.setText(art->eintragung.toString());
    m_felder.KurzEingabe.selectAll();
    QCoreApplication::processEvents(); // show the choice before the mask covers it
    m_felder.neu.click();
}

void Buchungsbefehle::DrpBuchart_Click()
{
    const int zeile = m_felder.DrpBuchart.ListIndex();
    if (zeile >= 0) m_felder.KurzEingabe.setText(m_felder.DrpBuchart.Cell(zeile, 0));
}

void Buchungsbefehle::beginne()
{
    Modulzustand& zustand = modulzustand();
    zustand.Aenderungsmodus = false;
    const auto* const art = buchungsartZuKurzel(m_felder.KurzEingabe.Text());
    if (!art) return; // "K" among them: once a kind of its own, it opens nothing
    zustand.AktBuchungsart = art->name.toString();
    zeige(art->maske);
}

void Buchungsbefehle::aendere()
{
    if (m_haupt.Journaldaten.RecordCount() == 0) return;
    Modulzustand& zustand = modulzustand();
    const jet::Recordset& zeile = m_haupt.Journaldaten.Recordset();
    const QString name = zeile[u"Buchungsart"].isNull() ? QString() : zeile[u"Buchungsart"].toText();
    zustand.Aenderungsmodus = true;
    zustand.AktBuchungsart = name;
    if (istFremdeBuchung(zeile))
        return sys::critical(fremdeBuchung(u"Eine Änderung kann nur in diesem Programm erfolgen."_s));
    const auto* const art = buchungsartZu(name);
    if (!art) {
        // sic: with and without blanks
        sys::critical(
            u"Diese Buchung wurde gemeinsam mit einer Schollwart - Maßnahme erfasst und kann nur durch"
            u" Änderung der betroffenen Schollwart-Maßnahme verändert werden."_s);
        return;
    }
    zeige(art->maske);
}

std::unique_ptr<QDialog> Buchungsbefehle::erzeuge(Maske maske) const
{
    const sys::Hourglass warten;
    switch (maske) {
    case Maske::Buchung: return std::make_unique<LAZukaufForm>(m_haupt, m_bildschirm);
    case Maske::Korrektur: return std::make_unique<LAKorrekturForm>(m_haupt, m_bildschirm);
    case Maske::Umbuchung: return std::make_unique<LAUmbuchForm>(m_haupt, m_bildschirm);
    }
    return {};
}

void Buchungsbefehle::zeige(Maske maske)
{
    const DataControl& journal = m_haupt.Journaldaten;
    const auto vorher = currentId(journal);
    const qsizetype platz = journal.AbsolutePosition();
    const qsizetype zeilen = journal.RecordCount();
    const auto fenster = erzeuge(maske);
    fenster->exec();
    Wiederfinden gesucht{.vorher = vorher, .platz = platz};
    const qsizetype zeilenJeBuchung = maske == Maske::Umbuchung ? 2 : 1;
    for (qsizetype ende = journal.RecordCount(); ende > zeilen;
         ende -= zeilenJeBuchung) { // new rows stand at the end
        auto& buchung = gesucht.neue.emplace_back();
        for (qsizetype neue = ende - 1; neue >= qMax(zeilen, ende - zeilenJeBuchung); --neue)
            if (const auto ID = idAt(journal, neue)) buchung.push_back(*ID);
        if (buchung.empty()) gesucht.neue.pop_back(); // taken back, by a full disk
    }
    m_danach(gesucht);
}
