#pragma once

#include "host/Installation.h"

/// Creates what an installation still lacks: directories, template, master data, storage places, report forms,
/// settings, and of one farm the journal file of one year. What exists is left as it is, and each file appears
/// complete or not at all. \throws jet::Error, sys::FileError when something cannot be written.
void richteEin(const Installation& ort, const QString& Betriebsnummer, int jahr);

/// Makes a directory and those above it where they are missing. \throws sys::FileError.
void legeVerzeichnisAn(const QString& pfad);
