#pragma once

#include <QString>

/// What the main screen remembers from one opening to the next, in the user's settings: one text each.
namespace bildschirmzustand {

inline const QString Abschnitt = QStringLiteral("Lagerverwaltung"); ///< Where it stands in the settings.

inline const QString LagerortSumme = QStringLiteral("LagerortSumme"); ///< "1": storage places in sum.
inline const QString OhneNull = QStringLiteral("OhneNull");           ///< "1": stocks of 0 are hidden.
inline const QString LetztKurzeingabe = QStringLiteral("LetztKurzeingabe");
inline const QString LetztBuchart = QStringLiteral("LetztBuchart");
inline const QString Fenster = QStringLiteral("Fenster"); ///< Size and place, in Qt's form, Base64.
inline const QString SpaltenJournal =
    QStringLiteral("SpaltenJournal"); ///< Widths in pixels, separated by commas.
inline const QString SpaltenBestand = QStringLiteral("SpaltenBestand");

QString text(const QString& name);
bool angehakt(const QString& name); ///< Nothing stored counts as "0".
void merke(const QString& name, const QString& text);
void merke(const QString& name, bool angehakt);

} // namespace bildschirmzustand
