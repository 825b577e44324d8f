#pragma once

#include "platform/system/Messages.h"

#include <QStringList>
#include <QTest>
#include <QVBoxLayout>
#include <QWidget>

#include <gtest/gtest.h>

/// A window of fields one below the other, active, and the messages that the user was shown, each answered by its default
/// button.
class FieldScreen : public testing::Test, public sys::Messages {
protected:
    template <class Field>
    Field& add()
    {
        auto* const field = new Field(&m_window);
        m_layout.addWidget(field);
        return *field;
    }
    void show()
    {
        m_window.show();
        QApplication::setActiveWindow(&m_window);
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_window));
    }
    sys::Answer show(const QString& text, int flags) override
    {
        m_messages.append(text);
        return sys::defaultAnswer(flags);
    }
    QStringList messages() { return std::exchange(m_messages, {}); }

    QWidget m_window;
    QVBoxLayout m_layout{&m_window};

private:
    QStringList m_messages;
    sys::MessageScope m_scope{*this};
};

/// Counts how often a signal comes.
template <class Sender, class Signal>
std::shared_ptr<int> counted(Sender& sender, Signal signal)
{
    auto count = std::make_shared<int>(0);
    QObject::connect(&sender, signal, &sender, [count] { ++*count; });
    return count;
}
