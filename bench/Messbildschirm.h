#pragma once

#include "bench/Messung.h"
#include "overview/LagerbestandNeu.h"

#include <QDate>
#include <QString>

class DataGrid;

/// The real main screen on the farm that is there, open for the year of the key date, steered as a user does.
class Messbildschirm {
public:
    Messbildschirm(); ///< Returns when it has been painted and both views are there.
    ~Messbildschirm();
    Q_DISABLE_COPY_MOVE(Messbildschirm)

    void filtere(); ///< As when a day is typed; F5 fills the lists of the filter besides.
    void inSumme(bool wert);
    void waehle(const char* liste, const QString& wert); ///< In a list of the filter.
    void waehleTage(QDate von, QDate bis);
    void waehleJahr(int jahr);
    void klickeKopf(const char* liste, int spalte);
    /// Opens the booking mask of a kind by its short code and types the booking. \returns seconds from
    /// Enter on the button that books to the painting of the new row.
    double buche(const QString& kurzel, const std::function<void(QWidget& maske)>& tippe);
    /// Types a word in a column of the first row. \returns whether a row was found.
    bool tippe(const char* liste, int spalte, const QString& wort);

    const jet::Recordset& journal() const { return zeilen("Journaldaten"); }
    const jet::Recordset& bestandsliste() const { return zeilen("Bestanddaten"); }

private:
    template <class Teil>
    Teil& teil(const char* name) const;
    const jet::Recordset& zeilen(const char* daten) const;

    LagerbestandNeu m_fenster;
};

/// Shows a window and returns when all of it has been painted.
void zeigeBisGemalt(QWidget& fenster);

/// messe() for programs with windows; without a display they are painted into memory.
int messeBildschirm(int argc, char** argv, Umfang vorgabe, Umfang voll,
                    const std::function<void(const Umfang&)>& arbeit);
