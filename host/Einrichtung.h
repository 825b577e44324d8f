#pragma once

#include "host/Installation.h"

#include <optional>

/// Creates what an installation still lacks: directories, template, master data, storage places, report
/// forms, settings, and of one farm the journal file of one year. What exists is left as it is, and each file
/// appears complete or not at all. Without a year none comes into being. \throws jet::Error, sys::FileError
/// when something cannot be written.
void richteEin(const Installation& ort, const QString& Betriebsnummer, std::optional<int> jahr);
/// Of that the directories and the template alone.
void legeOrdnerUndVorlageAn(const Installation& ort, const QString& Betriebsnummer);

/// Two storage places and common articles, where there are neither of them. \returns whether it was so.
bool fuelleMitBeispiel(const Installation& ort);

/// Brings the template, of which new years are copies, up to date where it can be written. \throws jet::Error
void bringeVorlageAufStand(const Installation& ort);

/// Brings the report forms that an installation lacks. One that it has stays as it is: the farm's adviser may
/// have changed it. \throws sys::FileError.
void legeBerichtsformulareAn(const Installation& ort);

/// Makes a directory and those above it where they are missing. \throws sys::FileError.
void legeVerzeichnisAn(const QString& pfad);
