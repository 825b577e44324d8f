#pragma once

/// Memory of this process that lies in RAM, in bytes, as the system counts it.
double belegterSpeicher();

/// The most it ever was, since the start or since beginneSpitze().
double speicherspitze();
void beginneSpitze();
