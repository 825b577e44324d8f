#pragma once

#include "host/demo/Hofkalender.h"
#include "platform/jet/Database.h"

/// Writes the bookings into the journal of a year, in one transaction, as masks and field records write them.
void buche(jet::Database& journal, const std::vector<Vorgang>& buchungen);

/// Gives the opening rows of the carry-forward, which knows no subgroups, those of their articles.
void ergaenzeUntergruppen(jet::Database& journal, const Sortiment& sortiment);
