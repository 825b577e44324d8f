#pragma once

#include <QAction>
#include <QObject>

#include <functional>

class ComboBox;
class DataControl;
class DateCombo;

/// "Pflanzenschutzmittel prüfen": narrows the screen to the plant-protection products of its year and shows what the
/// register says of each.
class Registerbefehl : public QObject {
    Q_OBJECT

public:
    struct Felder {
        QAction& M_PflanzschPrufen;
        ComboBox &drpLagerOrte, &drpArtikelGruppe, &drpArtikel, &drpJahr;
        DateCombo &VonDatum, &Buchdatum;
        DataControl& Bestanddaten;
    };
    /// `filtere` shows both views by what the fields say.
    Registerbefehl(const Felder& felder, std::function<void()> filtere, QObject* bildschirm);

private:
    void M_PflanzschPrufen_Click();
    void grenzeEin(int Jahr);

    const Felder m_felder;
    const std::function<void()> m_filtere;
};
