#pragma once

#include "platform/controls/Wiring.h"

#include <QString>

/// Whether a text has at most `zeichen` letters, with the message if not.
bool hatPlatz(const QString& text, const QString& als, qsizetype zeichen);

/// Refuses, when the field is left, a text that its column of the journal cannot hold. `als`: what the text
/// is.
template <class Feld>
void begrenze(Feld& feld, const QString& als, qsizetype zeichen)
{
    verdrahte(&feld, &Feld::Validate, &feld, [&feld, als, zeichen](Cancel& cancel) {
        if (!hatPlatz(feld.Text(), als, zeichen)) cancel = true;
    });
}
