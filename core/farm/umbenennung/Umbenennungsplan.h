#pragma once

#include "core/farm/umbenennung/Umbenennung.h"

#include <vector>

/// What a renaming will do to a year.
struct Jahresplan {
    QString betrieb;
    int jahr = 0;
    qsizetype zeilen = 0;
    QStringList gemeinsame; ///< What becomes one there: of an article its places, of a place its articles.
};

/// What it will do, and why it must not be.
struct Umbenennungsplan {
    std::vector<Jahresplan> jahre; ///< That have rows of the old name.
    QStringList stammdaten;        ///< A sentence each.
    QStringList warnungen;
    QStringList hindernisse; ///< Empty: it can be done.

    QString text() const; ///< All of it, a line each.
};

/// Reads all files that it is about. \throws jet::Error, sys::FileError of one that cannot be read.
Umbenennungsplan plane(const Umbenennung& umbenennung, const Umbenennungsort& ort);
