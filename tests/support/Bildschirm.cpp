#include "tests/support/Bildschirm.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QKeySequence>
#include <QPointer>
#include <QRegularExpression>
#include <QTest>
#include <QTimer>

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

/// Asks again and again instead of waiting in a loop of its own: the program may be processing events on its way to the
/// window.
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

} // namespace

void imNaechstenFenster(const std::function<void(QWidget& fenster)>& handlung)
{
    warteAufFenster(handlung, QDeadlineTimer(Geduld));
}

void tippe(QStringView tasten)
{
    static const QRegularExpression eine(u"\\{([^}]+)\\}|."_s);
    for (const auto& treffer : eine.globalMatch(tasten.toString())) {
        QWidget* const hier = QApplication::focusWidget();
        ASSERT_TRUE(hier) << "nobody hears " << treffer.captured().toStdString();
        const QChar zeichen = treffer.captured().front();
        if (treffer.lastCapturedIndex() > 0) {
            const QKeyCombination taste = QKeySequence::fromString(treffer.captured(1), QKeySequence::PortableText)[0];
            QTest::keyClick(hier, taste.key(), taste.keyboardModifiers());
        } else { // which keyClick does for ASCII alone
            QTest::sendKeyEvent(QTest::Click, hier, Qt::Key(zeichen.toUpper().unicode()), zeichen, Qt::NoModifier);
        }
        QCoreApplication::processEvents(); // Enter is sent on as Tab
    }
}
