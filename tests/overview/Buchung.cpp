#include "tests/overview/Buchung.h"

#include "core/Modulzustand.h"
#include "platform/controls/DataCombo.h"
#include "platform/controls/DataGrid.h"
#include "platform/controls/TextBox.h"

#include <QApplication>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

Buchung::Buchung()
{
    modulzustand().Anlagenverzeichnis = hof.ort().anlagen();
    const auto orte = jet::engine().OpenDatabase(hof.ort().anlagen() + u"/Anlagen.mdb"_s, u";pwd=volmira"_s);
    for (const QString& ort :
         {u"'Halle Nord', 'H1', 'Lager', True"_s, u"'Halle Süd', 'H2', 'Düngersammelstelle', True"_s,
          u"'Alter Speicher', 'SP', 'Lager', False"_s, u"'Stall', 'ST', 'Stall', True"_s})
        orte->Execute(u"INSERT INTO Objekte (Name, KurzKu, Objektart, Anzeigen) VALUES ("_s + ort + u")"_s);
    const auto stamm = jet::engine().OpenDatabase(hof.ort().daten() + u"/Grundstamm.mdb"_s, u";pwd=RT-58KX"_s);
    for (const QString& ware :
         {u"Saatgut (NAME, Einheit, Preis, Preisfaktor, Sperre) VALUES ('Roggen', 'kg', 42, '100', False)"_s,
          u"Saatgut (NAME, Einheit, Preis, Preisfaktor, Sperre) VALUES ('Altroggen', 'kg', 1, '1', True)"_s,
          u"Saatgut (NAME, Einheit, Preis, Preisfaktor, Sperre) VALUES ('Bauer''s Mix', 'kg', 7, '1', False)"_s,
          u"Treibstoffe (NAME, Einheit, Preis, Preisfaktor, Sperre) VALUES ('Diesel', 'l', 142, '0', False)"_s,
          u"HANDLER (KurzKu, NAME, SPERRE) VALUES ('HUBER', 'Huber Anna', False)"_s,
          u"HANDLER (KurzKu, NAME, SPERRE) VALUES ('', 'Maier Kurt', False)"_s,
          u"HANDLER (KurzKu, NAME, SPERRE) VALUES (NULL, 'Landhandel Obermoos', False)"_s})
        stamm->Execute(u"INSERT INTO "_s + ware);
}

void Buchung::kurzel(char buchstabe) const
{
    auto& eingabe = feld<TextBox>("KurzEingabe");
    eingabe.setFocus();
    QTest::keyClick(&eingabe, buchstabe);
}

void Buchung::aktiviere() const
{
    fenster->activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == fenster.get(); }));
}

void Buchung::aendere() const
{
    aktiviere();
    druecke(*fenster, Qt::Key_D, "Command7(1)");
}

void Buchung::waehleBewegung(int zeile) const
{
    auto& liste = feld<DataGrid>("Journalliste");
    liste.setFocus();
    liste.setCurrentIndex(liste.model()->index(zeile, 0));
}

void Buchung::schreibe(QWidget& maske, const char* name, const QString& text)
{
    QWidget& ziel = widget(maske, name);
    ziel.setFocus();
    auto* zeile = qobject_cast<QLineEdit*>(&ziel);
    if (!zeile) zeile = ziel.findChild<QLineEdit*>();
    zeile->selectAll();
    text.isEmpty() ? QTest::keyClick(&ziel, Qt::Key_Delete) : QTest::keyClicks(&ziel, text);
}

void Buchung::setze(QWidget& maske, const char* name, const QString& text)
{
    schreibe(maske, name, text);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
}

void Buchung::setzeDort(const QString& text)
{
    QTest::keyClicks(QApplication::focusWidget(), text);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
}

void Buchung::erfasse(QWidget& maske, const QString& gruppe, const QString& artikel, const QString& menge)
{
    setze(maske, "drpLagerort", u"H1"_s);
    setze(maske, "drpGruppe", gruppe);
    setze(maske, "drpArtikel", artikel);
    setze(maske, "txtMenge", menge);
}

void Buchung::schliesseListe(QWidget& maske, const char* feld)
{
    auto* const liste = maske.findChild<DataCombo*>(QString::fromLatin1(feld));
    if (!liste || liste->objectName() != u"drpArtikel") return;
    EXPECT_TRUE(QTest::qWaitFor([&] { return liste->DroppedDown(); }));
    EXPECT_EQ(liste->Text(), u""_s); // what the list does not have
    liste->setDroppedDown(false);
}

void Buchung::hake(QWidget& maske, const char* name, bool an)
{
    auto& knopf = dynamic_cast<QAbstractButton&>(widget(maske, name));
    knopf.setFocus();
    if (knopf.isChecked() != an) QTest::keyClick(&knopf, Qt::Key_Space);
}

void Buchung::esc()
{
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
}

QWidget& Buchung::widget(QWidget& maske, const char* name)
{
    auto* const gefunden = maske.findChild<QWidget*>(QString::fromUtf8(name));
    EXPECT_TRUE(gefunden) << name;
    return *gefunden;
}

double Buchung::wert(QWidget& maske, const char* name)
{
    return widget(maske, name).property("Value").toDouble();
}

QString Buchung::text(QWidget& maske, const char* name)
{
    const QVariant feldtext = widget(maske, name).property("Text");
    return (feldtext.isValid() ? feldtext : widget(maske, name).property("text")).toString();
}

void Buchung::druecke(QWidget& maske, Qt::Key buchstabe, const char* knopf)
{
    auto& taste = dynamic_cast<QPushButton&>(widget(maske, knopf));
    QSignalSpy gedrueckt(&taste, &QPushButton::clicked);
    QTest::keyClick(QApplication::focusWidget(), buchstabe, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return gedrueckt.count() > 0; })) << knopf;
}

QString Buchung::letzteZeile() const
{
    return hof
        .zeigt(2024, u"SELECT LagerortKurzKu, Artikel, Artikelart, Menge, Buchungsmenge, Einheit, Preis, Preisfaktor,"
                     u" Buchungsart, BuchungsID, Uberstallt_alt, Verfuttert_an, Kommentar FROM LAGERJOURNAL"
                     u" ORDER BY ID DESC"_s)
        .value(0);
}
