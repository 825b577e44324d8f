#pragma once

#include "core/Modulzustand.h"
#include "tests/support/Testbetrieb.h"

#include <QByteArray>

#include <map>

/// The farm that screens are tested on: two years with seven movements, two storage places that are on offer, goods with
/// prices and business partners.
class Musterhof : public Testbetrieb {
public:
    Musterhof();
    void stelleHer(); ///< Files, settings, day and shared state as they were at first. No Database may be open.

private:
    std::map<QString, QByteArray> m_dateien;
    Modulzustand m_zustand;
};
