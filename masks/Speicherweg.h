#pragma once

#include "masks/Maskenfelder.h"

#include <QObject>

#include <functional>
#include <optional>

class Buchungstag;
class Maskenfenster;
class Maskenfuss;

/// The way of a save, from "Speichern und ..." to the booking on the main screen.
class Speicherweg : public QObject {
public:
    /// What is checked in every mask: the fields, those of the other side of a transfer, and the day.
    struct Eingaben {
        Maskenfelder felder;
        Buchungstag& tag;
        std::optional<Maskenfelder> gegenseite = {};
    };
    /// What a mask does in its own way; a step that it does not need is left out.
    struct Schritte {
        std::function<void()> vorher = {}; ///< Before the checks: brings up to date what they look at.
        std::function<bool()> frage = {};  ///< The last check, or a question of its own.
        std::function<void()> merke;       ///< Settings; stored even where the booking then fails.
        std::function<void()>
            schreibe; ///< One step of the error report: ignoring an error cannot store half of it.
        std::function<void()> positioniere; ///< Shows the booking on the main screen.
        std::function<void()> leere;        ///< For the next booking.
    };
    Speicherweg(Maskenfenster& maske, Maskenfuss& fuss, Eingaben eingaben, Schritte schritte);

private:
    void speichere(bool beendet);
    bool darf();     ///< The checks, with their messages and questions.
    bool schreibe(); ///< Whether it went to its end; if not, the mask stays as it was typed and can be saved
                     ///< again.
    void sperre(bool gesperrt);

    Maskenfenster& m_maske;
    Maskenfuss& m_fuss;
    const Eingaben m_eingaben;
    const Schritte m_schritte;
};
