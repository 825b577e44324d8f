#pragma once

#include <QAction>
#include <QObject>

#include <functional>

class ComboBox;
class DataControl;
class DateCombo;

/// "Pflanzenschutzmittel prüfen": narrows the screen to the plant-protection products of its year and shows
/// what the register says of each.
class Registerbefehl : public QObject {
    Q_OBJECT

public:
    struct Felder {
        QAction& M_PflanzschPrufen;
        ComboBox &drpLagerOrte, &drpArtikelGruppe, &drpArtikel, &drpJahr;
        DateCombo &VonDatum, &Buchdatum;
        DataControl& Bestanddaten;
    };
    /// `filtere` shows both views by what the fields say; false: it could not.
    Registerbefehl(const Felder& felder, std::function<bool()> filtere, QObject* bildschirm);

private:
    void M_PflanzschPrufen_Click();
    [[nodiscard]] bool grenzeEin(int Jahr);

    const Felder m_felder;
    const std::function<bool()> m_filtere;
};
