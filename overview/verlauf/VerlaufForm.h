#pragma once

#include "core/farm/verlauf/Jahresverlauf.h"

#include <QDialog>

class CheckBox;
class QLabel;
class QTableView;
class Tagesmodell;
class Verlaufsbild;

/// "Verlauf": the stock of an article over the open year or over all of them, as a picture and in figures.
/// Other years than the open one are only read.
class VerlaufForm final : public QDialog {
    Q_OBJECT

public:
    /// \param ID the booking that is current at first; none: the last one.
    VerlaufForm(const Verlaufsziel& ziel, std::optional<qint64> ID, QWidget* parent = nullptr);

    /// The booking that the window was left for, with its year; nothing when it was closed.
    const std::optional<std::pair<int, qint64>>& gewaehlte() const { return m_gewaehlte; }
    void done(int result) override;

private:
    QLayout* errichteKnoepfe();
    void lies();
    void zeigeBuchung();
    void waehle();
    void drucke();
    void speichere();
    QString titel() const;

    Verlaufsziel m_ziel;
    std::optional<qint64> m_ID;
    CheckBox* chkAlleLagerorte;
    CheckBox* chkAlleJahre;
    QLabel* m_titel;
    Verlaufsbild* m_bild;
    QLabel* m_buchung;
    QTableView* m_liste;
    Tagesmodell* m_tage;
    QStringList m_einheiten;
    std::optional<std::pair<int, qint64>> m_gewaehlte;
};
