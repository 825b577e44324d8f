#include "overview/Tastenbefehle.h"

#include "ui_LagerbestandNeu.h"

#include "platform/controls/CheckedField.h"
#include "platform/controls/Tasten.h"

#include <QApplication>

#include <algorithm>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

void gehe(QWidget& feld)
{
    feld.setFocus(Qt::ShortcutFocusReason);
}

/// What is typed next takes the place of what stands there.
void geheUndMarkiere(ComboField& feld)
{
    gehe(feld);
    feld.lineEdit()->selectAll(); // also when it had the focus before
}

} // namespace

Tastenbefehle::Tastenbefehle(Ui::LagerbestandNeu& ui, const Befehle& befehle, QWidget& bildschirm)
    : QObject(&bildschirm), m_ui(ui), m_bildschirm(bildschirm)
{
    bindeFelder();
    bindeKnoepfe();
    bindeTaste(Taste::NeuLesen, bildschirm, befehle.neuLesen);
    bindeTaste(Taste::AllesZeigen, bildschirm, befehle.allesZeigen);
    bindeTaste(Taste::NaechsteGruppe, bildschirm, [this] { wechsleGruppe(+1); });
    bindeTaste(Taste::VorigeGruppe, bildschirm, [this] { wechsleGruppe(-1); });
    ui.FrmEingrenzung->setToolTip(u"Alles zeigen: "_s + tastenname(Taste::AllesZeigen));
}

void Tastenbefehle::bindeFelder()
{
    nenneTaste(Taste::Kurzel, *m_ui.KurzEingabe);
    bindeTaste(Taste::Kurzel, m_bildschirm, [this] {
        gehe(*m_ui.KurzEingabe);
        m_ui.KurzEingabe->selectAll();
    });
    const std::pair<Taste, ComboField*> felder[] = {{Taste::Lagerort, m_ui.drpLagerOrte},
                                                    {Taste::Artikelgruppe, m_ui.drpArtikelGruppe},
                                                    {Taste::Artikel, m_ui.drpArtikel},
                                                    {Taste::VonDatum, m_ui.VonDatum},
                                                    {Taste::Jahr, m_ui.drpJahr}};
    for (const auto& [taste, feld] : felder) {
        nenneTaste(taste, *feld);
        bindeTaste(taste, m_bildschirm, [feld = feld] { geheUndMarkiere(*feld); });
    }
    for (const auto& [taste, reiter] : {std::pair(Taste::Journal, 0), std::pair(Taste::Bestand, 1)}) {
        m_ui.SSTab1->setTabToolTip(reiter, tastenname(taste));
        bindeTaste(taste, m_bildschirm, [this, reiter = reiter] { zeigeListe(reiter); });
    }
}

void Tastenbefehle::bindeKnoepfe()
{
    const std::tuple<Taste, QPushButton*, QPushButton*> knoepfe[] = {
        // on the journal's tab, on the stock list's
        {Taste::Drucken, m_ui.Command2, m_ui.Command2},
        {Taste::Tabelle, m_ui.ExcelButton, m_ui.Command3},
        {Taste::Lieferscheine, m_ui.Command5, m_ui.Command5},
    };
    for (const auto& [taste, imJournal, imBestand] : knoepfe) {
        nenneTaste(taste, *imJournal);
        if (imBestand != imJournal) nenneTaste(taste, *imBestand);
        bindeTaste(taste, m_bildschirm, [this, imJournal = imJournal, imBestand = imBestand] {
            druecke(journalGezeigt() ? *imJournal : *imBestand);
        });
    }
    m_ui.M_PflanzschPrufen->setText(m_ui.M_PflanzschPrufen->text() + u'\t' + tastenname(Taste::Pruefen));
    bindeTaste(Taste::Pruefen, m_bildschirm, [this] {
        if (owedChecksPass(m_bildschirm)) m_ui.M_PflanzschPrufen->trigger();
    });
    m_ui.Journalliste->setProperty("KeepsEnter", true); // it changes the row
    bindeTaste(
        Taste::Aendern, *m_ui.Journalliste, [this] { m_ui.Command7_1_->click(); }, Qt::WidgetShortcut);
    nenneTaste(Taste::Aendern, *m_ui.Command7_1_);
    nenneTaste(Taste::Loeschen, *m_ui.Command4); // the list itself has the key
    const QString inListen = u"Zeilen kopieren: "_s + tastenname(Taste::Kopieren) + u"\nNeu lesen: "_s +
                             tastenname(Taste::NeuLesen) + u"\nNächste, vorige Gruppe: "_s +
                             tastenname(Taste::NaechsteGruppe) + u", "_s + tastenname(Taste::VorigeGruppe);
    for (DataGrid* liste : {m_ui.Journalliste, m_ui.BestandListe})
        liste->setToolTip(inListen); // assistive tools read it too, but while a search tells of itself
}

bool Tastenbefehle::journalGezeigt() const
{
    return m_ui.SSTab1->currentWidget() == m_ui.TabJournal;
}

void Tastenbefehle::zeigeListe(int reiter)
{
    m_ui.SSTab1->setCurrentIndex(reiter);
    gehe(journalGezeigt() ? *m_ui.Journalliste : *m_ui.BestandListe);
}

/// To the first field of the next group, in a circle; from nowhere to the first one.
void Tastenbefehle::wechsleGruppe(int schritt)
{
    struct Gruppe {
        std::vector<const QWidget*> teile;
        QWidget* erstes;
    };
    QWidget* const druckart = m_ui.SSOption1->isChecked() ? m_ui.SSOption1 : m_ui.SSOption2;
    const Gruppe gruppen[] = {
        {{m_ui.KurzEingabe, m_ui.DrpBuchart, m_ui.Command7_0_}, m_ui.KurzEingabe},
        {{m_ui.FrmEingrenzung, m_ui.FrmAnsicht}, m_ui.drpLagerOrte},
        {{m_ui.SSTab1}, journalGezeigt() ? m_ui.Journalliste : m_ui.BestandListe},
        {{m_ui.FrmDruck}, journalGezeigt() ? druckart : m_ui.Command2},
    };
    const QWidget* const jetzt = QApplication::focusWidget();
    const auto hier = std::ranges::find_if(gruppen, [jetzt](const Gruppe& gruppe) {
        return std::ranges::any_of(gruppe.teile, [jetzt](const QWidget* teil) {
            return teil == jetzt || teil->isAncestorOf(jetzt);
        });
    });
    constexpr int Anzahl = std::size(gruppen);
    const int platz = hier == std::end(gruppen) ? -schritt : int(hier - std::begin(gruppen));
    gehe(*gruppen[(platz + schritt + Anzahl) % Anzahl].erstes);
}

/// What was typed and not taken yet counts: a key moves no focus.
void Tastenbefehle::druecke(QPushButton& knopf)
{
    if (owedChecksPass(m_bildschirm)) knopf.click();
}
