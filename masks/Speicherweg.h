#pragma once

#include <QObject>

#include <functional>

class Maskenfenster;
class Maskenfuss;

/// The way of a save, from "Speichern und ..." to the booking on the main screen.
class Speicherweg : public QObject {
public:
    struct Schritte {
        std::function<bool()> darf;  ///< The checks, with their messages and questions.
        std::function<void()> merke; ///< Settings; stored even where the booking then fails.
        std::function<void()>
            schreibe; ///< One step of the error report: ignoring an error cannot store half of it.
        std::function<void()> positioniere; ///< Shows the booking on the main screen.
        std::function<void()> leere;        ///< For the next booking.
    };
    Speicherweg(Maskenfenster& maske, Maskenfuss& fuss, Schritte schritte);

private:
    void speichere(bool beendet);
    bool schreibe(); ///< Whether it went to its end; if not, the mask stays as it was typed and can be saved
                     ///< again.
    void sperre(bool gesperrt);

    Maskenfenster& m_maske;
    Maskenfuss& m_fuss;
    const Schritte m_schritte;
};
