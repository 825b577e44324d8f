#include "tests/support/Bildschirm.h"

#include <QAbstractButton>
#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QContextMenuEvent>
#include <QDeadlineTimer>
#include <QHash>
#include <QKeySequence>
#include <QPointer>
#include <QRegularExpression>
#include <QTest>
#include <QTimer>

#include <stdexcept>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int Geduld = 5000; // ms

bool istOffen(const QPointer<QWidget>& fenster)
{
    return fenster && fenster->isVisible();
}

void handle(QWidget& modal, const std::function<void(QWidget& fenster)>& handlung)
{
    const QPointer<QWidget> fenster = &modal;
    // Its native window is active a little earlier than the one that keys go to.
    EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == fenster; }, Geduld));
    handlung(*fenster);
    if (QTest::qWaitFor([&] { return !istOffen(fenster); }, Geduld)) return;
    ADD_FAILURE() << "the window stayed open: " << fenster->windowTitle().toStdString();
    fenster->hide(); // ends its loop, whatever it says to a close
}

/// Asks again and again instead of waiting in a loop of its own: the program may be processing events on its
/// way to the window.
void warteAufFenster(const std::function<void(QWidget& fenster)>& handlung, QDeadlineTimer geduld)
{
    constexpr int Takt = 5; // ms
    QTimer::singleShot(Takt, qApp, [handlung, geduld] {
        QWidget* const fenster = QApplication::activeModalWidget();
        if (fenster) return handle(*fenster, handlung);
        if (!geduld.hasExpired()) return warteAufFenster(handlung, geduld);
        ADD_FAILURE() << "no modal window came";
    });
}

/// A button that a letter presses shows it for a while before it acts; that time is passed at once.
void beendeDruck()
{
    for (QWidget* ding : QApplication::allWidgets()) {
        auto* const knopf = qobject_cast<QAbstractButton*>(ding);
        if (!knopf || !knopf->isDown()) continue;
        for (const auto& uhr : QAbstractEventDispatcher::instance()->registeredTimers(knopf)) {
            QTimerEvent abgelaufen(uhr.timerId);
            QCoreApplication::sendEvent(knopf, &abgelaufen);
            return; // it may have closed what the lists name
        }
    }
}

QKeyCombination taste(const QString& name)
{
    static const QHash<QString, QString> deutsch{{u"Strg"_s, u"Ctrl"_s},      {u"Umschalt"_s, u"Shift"_s},
                                                 {u"Eingabe"_s, u"Return"_s}, {u"Entf"_s, u"Del"_s},
                                                 {u"Pos1"_s, u"Home"_s},      {u"Ende"_s, u"End"_s},
                                                 {u"Leer"_s, u"Space"_s},     {u"Ab"_s, u"Down"_s},
                                                 {u"Auf"_s, u"Up"_s},         {u"Menü"_s, u"Menu"_s}};
    QStringList teile = name.split(u'+');
    for (QString& teil : teile)
        teil = deutsch.value(teil, teil);
    const auto folge = QKeySequence::fromString(teile.join(u'+'), QKeySequence::PortableText);
    if (folge.isEmpty() || folge[0].key() == Qt::Key_unknown)
        throw std::runtime_error("no key: " + name.toStdString());
    return folge[0];
}

void druecke(QKeyCombination taste)
{
    QTest::keyClick(&fokus(), taste.key(), taste.keyboardModifiers());
    if (taste.key() != Qt::Key_Menu) return;
    const QPoint mitte = fokus().rect().center(); // the desktop makes a wish of it
    QContextMenuEvent wunsch(QContextMenuEvent::Keyboard, mitte, fokus().mapToGlobal(mitte));
    QCoreApplication::sendEvent(&fokus(), &wunsch);
}

} // namespace

void imNaechstenFenster(const std::function<void(QWidget& fenster)>& handlung)
{
    warteAufFenster(handlung, QDeadlineTimer(Geduld));
}

QWidget* vorn()
{
    QWidget* const liste = QApplication::activePopupWidget();
    return liste ? liste : QApplication::activeModalWidget();
}

QWidget& fokus()
{
    QWidget* ziel = QApplication::activePopupWidget();
    if (!ziel)
        ziel = QApplication::focusWidget();
    else if (ziel->focusWidget())
        ziel = ziel->focusWidget();
    if (!ziel) throw std::runtime_error("no field has the keys");
    return *ziel;
}

void tippe(QStringView tasten)
{
    static const QRegularExpression eine(u"\\{([^}]+)\\}|."_s);
    for (const auto& treffer : eine.globalMatch(tasten.toString())) {
        const QChar zeichen = treffer.captured().front();
        if (treffer.lastCapturedIndex() > 0)
            druecke(taste(treffer.captured(1)));
        else // which keyClick does for ASCII alone
            QTest::sendKeyEvent(QTest::Click, &fokus(), Qt::Key(zeichen.toUpper().unicode()), zeichen,
                                Qt::NoModifier);
        beendeDruck();
        QCoreApplication::processEvents(); // Enter goes on only when it has been handled
    }
}
