#pragma once

#include "platform/controls/ComboBox.h"
#include "platform/controls/DataControl.h"
#include "platform/system/Status.h"

#include <QLabel>
#include <QString>

#include <functional>

/// Which year both views show: choosing another one carries the stocks on into it and opens its file.
class Jahreswahl : public QObject {
public:
    struct Felder {
        ComboBox& drpJahr;
        QLabel& Statuszeile;
        DataControl &Journaldaten, &Bestanddaten;
    };
    /// `zeigt`: another year is bound; the filter shows its days.
    Jahreswahl(const Felder& felder, std::function<void(int jahr)> zeigt, QObject* bildschirm);

    void waehle(int jahr); ///< Without opening it.
    /// \throws jet::Error for what is no year: nothing may come into being or be carried forward for it.
    int gewaehltesJahr() const;
    bool istGebunden() const { return !m_gebundenesJahr.isEmpty(); }

    /// Makes sure of the chosen year's file, brings it up to date and lets both views know it, which show it
    /// with their next refresh. \throws jet::Error, sys::FileError
    void binde();
    void LagerDateiEinstellen(); ///< The same, and both views show it. \throws jet::Error, sys::FileError
    void zeigeJahr();            ///< That of the file which is bound.
    void zeigeStatus(const QString& hinweis = {});

    /// To the chosen year, under the error report. When it cannot be opened, or the user ignored that, all
    /// goes back to the one before: dates, status line and rows must be of one year. \returns whether it is
    /// open.
    bool wechsle();
    void schreibeWeiter(); ///< Carries stocks forward, and says so: a farm with many years takes its time.

private:
    void fuelleJahre();
    void kehreZurueck();

    const Felder m_felder;
    const std::function<void(int)> m_zeigt;
    QString m_stoerung; ///< Of a backup, or how far it is; stands behind whatever the status line says.
    const sys::StatusScope m_meldungen;
    QString m_gebundenesJahr; ///< The year that both views show.
};
