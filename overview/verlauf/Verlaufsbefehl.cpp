#include "overview/verlauf/Verlaufsbefehl.h"

#include "overview/Buchungssprung.h"
#include "overview/verlauf/VerlaufForm.h"
#include "platform/controls/DataControl.h"
#include "platform/controls/DataGrid.h"
#include "platform/controls/RowIds.h"
#include "platform/controls/Tasten.h"
#include "platform/controls/Wiring.h"

using namespace Qt::StringLiterals;

Verlaufsbefehl::Verlaufsbefehl(const Hauptansicht& haupt, std::function<bool()> journalGezeigt,
                               const Buchungssprung& sprung, QWidget* bildschirm)
    : QAction(u"&Verlauf des Bestandes ...\t"_s + tastenname(Taste::Bestandsbild), bildschirm),
      m_haupt(haupt), m_journalGezeigt(std::move(journalGezeigt)), m_sprung(sprung), m_bildschirm(bildschirm)
{
    setObjectName(u"M_Verlauf"_s);
    verdrahte(this, &QAction::triggered, this, &Verlaufsbefehl::zeige);
    bindeTaste(Taste::Bestandsbild, *bildschirm, [this] { trigger(); });
    haupt.BestandListe.addAction(this);
    haupt.BestandListe.setContextMenuPolicy(Qt::ActionsContextMenu);
}

void Verlaufsbefehl::zeige() const
{
    const bool istJournal = m_journalGezeigt();
    const DataControl& daten = istJournal ? m_haupt.Journaldaten : m_haupt.Bestanddaten;
    const DataGrid& liste = istJournal ? m_haupt.Journalliste : m_haupt.BestandListe;
    if (daten.AbsolutePosition() < 0) return;
    const auto wert = [&](QStringView spalte) {
        const jet::Value gelesen = daten.Recordset()[spalte];
        return gelesen.isNull() ? QString() : gelesen.toText();
    };
    const Verlaufsziel ziel{wert(u"Artikel"),
                            liste.Columns(u"LagerortKurzKu").Visible() ? wert(u"LagerortKurzKu") : QString()};
    VerlaufForm fenster(ziel, istJournal ? currentId(daten) : std::nullopt, m_bildschirm);
    fenster.exec();
    if (const auto& gewaehlte = fenster.gewaehlte()) m_sprung.geheZu(gewaehlte->first, gewaehlte->second);
}
