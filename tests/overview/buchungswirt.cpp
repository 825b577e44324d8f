// A program that books transfers by keys, for tests of several programs on one year file:
//
//     buchungswirt DIRECTORY YEAR NAME COUNT
//
// Each of its bookings has "NAME number" as comment.

#include "core/Modulzustand.h"
#include "host/Installation.h"
#include "overview/LagerbestandNeu.h"
#include "platform/system/Messages.h"
#include "tests/support/Bildschirm.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <cstdio>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

/// Says yes to questions, and tries again what was locked.
class Antworten final : public sys::Messages {
public:
    sys::Answer show(const QString& text, int flags) override
    {
        if ((flags & sys::AbortRetryIgnore) == 0) return sys::Answer::Yes;
        std::fprintf(stderr, "%s\n", qUtf8Printable(text));
        return sys::Answer::Retry;
    }
};

QWidget& feld(QWidget& fenster, const char* name)
{
    auto* const gefunden = fenster.findChild<QWidget*>(QString::fromLatin1(name));
    if (!gefunden) throw std::runtime_error(std::string("there is no ") + name);
    return *gefunden;
}

void tippe(QWidget& maske, const char* name, const QString& text)
{
    QWidget& ziel = feld(maske, name);
    ziel.setFocus();
    auto* zeile = qobject_cast<QLineEdit*>(&ziel);
    if (!zeile) zeile = ziel.findChild<QLineEdit*>();
    zeile->selectAll();
    QTest::keyClicks(&ziel, text);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
}

void buche(QWidget& maske, const QString& name, int anzahl)
{
    tippe(maske, "drpLagerort", u"H1"_s);
    tippe(maske, "drpGruppe", u"Pflanzl"_s);
    tippe(maske, "drpLagerorte2", u"H2"_s);
    for (int i = 1; i <= anzahl; ++i) {
        tippe(maske, "drpArtikel", u"Weizen"_s);
        tippe(maske, "txtMenge", u"1"_s);
        tippe(maske, "txtKommentar", name + u' ' + QString::number(i));
        QWidget& naechster = feld(maske, "Command2(0)");
        naechster.setFocus();
        QTest::keyClick(&naechster, Qt::Key_Return);
    }
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
}

void melde(const Installation& ort, int jahr)
{
    ort.verwende();
    Modulzustand& zustand = modulzustand();
    zustand.Betriebsnummer = u"4711"_s;
    zustand.Lagerpasswort = u";pwd=quenlor"_s;
    zustand.Anlagenverzeichnis = ort.anlagen();
    zustand.Stichdatum = QDate(jahr, 6, 1);
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication programm(argc, argv);
    const QStringList worte = QApplication::arguments();
    if (worte.size() != 5) return 2;
    melde(Installation(worte[1]), worte[2].toInt());
    Antworten antworten;
    const sys::MessageScope umleitung(antworten);

    LagerbestandNeu fenster;
    fenster.show();
    if (!QTest::qWaitForWindowActive(&fenster)) return 1;
    imNaechstenFenster([&](QWidget& maske) { buche(maske, worte[3], worte[4].toInt()); });
    QWidget& kurzel = feld(fenster, "KurzEingabe");
    kurzel.setFocus();
    QTest::keyClick(&kurzel, Qt::Key_U);
    return 0;
}
