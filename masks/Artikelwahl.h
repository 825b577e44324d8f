#pragma once

#include "core/farm/Buchung.h"
#include "platform/controls/CheckBox.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/DataCombo.h"
#include "platform/controls/DataControl.h"

#include <functional>

class ClickLabel;

/// Kind and article of a mask, or of one of its sides: what is offered, reading it again, and the check on
/// leaving.
class Artikelwahl : public QObject {
public:
    struct Felder {
        ComboBox& drpGruppe;
        DataCombo& drpArtikel;
        CheckBox& chkVorhanden; ///< "Nur im Lager vorhandene Artikel anzeigen"
        ClickLabel& lblArtikel;
        DataControl& Artikelauswahl;
    };
    /// What follows when the user has chosen another kind, which may be that of an article, or another
    /// article.
    struct Folgen {
        std::function<void()> art, artikel;
    };
    Artikelwahl(const Felder& felder, const Folgen& folgen, QObject* maske);

    QString Artikel() const { return m_felder.drpArtikel.Text(); }
    QString Artikelart() const { return m_felder.drpGruppe.Text(); }
    bool nurVorhandene() const { return m_felder.chkVorhanden.Value() == 1; }
    /// The row of an article among those offered, trimmed and without regard to case, which becomes
    /// current there; null: it is not there, or nothing is offered.
    const jet::Recordset* gesucht(const QString& Artikel);
    void setArtikel(const QString& name) { m_felder.drpArtikel.setText(name); }
    void setArtikelart(const QString& name) { m_felder.drpGruppe.setText(name); }

    /// Shows those of a row that is changed. Its article may stay also when it is no longer offered.
    void zeige(const Buchung& zeile);
    bool istUnveraendert() const; ///< The article is still that row's; without one: empty.

    void lade(); ///< Reads what is offered again.
    /// The same when a mask opens, whatever stands there stays. What is offered without a kind is read when
    /// somebody comes for it.
    void oeffne();

    /// The tick shows what is offered, and goes with the kinds for which there is nothing to tick; the
    /// transfer mask's is the user's alone.
    void fuehreHaken() { m_fuehrtHaken = true; }
    void zeigeHaken();
    /// The click on the label looks for the kind in a field that the combo does not have and that is always
    /// empty: the list is only read again. Kept on the receiving side of a transfer, as the list that stands
    /// there is the right one.
    void etikettOhneArt() { m_etikettOhneArt = true; }

private:
    void verdrahteArtikel(const Folgen& folgen);
    /// With the message if not. The article of the row that is changed may stay also when it is no longer
    /// offered. If it may be left, `fuelle` computes the figures for the article. A listed name with an
    /// apostrophe breaks the statements that look it up; it may be left all the same when the user has
    /// read the error: the row itself can be written.
    bool darfVerlassen(const std::function<void()>& fuelle);

    const Felder m_felder;
    bool m_fuehrtHaken = false;
    bool m_etikettOhneArt = false;
};
