#pragma once

#include "masks/Maskenfelder.h"
#include "overview/Auswahllisten.h"

#include <QLabel>
#include <QString>

#include <functional>

/// The filter of both views: its fields and lists, and showing the rows that they choose.
class Filterleiste : public QObject {
public:
    struct Felder {
        ComboBox &drpLagerOrte, &drpArtikelGruppe, &drpArtikel;
        DateCombo &VonDatum, &Buchdatum;
        CheckBox &chkNurSumme, &chkOhneNull;
        QLabel& Statuszeile;
    };
    /// What the screen shows of the year besides: its status line, before the views are read, and its
    /// settings behind them.
    struct Umgebung {
        std::function<void()> zeigeStatus, zeigeEinstellungen;
    };
    Filterleiste(const Felder& felder, const Hauptansicht& haupt, Umgebung umgebung, QObject* bildschirm);

    void verdrahteFelder(); ///< From now on what is set in them filters.

    void AuswahllistenFullen();   ///< What is chosen stays. \throws jet::Error
    void fuelleFuerAnderesJahr(); ///< What the year does not know is no restriction there. \throws jet::Error
    void waehleAlle();
    void zeigeJahr(int jahr); ///< From its first day to its last.

    void FilterEinstellen(); ///< Shows the rows that the fields choose.
    /// Whether the rows are those of the fields; filters where they are not, after a filter, a sort or a
    /// change of year that failed or was left.
    bool stelleFilterSicher();
    /// Once the rows are painted: nobody waits for lists that are closed.
    void fuelleListenDanach();
    bool liesNeu();         ///< Fills the lists and filters, under the error report. \returns the same.
    void nachErstemMalen(); ///< Fills what is not seen at once.

private:
    void fuelleAusstehende();
    void drpArtikelGruppe_Click();
    void zeigeBestandsliste();
    bool zeigtGewaehltes() const;
    QString gewaehlteEingrenzung() const;
    Filterlisten listen() const
    {
        return {m_felder.drpLagerOrte, m_felder.drpArtikelGruppe, m_felder.drpArtikel};
    }

    const Felder m_felder;
    const Hauptansicht m_haupt;
    const Umgebung m_umgebung;
    QString m_gezeigteEingrenzung; ///< What the views were last narrowed to; empty: that failed.
    bool m_liestLange = false;     ///< Reading the views took over a second last time.
    bool m_dateiAntwortet = false; ///< A statement on the open year has succeeded.
    bool m_listenStehenAus = false;
    bool m_gemalt = false; ///< Seen for the first time; until then the stock list waits.
};
