#pragma once

/// Carries the closing stocks of the key date's year, and of every later one, into the next year file that
/// exists, as "Anfangsbestand" rows of 1 January. Files of earlier years are never touched, rows never
/// deleted.
///
/// False, with or without a message, when there is no farm, no data directory or no year file. The rows of
/// one year file become durable together; after an error those written before it stay, and a later run mends
/// the rest. \throws jet::Error of the engine, apostrophes in names included.
bool JahresUbertrag();
