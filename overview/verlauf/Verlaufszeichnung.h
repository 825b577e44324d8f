#pragma once

#include "core/farm/verlauf/Jahresverlauf.h"

#include <QColor>
#include <QFont>
#include <QPointF>
#include <QPolygonF>
#include <QRectF>

#include <vector>

class QPainter;
class QPalette;

/// What the picture is painted with, on a light ground or on a dark one.
struct Verlaufsfarben {
    QColor grund, schrift, gitter, linie;
    QColor unterNull; ///< Is thicker and hatched besides: not everybody sees a colour.

    explicit Verlaufsfarben(const QPalette& palette);
};

/// The picture of a stock through its years: a step for each day that has bookings, and a mark on it, which
/// points up for receipts, down for issues, both ways for both. Each year begins with its own opening rows
/// and does not go on from the one before.
class Verlaufszeichnung {
public:
    /// In the painter's own unit, on which the font's pixels stand.
    Verlaufszeichnung(std::vector<Jahreskurve> jahre, const QRectF& flaeche, const QFont& schrift);

    void male(QPainter& maler, const Verlaufsfarben& farben) const;
    /// A booking that is looked at: a ring around its day's end, or where it stands within the day.
    void maleStelle(QPainter& maler, const Verlaufsfarben& farben, QDate tag, double bestand) const;
    QDate tagBei(double x) const;

private:
    void maleGitter(QPainter& maler, const Verlaufsfarben& farben) const;
    void maleZeitachse(QPainter& maler, const Verlaufsfarben& farben) const;
    void maleStufen(QPainter& maler, const Verlaufsfarben& farben, const Jahreskurve& jahr) const;
    void maleMarken(QPainter& maler, const Verlaufsfarben& farben, const Jahreskurve& jahr) const;
    QPointF punkt(QDate tag, double bestand) const;
    QPolygonF marke(const Tagesstand& tag) const;
    QString beschriftung(double wert) const;
    double strich() const;

    std::vector<Jahreskurve> m_jahre;
    QFont m_schrift;
    QDate m_von, m_bis; ///< The first and the last day that have room.
    double m_unten = 0, m_oben = 0, m_schritt = 1;
    QRectF m_feld; ///< Where the steps are, within the captions.
};

/// The picture with a title above it, as paper and picture files have it.
void maleVerlaufsblatt(QPainter& maler, const QRectF& flaeche, const QString& titel,
                       const std::vector<Jahreskurve>& jahre, int schriftgroesse);
