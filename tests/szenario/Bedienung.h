#pragma once

#include "platform/controls/DataGrid.h"

#include <QComboBox>

// What a user does at a screen, and what he sees there. \throws std::runtime_error for what cannot be done.

/// A failure of what is being done.
[[noreturn]] void scheitere(const QString& grund);

void geheIn(QWidget& feld); ///< Puts the focus there and selects what stands there.
/// On the middle of a field; of a list on a row, from 1.
void klicke(QWidget& feld, int zeile, bool doppelt);
void klickeKopf(const DataGrid& liste, const QString& titel);

/// The text of a field, label, tab or heading of a list; of a traffic light its colour.
QString gesehen(const QObject& ding);
/// The rows of a list, or of its row that is current, cells joined by " | "; hidden columns are left out.
QStringList rasterzeilen(const QTableView& liste);
QString rasterspalte(const DataGrid& liste, const QString& titel); ///< From above, joined by " | ".
QString aktuelleZeile(const DataGrid& liste);
QString angebot(const QComboBox& auswahl); ///< What drops down, joined by " | ".
QString markierter();                      ///< The text that is selected where the focus is.
/// "an", "offen", "sichtbar", "frei", or "nicht" so.
bool ist(const QObject& ding, const QString& was);
