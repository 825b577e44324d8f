#pragma once

#include "platform/jet/TableDef.h"
#include "platform/oldfile/Cell.h"

#include <QByteArray>
#include <QString>

/// A cell of an old file as a column here takes it, or why it cannot.
struct Zelle {
    jet::Value wert;
    QString verlust; ///< Empty: nothing is lost. Else `wert` is NULL.
};

/// \param ziel the column here. Texts may be longer than it is now: it grows, up to 255 letters.
Zelle umgesetzt(const oldfile::Cell& alt, const jet::Field& ziel);

/// Whether a column of the type has a counterpart here.
bool hatGegenstueck(oldfile::Type art);
/// The type of the counterpart, in the words of a definition: "TEXT(50)".
QString spaltentyp(const oldfile::Column& spalte);

// One form for what is equal on both sides, each made of its own side alone: what compares them has no
// step in common with what has carried the values over.
QByteArray gleichform(const oldfile::Cell& alt);
QByteArray gleichform(const jet::Value& neu, const oldfile::Column& alt);
