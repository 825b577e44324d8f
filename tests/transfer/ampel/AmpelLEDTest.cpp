#include "transfer/ampel/AmpelLED.h"
#include "tests/support/Print.h"

#include <QAccessible>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

/// The visible pictures, each with its place where that is not the upper left corner.
QString zuSehen(const AmpelLED& ampel)
{
    QStringList namen;
    for (const QString& name : {u"Ampelgrau"_s, u"Ampelgruen"_s, u"Ampelgelb"_s, u"Ampelrot"_s}) {
        const auto* const lampe = ampel.findChild<QWidget*>(name);
        if (!lampe) return u"no "_s + name;
        if (lampe->isHidden()) continue;
        namen.append(lampe->pos().isNull() ? name : name + u" %1,%2"_s.arg(lampe->x()).arg(lampe->y()));
    }
    return namen.join(u' ');
}

} // namespace

TEST(AmpelLED, ZeigtGenauDieLampeDesZustands)
{
    const struct {
        int geschrieben, gelesen;
        QStringView lampe, bedeutung;
    } faelle[] = {
        {1, 1, u"Ampelgruen", u"grün: Bestand ausreichend"},
        {0, 0, u"Ampelgrau", u"grau: Bestand nicht bekannt"},
        {2, 2, u"Ampelgelb", u"gelb: Bestand knapp"},
        {3, 3, u"Ampelrot", u"rot: Bestand negativ"},
        {-2, 0, u"Ampelgrau", u"grau: Bestand nicht bekannt"},
        {65536, 3, u"Ampelrot", u"rot: Bestand negativ"},
    };
    AmpelLED ampel;
    const QAccessibleInterface* const vorgelesen = QAccessible::queryAccessibleInterface(&ampel);
    ASSERT_TRUE(vorgelesen);
    EXPECT_EQ(vorgelesen->role(), QAccessible::Graphic);
    for (const auto& fall : faelle) {
        EXPECT_TRUE(ampel.setProperty("Ampel", fall.geschrieben));
        EXPECT_EQ(zuSehen(ampel), fall.lampe);
        EXPECT_EQ(ampel.property("Ampel").toInt(), fall.gelesen);
        EXPECT_EQ(vorgelesen->text(QAccessible::Description), fall.bedeutung);
    }
}

// Reading and writing put the pictures onto the first one, loading does not: hosts have moved them.
TEST(AmpelLED, StapeltBeimLesenUndBeimSchreibenAberNichtBeimLaden)
{
    AmpelLED ampel;
    QStringList gemeldet;
    ampel.findChild<QWidget*>(u"Ampelgrau"_s)->move(3, 4);
    ampel.ReadProperties({});
    EXPECT_EQ(zuSehen(ampel), u"Ampelgrau 3,4"_s);
    ampel.property("Ampel");
    EXPECT_EQ(zuSehen(ampel), u"Ampelgrau"_s);
    ampel.findChild<QWidget*>(u"Ampelrot"_s)->move(5, 6);
    QObject::connect(&ampel, &AmpelLED::AmpelGeandert,
                     [&] { // told before the lamp changes; a host may set another state
                         PropertyBag ablage;
                         ampel.WriteProperties(ablage);
                         gemeldet.append(zuSehen(ampel) +
                                         u" stored %1"_s.arg(ablage.ReadProperty(u"Ampel"_s, 0)));
                         if (gemeldet.size() == 1) ampel.setAmpel(1);
                     });
    ampel.setAmpel(7);
    EXPECT_EQ(zuSehen(ampel), u"Ampelgruen"_s);
    ampel.setAmpel(3);
    EXPECT_EQ(zuSehen(ampel), u"Ampelrot"_s);
    EXPECT_EQ(gemeldet,
              QStringList({u"Ampelgrau stored 7"_s, u"Ampelgrau stored 1"_s, u"Ampelgruen stored 3"_s}));
}

TEST(AmpelLED, BehaltWasVomUblichenAbweicht)
{
    using Werte = QMap<QString, qint64>;
    const QString zustand = u"Ampel"_s, farbe = u"BackColor"_s;
    const struct {
        Werte gelesen;
        QString lampe;
        Werte geschrieben;
        QColor grund;
    } faelle[] = {
        {{}, u"Ampelgrau"_s, {}, QColor(4, 5, 6)},
        {{{zustand, 99}, {farbe, -2147483633}},
         u"Ampelrot"_s,
         {{zustand, 3}, {farbe, 0x8000000F}},
         QColor(1, 2, 3)},
        {{{zustand, 1}, {farbe, 0x123456}},
         u"Ampelgruen"_s,
         {{zustand, 1}, {farbe, 0x123456}},
         QColor(86, 52, 18)},
        {{{farbe, 0x800000FF}},
         u"Ampelgrau"_s,
         {{farbe, 0x800000FF}},
         QColor(1, 2, 3)}, // no colour of the system
    };
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(1, 2, 3));
    palette.setColor(QPalette::Dark, QColor(4, 5, 6));
    for (const auto& fall : faelle) {
        PropertyBag alt, neu;
        for (auto wert = fall.gelesen.begin(); wert != fall.gelesen.end(); ++wert)
            alt.WriteProperty(wert.key(), wert.value(), 0);
        AmpelLED geladen;
        geladen.resize(geladen.sizeHint());
        geladen.setPalette(palette);
        geladen.ReadProperties(alt);
        EXPECT_EQ(zuSehen(geladen), fall.lampe);
        geladen.WriteProperties(neu);
        EXPECT_EQ(neu.kept(), fall.geschrieben);
        EXPECT_EQ(geladen.grab().toImage().pixelColor(0, 0).name(), fall.grund.name());
    }
}

/// Runs a second time with a screen of 200 %.
TEST(AmpelLED, ZeichnetAusDemSymbolDerAuflosung)
{
    AmpelLED ampel;
    ampel.resize(ampel.sizeHint());
    const QImage symbol(ampel.devicePixelRatio() < 2 ? u":/ampel/Ampelgrau.ico"_s
                                                     : u":/ampel/Ampelgrau32.ico"_s);
    QImage erwartet(symbol.size(), QImage::Format_RGB32);
    erwartet.fill(ampel.palette().color(QPalette::Window));
    QPainter(&erwartet).drawImage(0, 0, symbol);
    QImage bekommen = ampel.grab().toImage().convertToFormat(QImage::Format_RGB32);
    bekommen.setDevicePixelRatio(1);
    EXPECT_TRUE(bekommen == erwartet);
}
