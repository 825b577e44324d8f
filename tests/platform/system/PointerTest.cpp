#include "platform/system/Pointer.h"

#include <QCursor>
#include <QGuiApplication>

#include <gtest/gtest.h>

TEST(Hourglass, NestsAndLeavesTheHostsPointerAlone)
{
    sys::MausWarten(); // without a screen: nothing
    sys::MausNormal();
    sys::MausWarten();

    int argc = 1;
    char name[] = "system_test";
    char* argv[] = {name, nullptr};
    const QGuiApplication application(argc, argv);
    QGuiApplication::setOverrideCursor(Qt::CrossCursor); // the host's
    sys::MausNormal();                                   // one too many
    ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);

    sys::MausWarten();
    sys::MausWarten();
    sys::MausNormal();
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    sys::MausWarten();
    sys::resetPointer(); // in the middle of two
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::CrossCursor);
    sys::MausNormal();
    sys::MausNormal();
    ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::CrossCursor);
}
