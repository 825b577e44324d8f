#pragma once

#include "masks/Maskenfelder.h"

#include <QDate>
#include <QString>

/// The rules that all entry masks share. They read the shared state (data directory, open journal, booking
/// kind, year, mode of change) and keep none of their own. What the database refuses is thrown to the mask's
/// handler.

/// Fills the list of article kinds.
void fuelleArtikelarten(ComboBox& drpGruppe);

/// Offers the articles of a kind. With `nurVorhandene` those that the journal has ever booked under it, each
/// name with each of its units; where it has none, and otherwise, those of the master data. Harvested produce
/// is always offered from the journal, and sets the flag. An unknown kind leaves the list as it is. While no
/// kind is chosen, what the journal has booked under one kind only is offered. A text that the new list does
/// not have is emptied.
void ladeArtikel(DataControl& Artikelauswahl, DataCombo& drpArtikel, const QString& Artikelart,
                 bool& nurVorhandene);
/// The same from the master data alone.
void ladeArtikelstamm(DataControl& Artikelauswahl, DataCombo& drpArtikel, const QString& Artikelart);

/// Reads the business partners again.
void ladeGeschaeftspartner(DataControl& HandlerDaten);
/// Reads the storage places again; a code that is not among them is emptied.
void ladeLagerorte(DataControl& Lagerauswahl, DataCombo& drpLagerort);

/// Whether a combo's text may stay when it is left: empty, or listed, then in the spelling of the list. One
/// that is not listed opens the list.
bool pruefeEintrag(DataCombo& combo, DataControl& daten, const QString& feld);

/// The day that a new booking begins with: that of the last booking of the kind in the open year, since no
/// other day can be saved and other programs date as they like; without one today, where that lies in the
/// year, else the year's last day.
QDate vorgabedatum(const QString& Buchungsart);

/// Makes a mask ready: where its lists come from, which the mask then refreshes, the open year as bounds of
/// the date, the buttons of the mode, for a new booking the date.
void bereiteMaskeVor(const Maskenfelder& maske);

/// Says what is missing, and leads to its field.
bool fehlt(QWidget& feld, const QString& meldung);

/// Parts of the checks before a save, with their messages and the focus where something is missing: the
/// question at a red light, whose sentences `umbruch` separates; place and article.
bool darfNegativWerden(AmpelLED& Ampel, const QString& umbruch);
bool pruefeOrtUndArtikel(DataCombo& drpLagerort, ComboBox& drpGruppe, DataCombo& drpArtikel);

/// The checks before a save, with their messages and the focus where something is missing.
bool pruefeEingabe(const Maskenfelder& maske);

/// Makes the current row the only selected one.
void waehleNurAktuelleZeile(DataGrid& liste);
