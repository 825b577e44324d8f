#pragma once

#include "platform/controls/CheckBox.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/DataCombo.h"
#include "platform/controls/DataControl.h"
#include "platform/controls/DateCombo.h"
#include "platform/controls/NumberEdit.h"
#include "transfer/ampel/AmpelLED.h"

#include <QPushButton>

class DataGrid;

/// The fields of an entry mask that its common rules work on.
struct Maskenfelder {
    DateCombo& Buchdatum;
    DataCombo& drpLagerort;
    ComboBox& drpGruppe;
    DataCombo& drpArtikel;
    NumberEdit& txtMenge;
    AmpelLED& Ampel;
    QPushButton& naechster; ///< "Speichern und &nächster"
    QPushButton& beenden;   ///< "Speichern und &beenden"
    DataControl& Lagerauswahl;
    DataControl& Artikelauswahl;
};

/// What an entry mask uses of the main screen: it books through its journal and shows the booking there.
struct Hauptansicht {
    DataControl& Journaldaten;
    DataGrid& Journalliste;
    DataControl& Bestanddaten;
    DataGrid& BestandListe;
};
