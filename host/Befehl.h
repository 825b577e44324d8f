#pragma once

#include "host/Installation.h"

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QDate>
#include <QList>
#include <QString>

/// One command of the program: zablager NAME [options] ARGUMENTS.
struct Befehl {
    QString name;
    /// Their names in help, separated by blanks; those in brackets, at the end, can be left out.
    QString argumente;
    QString beschreibung;
    QList<QCommandLineOption> optionen;
    QStringList noetig; ///< Names of the options that must be given.
    /// Does the work. \throws Aufruffehler, jet::Error, sys::FileError.
    void (*ausfuehren)(const QCommandLineParser& aufruf);
    bool zeigtFenster = false; ///< Runs under a QApplication, where there is a display.
};

Befehl einrichtenBefehl();
Befehl demoBefehl();
Befehl bestandBefehl();
Befehl oeffnenBefehl();
Befehl uebertragBefehl();
Befehl aktualisierenBefehl();
Befehl uebernehmenBefehl();
Befehl stammdatenBefehl();
Befehl pruefenBefehl();
Befehl sichernBefehl();
Befehl zurueckholenBefehl();
Befehl umbenennenBefehl();
Befehl verlaufBefehl();
Befehl jahreslisteBefehl();
Befehl sqlBefehl();

/// The farm number of the option, of a farm that need not be there. \throws Aufruffehler when it is none.
QString betriebsnummer(const QCommandLineParser& aufruf);
/// The option that names a farm.
QCommandLineOption betriebOption();
/// The farm that is meant: the one of the option, without it the only one. \throws Aufruffehler that lists
/// the farms; sys::FileError when there is none.
QString gewaehlterBetrieb(const Installation& ort, const QCommandLineParser& aufruf);
/// A year of which journal files can be made. \throws Aufruffehler.
int jahr(const QString& text);
/// A day in the form T.M.JJJJ, from 1900 on. \throws Aufruffehler.
QDate datum(const QString& text);
