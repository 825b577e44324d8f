#include "overview/verlauf/Verlaufsbild.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize Bildgroesse(640, 320); // pixels
constexpr int Mindestens = 180;

} // namespace

Verlaufsbild::Verlaufsbild(QWidget* parent) : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(Mindestens, Mindestens);
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
    setAccessibleName(u"Verlauf des Bestandes"_s);
}

void Verlaufsbild::zeige(std::vector<Jahresverlauf> jahre, std::optional<qint64> ID)
{
    m_jahre = std::move(jahre);
    m_platz = buchungen() - 1;
    qsizetype davor = 0;
    for (const Jahresverlauf& jahr : m_jahre) {
        if (const qsizetype platz = ID ? jahr.platz(*ID) : -1; platz >= 0) m_platz = davor + platz;
        davor += jahr.buchungen();
    }
    update();
}

std::vector<Jahreskurve> Verlaufsbild::kurven() const
{
    std::vector<Jahreskurve> kurven;
    for (const Jahresverlauf& jahr : m_jahre)
        kurven.push_back(jahr.kurve());
    return kurven;
}

qsizetype Verlaufsbild::buchungen() const
{
    qsizetype anzahl = 0;
    for (const Jahresverlauf& jahr : m_jahre)
        anzahl += jahr.buchungen();
    return anzahl;
}

std::optional<std::pair<int, Verlaufsbuchung>> Verlaufsbild::aktuelle() const
{
    qsizetype platz = m_platz;
    for (const Jahresverlauf& jahr : m_jahre) {
        if (platz >= 0 && platz < jahr.buchungen()) {
            const auto buchung = jahr.buchung(platz);
            if (!buchung) return {};
            return std::pair(jahr.kurve().jahr, *buchung);
        }
        platz -= jahr.buchungen();
    }
    return {};
}

QSize Verlaufsbild::sizeHint() const
{
    return Bildgroesse;
}

Verlaufszeichnung Verlaufsbild::zeichnung() const
{
    QFont schrift = font();
    schrift.setPixelSize(fontInfo().pixelSize());
    return {kurven(), rect(), schrift};
}

void Verlaufsbild::paintEvent(QPaintEvent*)
{
    if (m_jahre.empty()) return;
    QPainter maler(this);
    const Verlaufsfarben farben(palette());
    const Verlaufszeichnung bild = zeichnung();
    bild.male(maler, farben);
    if (const auto gezeigte = aktuelle())
        bild.maleStelle(maler, farben, gezeigte->second.tag, gezeigte->second.Bestand);
    if (!hasFocus()) return;
    maler.setPen(QPen(palette().color(QPalette::Highlight), 2));
    maler.setBrush(Qt::NoBrush);
    maler.drawRect(rect().adjusted(1, 1, -1, -1));
}

void Verlaufsbild::geheZu(qsizetype platz)
{
    if (buchungen() == 0) return;
    m_platz = std::clamp(platz, qsizetype{0}, buchungen() - 1);
    update();
    Q_EMIT Bewegt();
}

void Verlaufsbild::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Left: return geheZu(m_platz - 1);
    case Qt::Key_Right: return geheZu(m_platz + 1);
    case Qt::Key_Home: return geheZu(0);
    case Qt::Key_End: return geheZu(buchungen() - 1);
    case Qt::Key_Return:
    case Qt::Key_Enter: Q_EMIT Gewaehlt(); return;
    default: QWidget::keyPressEvent(event);
    }
}

/// The last booking up to that day, in its year; the first one before any.
qsizetype Verlaufsbild::platzAm(QDate tag) const
{
    qsizetype davor = 0;
    for (const Jahresverlauf& jahr : m_jahre) {
        for (const Tagesstand& stand : jahr.kurve().tage)
            if (stand.tag > tag)
                return davor - 1;
            else
                davor += stand.anzahl;
    }
    return davor - 1;
}

void Verlaufsbild::mousePressEvent(QMouseEvent* event)
{
    if (!m_jahre.empty()) geheZu(platzAm(zeichnung().tagBei(event->position().x())));
}

void Verlaufsbild::mouseDoubleClickEvent(QMouseEvent*)
{
    Q_EMIT Gewaehlt();
}
