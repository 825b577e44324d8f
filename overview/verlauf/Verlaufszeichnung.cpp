#include "overview/verlauf/Verlaufszeichnung.h"

#include "platform/system/Clock.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QLocale>
#include <QPainter>
#include <QPalette>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int Schritte = 6; // of the scale, at most
constexpr int HellerGrund = 128;

/// 1, 2 or 5 with noughts.
double schrittweite(double spanne)
{
    const double genau = spanne / Schritte;
    const double zehner = std::pow(10, std::floor(std::log10(genau)));
    for (const double faktor : {1, 2, 5})
        if (faktor * zehner >= genau) return faktor * zehner;
    return 10 * zehner;
}

QDate letzterTag(const Jahreskurve& jahr)
{
    const QDate silvester(jahr.jahr, 12, 31);
    const QDate heute = std::min(sys::heute(), silvester); // what is to come has no stock yet
    return jahr.tage.empty() ? heute : std::max(heute, jahr.tage.back().tag);
}

} // namespace

Verlaufsfarben::Verlaufsfarben(const QPalette& palette)
    : grund(palette.color(QPalette::Base)), schrift(palette.color(QPalette::Text)), gitter(schrift)
{
    const bool hell = grund.lightness() > HellerGrund;
    linie = hell ? QColor(0x1f, 0x5f, 0xa8) : QColor(0x7d, 0xb4, 0xff);
    unterNull = hell ? QColor(0xc0, 0, 0) : QColor(0xff, 0x80, 0x70);
    gitter.setAlphaF(0.18F);
}

Verlaufszeichnung::Verlaufszeichnung(std::vector<Jahreskurve> jahre, const QRectF& flaeche,
                                     const QFont& schrift)
    : m_jahre(std::move(jahre)), m_schrift(schrift), m_von(m_jahre.front().jahr, 1, 1),
      m_bis(m_jahre.back().jahr, 12, 31)
{
    for (const Jahreskurve& jahr : m_jahre)
        for (const Tagesstand& tag : jahr.tage) {
            m_von = std::min(m_von, tag.tag);
            m_bis = std::max(m_bis, tag.tag);
            m_unten = std::min(m_unten, tag.Bestand);
            m_oben = std::max(m_oben, tag.Bestand);
        }
    if (m_unten == m_oben) m_oben = 1;
    m_schritt = schrittweite(m_oben - m_unten);
    m_unten = std::floor(m_unten / m_schritt) * m_schritt;
    m_oben = std::ceil(m_oben / m_schritt) * m_schritt;
    const QFontMetricsF masz(m_schrift);
    const double links =
        std::max(masz.horizontalAdvance(beschriftung(m_unten)), masz.horizontalAdvance(beschriftung(m_oben)));
    m_feld = flaeche.adjusted(links + masz.height(), masz.height(), -masz.height(), -2 * masz.height());
}

/// Of a thin line, on the screen as on paper, whose pixels are finer.
double Verlaufszeichnung::strich() const
{
    return std::max(1.0, m_schrift.pixelSize() / 12.0);
}

QString Verlaufszeichnung::beschriftung(double wert) const
{
    const int stellen = std::max(0, static_cast<int>(-std::floor(std::log10(m_schritt))));
    return QLocale(QLocale::German).toString(wert, 'f', stellen);
}

QPointF Verlaufszeichnung::punkt(QDate tag, double bestand) const
{
    const double tage = static_cast<double>(m_von.daysTo(m_bis) + 1);
    return {m_feld.left() + m_feld.width() * static_cast<double>(m_von.daysTo(tag)) / tage,
            m_feld.bottom() - m_feld.height() * (bestand - m_unten) / (m_oben - m_unten)};
}

QDate Verlaufszeichnung::tagBei(double x) const
{
    const double tage = static_cast<double>(m_von.daysTo(m_bis) + 1);
    return m_von.addDays(static_cast<qint64>((x - m_feld.left()) / m_feld.width() * tage));
}

void Verlaufszeichnung::male(QPainter& maler, const Verlaufsfarben& farben) const
{
    maler.setRenderHint(QPainter::Antialiasing);
    maler.setFont(m_schrift);
    maleGitter(maler, farben);
    maleZeitachse(maler, farben);
    for (const Jahreskurve& jahr : m_jahre) {
        maleStufen(maler, farben, jahr);
        maleMarken(maler, farben, jahr);
    }
    const bool leer = std::ranges::all_of(m_jahre, [](const auto& jahr) { return jahr.tage.empty(); });
    maler.setPen(farben.schrift);
    if (leer) maler.drawText(m_feld, Qt::AlignCenter, u"Keine Buchungen"_s);
}

/// The scale of the quantities; 0 is a line that is seen.
void Verlaufszeichnung::maleGitter(QPainter& maler, const Verlaufsfarben& farben) const
{
    const QFontMetricsF masz(m_schrift);
    const int anzahl = static_cast<int>(std::lround((m_oben - m_unten) / m_schritt));
    for (int i = 0; i <= anzahl; ++i) {
        const double wert = m_unten + i * m_schritt;
        const bool istNull = std::abs(wert) < m_schritt / 2;
        const double y = punkt(m_von, wert).y();
        maler.setPen(QPen(istNull ? farben.schrift : farben.gitter, strich()));
        maler.drawLine(QPointF(m_feld.left(), y), QPointF(m_feld.right(), y));
        maler.setPen(farben.schrift);
        const QString text = beschriftung(istNull ? 0 : wert);
        maler.drawText(QPointF(m_feld.left() - masz.horizontalAdvance(text) - masz.height() / 2,
                               y + masz.ascent() / 2 - masz.descent() / 2),
                       text);
    }
}

/// A line a month, or a year where there are several.
void Verlaufszeichnung::maleZeitachse(QPainter& maler, const Verlaufsfarben& farben) const
{
    const QFontMetricsF masz(m_schrift);
    const bool mehrereJahre = m_jahre.size() > 1;
    const QLocale deutsch(QLocale::German);
    for (QDate tag(m_von.year(), 1, 1); tag <= m_bis;
         tag = mehrereJahre ? tag.addYears(1) : tag.addMonths(1)) {
        if (tag < m_von) continue;
        const double x = punkt(tag, 0).x();
        maler.setPen(QPen(farben.gitter, strich()));
        maler.drawLine(QPointF(x, m_feld.top()), QPointF(x, m_feld.bottom()));
        maler.setPen(farben.schrift);
        const QString text = mehrereJahre ? QString::number(tag.year())
                                          : deutsch.standaloneMonthName(tag.month(), QLocale::ShortFormat);
        maler.drawText(QPointF(x + masz.height() / 5, m_feld.bottom() + masz.ascent() + masz.height() / 3),
                       text);
    }
}

void Verlaufszeichnung::maleStufen(QPainter& maler, const Verlaufsfarben& farben,
                                   const Jahreskurve& jahr) const
{
    if (jahr.tage.empty()) return;
    QPolygonF stufen{punkt(jahr.tage.front().tag, 0)};
    for (const Tagesstand& tag : jahr.tage)
        stufen << QPointF(punkt(tag.tag, 0).x(), stufen.back().y()) << punkt(tag.tag, tag.Bestand);
    const QPointF ende = punkt(letzterTag(jahr).addDays(1), 0);
    stufen << QPointF(ende.x(), stufen.back().y());
    const double breite = 1.5 * strich();
    const double null = ende.y();
    const QRectF darueber(m_feld.left(), m_feld.top() - breite, m_feld.width(),
                          null - m_feld.top() + 2 * breite);
    const QRectF darunter(m_feld.left(), null + breite, m_feld.width(), m_feld.bottom() - null + breite);
    maler.save();
    maler.setClipRect(darueber);
    maler.setPen(QPen(farben.linie, breite));
    maler.drawPolyline(stufen);
    maler.setClipRect(darunter);
    maler.setPen(Qt::NoPen);
    maler.setBrush(QBrush(farben.unterNull, Qt::BDiagPattern));
    maler.drawPolygon(QPolygonF(stufen) << ende);
    maler.setPen(QPen(farben.unterNull, 2 * breite));
    maler.setBrush(Qt::NoBrush);
    maler.drawPolyline(stufen);
    maler.restore();
}

QPolygonF Verlaufszeichnung::marke(const Tagesstand& tag) const
{
    const double r = m_schrift.pixelSize() / 3.0;
    QPolygonF form{{-r, 0}, {r, 0}};
    if (tag.Zugang > 0 || tag.Abgang == 0) form.insert(1, {0, -1.5 * r});
    if (tag.Abgang > 0) form << QPointF(0, 1.5 * r);
    return form.translated(punkt(tag.tag, tag.Bestand));
}

void Verlaufszeichnung::maleMarken(QPainter& maler, const Verlaufsfarben& farben,
                                   const Jahreskurve& jahr) const
{
    maler.setPen(QPen(farben.grund, strich()));
    for (const Tagesstand& tag : jahr.tage) {
        maler.setBrush(tag.Bestand < 0 ? farben.unterNull : farben.linie);
        maler.drawPolygon(marke(tag));
    }
}

void Verlaufszeichnung::maleStelle(QPainter& maler, const Verlaufsfarben& farben, QDate tag,
                                   double bestand) const
{
    const QPointF stelle = punkt(tag, bestand);
    const double r = m_schrift.pixelSize() * 0.7;
    maler.setPen(QPen(farben.schrift, strich(), Qt::DashLine));
    maler.drawLine(QPointF(stelle.x(), m_feld.top()), QPointF(stelle.x(), m_feld.bottom()));
    maler.setPen(QPen(farben.schrift, 2 * strich()));
    maler.setBrush(Qt::NoBrush);
    maler.drawEllipse(stelle, r, r);
}

void maleVerlaufsblatt(QPainter& maler, const QRectF& flaeche, const QString& titel,
                       const std::vector<Jahreskurve>& jahre, int schriftgroesse)
{
    QFont schrift = QGuiApplication::font();
    schrift.setPixelSize(schriftgroesse);
    QFont fett = schrift;
    fett.setBold(true);
    const Verlaufsfarben papier(QPalette(Qt::black, Qt::white, Qt::lightGray, Qt::darkGray, Qt::gray,
                                         Qt::black, Qt::white, Qt::white, Qt::white));
    maler.setFont(fett);
    maler.setPen(papier.schrift);
    maler.drawText(flaeche, Qt::AlignTop | Qt::AlignLeft, titel);
    const Verlaufszeichnung zeichnung(jahre, flaeche.adjusted(0, 2.0 * schriftgroesse, 0, 0), schrift);
    zeichnung.male(maler, papier);
}
