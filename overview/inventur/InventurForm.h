#pragma once

#include "core/inventur/Zaehldatei.h"
#include "overview/Listenpapier.h"
#include "platform/family/GridExport.h"

#include <QDialog>

class CheckBox;
class ComboBox;
class DateCombo;
class Inventurmodell;
class QLabel;
class Zaehltabelle;

/// "Inventur": what was counted beside what the journal says, and the booking of the differences. What is
/// typed is kept at once and is there again at the next opening, until it is booked.
class InventurForm final : public QDialog {
    Q_OBJECT

public:
    explicit InventurForm(QWidget* parent = nullptr);

    int gebucht() const { return m_gebucht; } ///< Rows that stand in the journal now.
    void done(int result) override;

private:
    QLayout* errichteKopf();
    QLayout* errichteKnoepfe();
    void beginne();
    void lies();
    void zeige();
    void fuelleListen();
    void waehleTag();
    bool istUebernommen();
    void drucke();
    void uebergib();
    void buche();

    Zaehldatei m_datei;
    DateCombo* Zaehltag;
    ComboBox* drpLagerort;
    ComboBox* drpArtikelgruppe;
    Zaehltabelle* m_tabelle;
    Inventurmodell* m_modell;
    CheckBox* chkMitBestand;
    QLabel* m_stand;
    Listenpapier m_papier;
    GridExport m_uebergabe;
    int m_gebucht = 0;
};
