#pragma once

#include "overview/verlauf/Verlaufszeichnung.h"

#include <QWidget>

/// The picture on the screen, on which one booking is current: arrow keys, Pos1, Ende and the mouse go to
/// another one, Enter chooses it.
class Verlaufsbild : public QWidget {
    Q_OBJECT

public:
    explicit Verlaufsbild(QWidget* parent = nullptr);

    /// The last booking is current, or the one with this number.
    void zeige(std::vector<Jahresverlauf> jahre, std::optional<qint64> ID);
    std::vector<Jahreskurve> kurven() const;
    qsizetype buchungen() const; ///< Of all years.
    /// The year and the booking; none where there is none, or where it was deleted meanwhile.
    std::optional<std::pair<int, Verlaufsbuchung>> aktuelle() const;

    QSize sizeHint() const override;

Q_SIGNALS:
    void Bewegt(); ///< Another booking is current.
    void Gewaehlt();

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    void geheZu(qsizetype platz);
    qsizetype platzAm(QDate tag) const;
    Verlaufszeichnung zeichnung() const;

    std::vector<Jahresverlauf> m_jahre;
    qsizetype m_platz = -1; ///< Among the bookings of all years.
};
