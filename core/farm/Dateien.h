#pragma once

#include "platform/jet/Database.h"

#include <QString>

#include <memory>

// Where the files of a farm lie, and how they are opened and made. Nobody else forms their names or their
// connect texts. Names are those of the family, with its "\"; a file is found whatever its case.

/// A kind of database file: a year's journal and the template of one, the master data of articles and
/// partners, the objects of which some are storage places, and a year's register of plant-protection
/// products.
enum class Dateiart { Lager, Grundstamm, Anlagen, ZABStammdaten };

QString betriebsordner(const QString& datenverzeichnis, const QString& betriebsnummer); ///< "...\B4711"
/// "...\Lager.2024": the year is the ending, of four digits; there is no other one.
QString journaldatei(const QString& betriebsordner, int jahr);
QString vorlagedatei(const QString& programmverzeichnis);
QString grundstammdatei(const QString& datenverzeichnis);
QString anlagendatei(const QString& anlagenverzeichnis);
QString stammdatei(const QString& programmverzeichnis,
                   const QString& jahr); ///< Of the register; `jahr` as it is chosen.

/// What a new file of the kind gets; empty for a year's, which opens with any text.
QString kennwort(Dateiart art);
/// With what the component and its host programs open a file of the kind. A year's own file has no password,
/// so the one in this text opens it as any does; a template that has this one is opened for everything but a
/// stock question.
QString verbindung(Dateiart art);
/// The connect text of a link from another file to one of the kind.
QString verknuepfung(Dateiart art, const QString& datei);

/// Opens a file of the kind, with a connect text of its own where a host has given one. \throws jet::Error as
/// Engine::OpenDatabase; UnknownFormat when a newer program has changed it.
std::unique_ptr<jet::Database> oeffne(Dateiart art, const QString& datei);
std::unique_ptr<jet::Database> oeffne(Dateiart art, const QString& datei, const QString& verbindung);
/// Opens a year's file for a stock question: without a connect text, so that a template with a password ends
/// the call.
std::unique_ptr<jet::Database> oeffneFuerBestand(const QString& datei);

/// Makes a file of the kind that has no tables yet. `datei` is a local path. \throws jet::Error.
std::unique_ptr<jet::Database> erzeuge(Dateiart art, const QString& datei);
/// Makes a file of the kind with its tables, where there is none. It is built under a name of its own: an
/// interrupted run leaves no half database that the next one would take for whole, and two runs at once do
/// not disturb each other. `datei` is a local path. \throws jet::Error, sys::FileError.
void legeAn(Dateiart art, const QString& datei);
/// Makes a year's file that does not exist yet as a copy of the template, which is opened first. \throws as
/// jet::copyWhereMissing; jet::Error UnknownFormat when a newer program has changed the template.
void kopiereVorlage(const QString& vorlage, const QString& verbindung, const QString& journal);
