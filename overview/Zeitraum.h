#pragma once

class DateCombo;

/// Marks the days of the filter that limit nothing, since one of them is none, or that nothing can lie
/// between.
void markiereZeitraum(DateCombo& VonDatum, DateCombo& Buchdatum);
