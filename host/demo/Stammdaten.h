#pragma once

#include "host/Installation.h"
#include "host/demo/Sortiment.h"

// The master data of the demo farm, written into databases that are there and empty.

/// Articles by article kind and business partners into Grundstamm.mdb, storage places into Anlagen.mdb.
void fuelleStammdaten(const Installation& ort, const Sortiment& sortiment);

/// The year's plant-protection products and the register that they are checked against. The farm has one
/// product for every answer of the check: approved, expired, to be used up, under its former number, not in
/// the register, not in the list of products, of a kind that is not checked, and one whose name carries its
/// number.
void fuelleJahresstammdaten(const Installation& ort, int jahr);
