#pragma once

#include "overview/Auswertungsdatei.h"
#include "platform/family/WorkingDirectory.h"
#include "platform/report/PrintControl.h"

#include <QObject>
#include <QPushButton>

#include <functional>
#include <optional>

class CheckBox;
class ComboBox;
class DataControl;
class DataGrid;
class DateCombo;
class OptionButton;

/// Printing of the view that is looked at: the movement journal, continuous or grouped, or the stock list.
class Auswertung : public QObject {
    Q_OBJECT

public:
    struct Felder {
        QPushButton& Command2;
        ComboBox &drpLagerOrte, &drpArtikelGruppe, &drpArtikel, &drpJahr;
        DateCombo &VonDatum, &Buchdatum;
        CheckBox &chkOhneNull, &chkNurSumme;
        OptionButton& SSOption2; ///< "Gruppiert und summiert nach"
        ComboBox& DrpGruppierung;
        DataControl& Journaldaten;
        DataGrid &Journalliste, &BestandListe;
    };
    /// `journalGezeigt` tells whether the journal's tab is on view. `filtere` makes sure that the views show
    /// what the fields say; false: it could not.
    Auswertung(const Felder& felder, std::function<bool()> journalGezeigt, std::function<bool()> filtere,
               QWidget* bildschirm);

    void loesche() const; ///< The evaluation file, where one was built. \throws sys::FileError.

private:
    void Command2_Click();
    void setzeFormeln(const QString& sortiertNach);
    QString zeitraum() const;
    void setzeJournalformeln();
    void setzeBestandsformeln();
    void setzeSortierung();

    const Felder m_felder;
    const std::function<bool()> m_journalGezeigt;
    const std::function<bool()> m_filtere;
    const WorkingDirectory m_verzeichnis;
    std::optional<Auswertungsdatei> m_datei; ///< That of the last print.
    report::PrintControl* const Report;
};

/// The journal column that a grouping caption stands for; other captions are columns themselves.
QString GruppenKurzel(const QString& Gruppierung);
