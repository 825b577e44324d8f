// What hosts hand over by mistake: none of it ends the process or changes a file, and the next right call is answered.

#include "tests/component/Bibliothek.h"
#include "tests/support/Print.h"

#include <string>

using namespace Qt::StringLiterals;

namespace {

class FalscheEingaben : public Bibliothek {
protected:
    FalscheEingaben() { frageRichtig(); }
    ~FalscheEingaben() override
    {
        frageRichtig();
        EXPECT_EQ(hof.journal(2023).size() + hof.journal(2024).size(), 2);
    }

    void frageRichtig() const
    {
        lager->setProperty("Betriebsnummer", u"4711"_s);
        lager->setProperty("Stichdatum", QDate(2024, 1, 1)); // the last year: nothing to carry
        uebertrage();
        EXPECT_EQ(nummer(), 0) << text();
        EXPECT_EQ(weizen(), 120.5);
    }
    void uebertrage() const { QMetaObject::invokeMethod(lager.get(), "Kontrolle_LagerbestandLaden"); }
    double weizen() const { return bestand(*lager, "QDate", u"Weizen"_s, QDate(2023, 12, 31)); }
    int nummer() const { return lager->property("LetzteFehlernummer").toInt(); }
    std::string text() const { return lager->property("LetzterFehler").toString().toStdString(); }

    const std::unique_ptr<QObject> lager = objekt();
};

const QString Lang(100'000, u'w');
const QString MitNul = u"Wei\0zen"_s;
const QString HalbesZeichen = QString(QChar(0xD800));

} // namespace

TEST_F(FalscheEingaben, EineUnbekannteEigenschaftSperrtDasObjekt)
{
    EXPECT_FALSE(lager->setProperty("Lagername1", u"H1"_s));
    EXPECT_EQ(weizen(), 0);
    EXPECT_EQ(text(), "Objekt unterstützt diese Eigenschaft oder Methode nicht: 'Lagername1'");
    EXPECT_EQ(nummer(), 438);
    uebertrage();
    EXPECT_EQ(nummer(), 438);
    EXPECT_FALSE(lager->setProperty("Lagername1", QVariant()));
    EXPECT_EQ(weizen(), 120.5);
    EXPECT_EQ(nummer(), 0);
}

TEST_F(FalscheEingaben, EineFremdeArtWirdUmgewandeltOderAendertNichts)
{
    struct Fall {
        const char* eigenschaft;
        QVariant wert;
        bool genommen;
        QString danach;
    };
    const Fall faelle[] = {
        {"Stichdatum", u"1.1.2024"_s, false, u"2023-02-03"_s},
        {"Stichdatum", 45'000, false, u"2023-02-03"_s},
        {"Stichdatum", u"2023-01-01"_s, true, u"2023-01-01"_s},
        {"Stichdatum", QDateTime(QDate(2023, 1, 2), QTime(23, 59)), true, u"2023-01-02"_s},
        {"Stichdatum", QVariant(), true, u"2023-02-03"_s}, // taken by Qt, refused by the object with number 5
        {"Lagername", 4711, true, u"4711"_s},
        {"Lagername", QByteArray("Mühle"), true, u"Mühle"_s},
        {"Lagername", QVariant(), true, u""_s},
        {"Lagername", QVariantList{1}, false, u"vorher"_s},
        {"LetzterFehler", u"nur zu lesen"_s, false, u""_s},
    };
    for (const Fall& fall : faelle) {
        lager->setProperty("Lagername", u"vorher"_s);
        lager->setProperty("Stichdatum", QDate(2023, 2, 3));
        EXPECT_EQ(lager->setProperty(fall.eigenschaft, fall.wert), fall.genommen) << fall.eigenschaft;
        EXPECT_EQ(lager->property(fall.eigenschaft).toString(), fall.danach) << fall.eigenschaft;
    }
}

TEST_F(FalscheEingaben, EineUnmoeglicheBetriebsnummerHatKeineDateien)
{
    for (const QString& betrieb : {QString(), Lang, MitNul, HalbesZeichen, u"..\\..\\B4711"_s, u"'"_s}) {
        lager->setProperty("Betriebsnummer", betrieb);
        uebertrage();
        EXPECT_EQ(weizen(), 0) << betrieb.left(20).toStdString();
        EXPECT_EQ(nummer(), 0);
        EXPECT_TRUE(QString::fromStdString(text()).endsWith(u"existiert nicht!"_s)) << text();
    }
}
