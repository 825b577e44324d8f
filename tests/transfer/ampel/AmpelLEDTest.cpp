#include "transfer/ampel/AmpelLED.h"
#include "tests/support/Print.h"

#include <QAccessible>
#include <QPainter>

#include <gtest/gtest.h>

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
    struct Fall {
        int geschrieben, gelesen;
        QString lampe, bedeutung;
    };
    const Fall faelle[] = {
        {1, 1, u"Ampelgruen"_s, u"grün: Bestand ausreichend"_s},
        {0, 0, u"Ampelgrau"_s, u"grau: Bestand nicht bekannt"_s},
        {2, 2, u"Ampelgelb"_s, u"gelb: Bestand knapp"_s},
        {3, 3, u"Ampelrot"_s, u"rot: Bestand negativ"_s},
        {-2, 0, u"Ampelgrau"_s, u"grau: Bestand nicht bekannt"_s},
        {7, 3, u"Ampelrot"_s, u"rot: Bestand negativ"_s},
        {65536, 3, u"Ampelrot"_s, u"rot: Bestand negativ"_s}, // not 0, as 16 bits would have it
    };
    AmpelLED ampel;
    const QAccessibleInterface* const vorgelesen = QAccessible::queryAccessibleInterface(&ampel);
    ASSERT_TRUE(vorgelesen);
    EXPECT_EQ(vorgelesen->role(), QAccessible::Graphic);
    for (const Fall& fall : faelle) {
        for (int mal : {1, 2}) { // the same value again changes nothing
            SCOPED_TRACE(std::to_string(fall.geschrieben) + " time " + std::to_string(mal));
            EXPECT_TRUE(ampel.setProperty("Ampel", fall.geschrieben));
            EXPECT_EQ(zuSehen(ampel), fall.lampe);
            EXPECT_EQ(ampel.property("Ampel").toInt(), fall.gelesen);
            EXPECT_EQ(vorgelesen->text(QAccessible::Description), fall.bedeutung);
        }
    }
}

TEST(AmpelLED, StapeltBeimLesenUndBeimSchreibenAberNichtBeimLaden)
{
    struct Fall {
        std::function<void(AmpelLED&)> handlung;
        QString danach;
    };
    const Fall faelle[] = {
        {[](AmpelLED& ampel) { ampel.InitProperties(); }, u"Ampelgrau 3,4 Ampelrot 5,6"_s},
        {[](AmpelLED& ampel) { ampel.ReadProperties({}); }, u"Ampelgrau 3,4"_s},
        {[](AmpelLED& ampel) { ampel.property("Ampel"); }, u"Ampelgrau"_s},
        {[](AmpelLED& ampel) { ampel.setAmpel(3); }, u"Ampelrot"_s},
    };
    for (const Fall& fall : faelle) {
        AmpelLED ampel;
        ampel.findChild<QWidget*>(u"Ampelgrau"_s)->move(3, 4);
        ampel.findChild<QWidget*>(u"Ampelrot"_s)->move(5, 6);
        ampel.findChild<QWidget*>(u"Ampelrot"_s)->show();
        fall.handlung(ampel);
        EXPECT_EQ(zuSehen(ampel), fall.danach);
    }
}

TEST(AmpelLED, MeldetDieAenderungVorDerLampe)
{
    AmpelLED ampel;
    QStringList gemeldet;
    QObject::connect(&ampel, &AmpelLED::AmpelGeandert, [&] {
        PropertyBag ablage;
        ampel.WriteProperties(ablage);
        gemeldet.append(zuSehen(ampel) + u" stored %1"_s.arg(ablage.ReadProperty(u"Ampel"_s, 0)));
    });
    ampel.setAmpel(7);
    ampel.setAmpel(7);
    EXPECT_EQ(gemeldet, QStringList({u"Ampelgrau stored 7"_s, u"Ampelrot stored 7"_s}));
}

TEST(AmpelLED, BehaltWasVomUblichenAbweicht)
{
    using Werte = QMap<QString, qint64>;
    struct Fall {
        Werte gelesen;
        QString lampe;
        Werte geschrieben;
    };
    const QString ampel = u"Ampel"_s, farbe = u"BackColor"_s;
    const Fall faelle[] = {
        {{}, u"Ampelgrau"_s, {}},
        {{{ampel, 1}, {farbe, 0x8000000F}}, u"Ampelgruen"_s, {{ampel, 1}, {farbe, 0x8000000F}}},
        {{{ampel, 99}, {farbe, -2147483633}}, u"Ampelrot"_s, {{ampel, 3}, {farbe, 0x8000000F}}}, // the same, signed
        {{{ampel, -1}, {farbe, 0xC0}}, u"Ampelgrau"_s, {{farbe, 0xC0}}},
    };
    for (const Fall& fall : faelle) {
        PropertyBag alt, neu;
        for (auto wert = fall.gelesen.begin(); wert != fall.gelesen.end(); ++wert)
            alt.WriteProperty(wert.key(), wert.value(), 0);
        AmpelLED geladen;
        geladen.ReadProperties(alt);
        EXPECT_EQ(zuSehen(geladen), fall.lampe);
        geladen.WriteProperties(neu);
        EXPECT_EQ(neu.kept(), fall.geschrieben);
    }
}

TEST(AmpelLED, FarbtDenGrundNachDerPalette)
{
    QPalette dunkel;
    dunkel.setColor(QPalette::Window, QColor(1, 2, 3));
    dunkel.setColor(QPalette::Dark, QColor(4, 5, 6));
    AmpelLED ampel;
    ampel.resize(ampel.sizeHint());
    ampel.setPalette(dunkel);
    const std::pair<quint32, QColor> faelle[] = {
        {0x00123456, QColor(0x56, 0x34, 0x12)},
        {0x8000000F, QColor(1, 2, 3)},
        {0x8000000C, QColor(4, 5, 6)},
        {0x800000FF, QColor(1, 2, 3)},
    };
    for (const auto& [wert, farbe] : faelle) {
        EXPECT_TRUE(ampel.setProperty("BackColor", wert));
        EXPECT_EQ(ampel.grab().toImage().pixelColor(0, 0).name(), farbe.name()) << wert;
    }
}

/// Runs a second time with a screen of 200 %.
TEST(AmpelLED, ZeichnetAusDemSymbolDerAuflosung)
{
    AmpelLED ampel;
    ampel.resize(ampel.sizeHint());
    const QImage symbol(ampel.devicePixelRatio() < 2 ? u":/ampel/Ampelgrau.ico"_s : u":/ampel/Ampelgrau32.ico"_s);
    QImage erwartet(symbol.size(), QImage::Format_RGB32);
    erwartet.fill(ampel.palette().color(QPalette::Window));
    QPainter(&erwartet).drawImage(0, 0, symbol);
    QImage bekommen = ampel.grab().toImage().convertToFormat(QImage::Format_RGB32);
    bekommen.setDevicePixelRatio(1);
    EXPECT_TRUE(bekommen == erwartet);
}
