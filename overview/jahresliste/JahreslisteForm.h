#pragma once

#include "core/farm/jahresliste/Jahresliste.h"
#include "overview/Listenpapier.h"
#include "platform/family/GridExport.h"

#include <QDialog>

class Blattmodell;
class QLabel;
class QTableView;

/// "Jahresliste" for the tax adviser: how the stocks of the open year came about and what they are worth.
class JahreslisteForm final : public QDialog {
    Q_OBJECT

public:
    explicit JahreslisteForm(QWidget* parent = nullptr);

    void done(int result) override;

private:
    QLayout* errichteKnoepfe();
    void lies();
    void drucke();
    void uebergib();

    QTableView* m_liste;
    Blattmodell* m_modell;
    QLabel* m_summe;
    Listenpapier m_papier;
    GridExport m_uebergabe;
    std::vector<Jahreszeile> m_zeilen;
};
