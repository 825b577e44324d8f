#pragma once

/// Memory of this process that lies in RAM, in bytes, as the system counts it.
double belegterSpeicher();

/// The most it ever was, since the start or since beginneSpitze().
double speicherspitze();
void beginneSpitze();

/// What the program has allocated and not freed, in bytes. It counts what an object takes even where that
/// lies in memory which another one has left.
double vergebenerSpeicher();
