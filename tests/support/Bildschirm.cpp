#include "tests/support/Bildschirm.h"

#include <QApplication>
#include <QPointer>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace {

constexpr int Geduld = 5000; // ms

bool istOffen(const QPointer<QWidget>& fenster)
{
    return fenster && fenster->isVisible();
}

} // namespace

void imNaechstenFenster(const std::function<void(QWidget& fenster)>& handlung)
{
    QTimer::singleShot(0, qApp, [handlung] {
        if (!QTest::qWaitFor([] { return QApplication::activeModalWidget() != nullptr; }, Geduld)) {
            ADD_FAILURE() << "no modal window came";
            return;
        }
        const QPointer<QWidget> fenster = QApplication::activeModalWidget();
        EXPECT_TRUE(QTest::qWaitForWindowActive(fenster));
        handlung(*fenster);
        if (QTest::qWaitFor([&] { return !istOffen(fenster); }, Geduld)) return;
        ADD_FAILURE() << "the window stayed open: " << fenster->windowTitle().toStdString();
        fenster->hide(); // ends its loop, whatever it says to a close
    });
}
