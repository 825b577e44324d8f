#pragma once

#include "tests/overview/Hauptbildschirm.h"

#include "platform/controls/NumberEdit.h"
#include "tests/support/Bildschirm.h"

/// The main screen with what bookings need: two storage places, goods with prices and a business partner. A mask is
/// opened by its letter and driven by keys.
class Buchung : public Hauptbildschirm {
protected:
    Buchung();

    /// Types a code on the main screen; what the user does in the mask has been queued before.
    void kurzel(char buchstabe) const;
    void aktiviere() const; ///< As a window manager does when a mask has closed.
    void aendere() const;   ///< "Än&dern" by its letter.
    void waehleBewegung(int zeile) const;

    static void schreibe(QWidget& maske, const char* name, const QString& text); ///< Over a field, and stays in it.
    /// The same, and leaves the field by Tab.
    static void setze(QWidget& maske, const char* name, const QString& text);
    static void setzeDort(const QString& text); ///< In the field that has the focus; and leaves it by Tab.
    static void erfasse(QWidget& maske, const QString& gruppe, const QString& artikel,
                        const QString& menge); ///< At H1.
    /// The article's list opens when its text is refused, and shows what can be chosen.
    static void schliesseListe(QWidget& maske, const char* feld);
    static void hake(QWidget& maske, const char* name, bool an);
    static void esc();
    static QWidget& widget(QWidget& maske, const char* name);
    static double wert(QWidget& maske, const char* name);
    static QString text(QWidget& maske, const char* name); ///< Of a field or a label.
    /// Presses a button by its letter, and waits until it has done its work: the letter presses it through an animation.
    static void druecke(QWidget& maske, Qt::Key buchstabe, const char* knopf);
    static void speichere(QWidget& maske) { druecke(maske, Qt::Key_B, "Command2(1)"); }
    static void speichereUndNaechster(QWidget& maske) { druecke(maske, Qt::Key_N, "Command2(0)"); }
    static void brichAb(QWidget& maske) { druecke(maske, Qt::Key_A, "Command1"); }

    /// The newest row with all columns that masks write, without its date:
    /// "H1 | Roggen | Saatgut/Sorten | 5 | 5 | kg | 42 | 100 | Zukauf | 0 | HUBER | GEBEIZT | Kommentar".
    QString letzteZeile() const;
    qsizetype anzahl() const { return qsizetype(hof.journal(2024).size()); }
};

inline const QString NegativFrage =
    QStringLiteral("Der Lagerstand wird negativ.\r\n\r\nWollen Sie die Buchung trotzdem abspeichern ?");
inline const QString ZugangNegativ =
    QStringLiteral("Der Lagerstand wird negativ.\r\rWollen Sie die Buchung trotzdem abspeichern ?");
inline const QString Loeschfrage = QStringLiteral("Wollen Sie die markierte Zeile wirklich löschen ?");
inline const QString PartnerFrage =
    QStringLiteral("Sie haben keine Geschäftspartner eingetragen.\r\n\r\nWollen Sie den Zukauf trotzdem abspeichern ?");
inline const QString KeinArtikel =
    QStringLiteral("Bitte tragen Sie eine gültigen Artikel ein oder wählen Sie eineb Artikel aus !");
