#include "tests/overview/Hauptbildschirm.h"

#include "core/Modulzustand.h"
#include "platform/controls/DataGrid.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QString zelle(const DataGrid& liste, int zeile, int spalte)
{
    return liste.model()->index(zeile, spalte).data().toString();
}

QString bewegung(const DataGrid& liste, int zeile)
{
    const QString zugang = zelle(liste, zeile, 5);
    const QString menge = zugang.isEmpty() ? u'-' + zelle(liste, zeile, 6) : u'+' + zugang;
    return QStringList{zelle(liste, zeile, 0).left(6), zelle(liste, zeile, 4), zelle(liste, zeile, 1), menge,
                       zelle(liste, zeile, 3)}
        .join(u" | "_s);
}

} // namespace

Hauptbildschirm::Hauptbildschirm()
{
    hof.bucht(2023, "30.06. | H1 | Weizen | 120,5 | Ernte");
    hof.bucht(2024, "05.03. | H1 | Weizen | 100 | Zukauf\n"
                    "05.04. | H2 | Weizen | 50 | Zukauf\n"
                    "06.05. | H1 | Weizen | -20 | Verkauf\n"
                    "07.05. | H2 | Diesel | 1500 | Zukauf\n"
                    "08.05. | H2 | Diesel | -1500 | Eigenverbrauch\n"
                    "09.05. | H1 | Hafer | 0,00001 | Zukauf");
    hof.fuehreAus(2024, u"UPDATE LAGERJOURNAL SET Artikelart = 'Pflanzliche Erzeugnisse', Einheit = 'dt'"_s);
    hof.fuehreAus(2024, u"UPDATE LAGERJOURNAL SET Artikelart = 'Treib- und Brennstoffe', Einheit = 'l'"
                        u" WHERE Artikel = 'Diesel'"_s);
    Modulzustand& zustand = modulzustand();
    zustand.Lagerpasswort = u";pwd=quenlor"_s;
    zustand.Betriebsname = u"Lindenhof"_s;
    zustand.Betriebsadresse = u"Lindenau 3"_s;
}

void Hauptbildschirm::oeffne()
{
    fenster = std::make_unique<LagerbestandNeu>();
    fenster->show();
    fenster->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(fenster.get()));
    QCoreApplication::processEvents(); // the stock list comes after the first painting
}

void Hauptbildschirm::schliesse()
{
    fenster->close();
    fenster.reset();
}

void Hauptbildschirm::tippe(const char* feldname, const QString& text) const
{
    auto& ziel = feld<QWidget>(feldname);
    ziel.setFocus();
    auto* const zeile = ziel.findChild<QLineEdit*>();
    ASSERT_TRUE(zeile) << feldname;
    zeile->selectAll();
    QTest::keyClicks(&ziel, text);
    QTest::keyClick(&ziel, Qt::Key_Return);
    QCoreApplication::processEvents(); // Enter goes on to the next field, and leaving takes what was typed
}

void Hauptbildschirm::drucke(const char* feldname, Qt::Key taste, Qt::KeyboardModifiers dazu) const
{
    auto& ziel = feld<QWidget>(feldname);
    ziel.setFocus();
    QTest::keyClick(&ziel, taste, dazu);
}

void Hauptbildschirm::klickeKopf(const char* liste, int spalte) const
{
    auto& kopf = *feld<DataGrid>(liste).horizontalHeader();
    const QPoint mitte(kopf.sectionViewportPosition(spalte) + kopf.sectionSize(spalte) / 2,
                       kopf.viewport()->height() / 2);
    QTest::mouseClick(kopf.viewport(), Qt::LeftButton, Qt::NoModifier, mitte);
}

QStringList Hauptbildschirm::journal() const
{
    const auto& liste = feld<DataGrid>("Journalliste");
    QStringList zeilen;
    for (int zeile = 0; zeile < liste.model()->rowCount(); ++zeile)
        zeilen.append(bewegung(liste, zeile));
    return zeilen;
}

QStringList Hauptbildschirm::bestaende() const
{
    const auto& liste = feld<DataGrid>("BestandListe");
    QStringList zeilen;
    for (int zeile = 0; zeile < liste.model()->rowCount(); ++zeile) {
        QStringList zellen;
        for (const int spalte : {0, 2, 3, 4, 5}) {
            if (!liste.isColumnHidden(spalte)) zellen.append(zelle(liste, zeile, spalte));
        }
        zeilen.append(zellen.join(u" | "_s));
    }
    return zeilen;
}

QString Hauptbildschirm::aktuelleBewegung() const
{
    const auto& liste = feld<DataGrid>("Journalliste");
    return liste.currentIndex().isValid() ? bewegung(liste, liste.currentIndex().row()) : u"keine"_s;
}

QString Hauptbildschirm::ueberschrift(const char* liste) const
{
    return feld<DataGrid>(liste).Caption();
}

QString Hauptbildschirm::bericht(int nummer)
{
    return u"Es ist ein kritischer Zustand aufgetreten.\r\rFehler: "_s + QString::number(nummer) +
           u" wurde ausgelöst durch ZABLAGER\r"_s;
}
