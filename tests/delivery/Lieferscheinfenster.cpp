#include "tests/delivery/Lieferscheinfenster.h"

#include "core/Modulzustand.h"
#include "platform/controls/DataGrid.h"
#include "platform/jet/Conversion.h"
#include "tests/support/Pdf.h"

#include <QApplication>
#include <QFile>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

Lieferscheinfenster::Lieferscheinfenster()
{
    modulzustand().Betriebsname = u"Lindenhof"_s;
    modulzustand().Betriebsadresse = u"Lindenau 3, 4799 Beispielau"_s;
    const auto stamm = jet::engine().OpenDatabase(hof.ort().daten() + u"/Grundstamm.mdb"_s, u";pwd=RT-58KX"_s);
    stamm->Execute(u"INSERT INTO HANDLER (KurzKu, NAME, VORNAME, Strasse, PLZ, Ort) VALUES"
                   u" ('BERGER', 'Berger', 'Franz', 'Oberau 7', '4798', 'Musterdorf')"_s);
}

void Lieferscheinfenster::verkauft(const QString& text) const
{
    const auto datei = hof.oeffne(2024);
    const auto journal = datei->OpenRecordset(u"LAGERJOURNAL"_s, jet::Kind::Table);
    datei->BeginTrans();
    for (const QString& zeile : text.split(u'\n')) {
        const QStringList zellen = zeile.split(u" | "_s);
        journal->AddNew();
        if (zellen[0] != u"NULL")
            journal->Set(u"Datum", *jet::readDate(zellen[0].left(6) + u"2024"_s + zellen[0].mid(6)));
        journal->Set(u"Buchungsart", u"Verkauf"_s);
        const QStringView spalten[] = {u"Uberstallt_alt", u"Artikel", u"Menge", u"Einheit", u"Preis", u"Preisfaktor"};
        for (qsizetype i = 1; i < zellen.size(); ++i)
            if (zellen[i] != u"NULL") journal->Set(spalten[i - 1], zellen[i]);
        journal->Set(u"Menge", -(*journal)[u"Menge"].toDouble());
        journal->Update();
    }
    datei->Close();
}

void Lieferscheinfenster::oeffne()
{
    fenster = std::make_unique<LieferscheindruckForm>(2024);
    fenster->show();
    fenster->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(fenster.get()));
    QCoreApplication::processEvents(); // what activation does comes after the first painting
}

void Lieferscheinfenster::schliesse()
{
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_S, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !fenster->isVisible(); }));
}

void Lieferscheinfenster::tippe(const char* name, const QString& text) const
{
    auto& ziel = feld<QWidget>(name);
    ziel.setFocus();
    QTest::keyClick(&ziel, Qt::Key_A, Qt::ControlModifier);
    text.isEmpty() ? QTest::keyClick(&ziel, Qt::Key_Delete) : QTest::keyClicks(&ziel, text);
}

void Lieferscheinfenster::waehle(int zeile) const
{
    auto& liste = feld<DataGrid>("SSDBGrid1");
    liste.setFocus();
    QTest::keyClick(&liste, Qt::Key_Home);
    for (int i = 0; i < zeile; ++i)
        QTest::keyClick(&liste, Qt::Key_Down);
}

std::vector<QStringList> Lieferscheinfenster::drucke() const
{
    auto& Report = feld<report::PrintControl>("Report");
    const QString pdf = hof.ort().verzeichnis() + u"/druck.pdf"_s;
    QFile::remove(pdf);
    Report.setDestination(report::PrintControl::ToFile);
    Report.setPrintFileName(pdf);
    bool gedrueckt = false;
    const auto merke = QObject::connect(
        &feld<QPushButton>("Command2"), &QPushButton::clicked, fenster.get(), [&] { gedrueckt = true; },
        Qt::DirectConnection);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_D, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return gedrueckt; })); // a mnemonic presses its button through an animation
    QObject::disconnect(merke);
    return QFile::exists(pdf) ? readPdf(pdf) : std::vector<QStringList>();
}

QStringList Lieferscheinfenster::einstellungen() const
{
    return hof.zeigt(2024, u"SELECT * FROM Liefereinstellungen"_s);
}
