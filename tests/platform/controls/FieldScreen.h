#pragma once

#include "platform/controls/FocusWhole.h"
#include "platform/system/Messages.h"
#include "tests/support/Bildschirm.h"
#include "tests/support/Print.h"

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

/// A dialog of fields one below the other, and what it tells one after the other: signals by the words given
/// to note(), and
/// "!" for a message, which is answered by its default button.
class FieldScreen : public testing::Test, public sys::Messages {
protected:
    template <class Field>
    Field& add(const char* name = "")
    {
        auto* const field = new Field(&m_window);
        field->setObjectName(QString::fromUtf8(name));
        m_layout.addWidget(field);
        return *field;
    }
    void open()
    {
        m_window.show();
        QApplication::setActiveWindow(&m_window);
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_window));
    }
    template <class Field, class Signal>
    void note(Field& field, Signal signal, const char* word)
    {
        QObject::connect(&field, signal, &field, [this, word] { tell(word); });
    }
    void tell(const QByteArray& word) { m_told.append(QString::fromUtf8(word)); }
    QString told() { return std::exchange(m_told, {}).join(u' '); }

    struct Typed {
        QStringView before, keys, shown, told;
    };
    /// Types over what a host wrote into a field: what stands there then, "Wei[zen]" where a part is
    /// selected, and what was told meanwhile.
    void expectTyped(QWidget& field, std::initializer_list<Typed> rows)
    {
        for (const Typed& row : rows) {
            SCOPED_TRACE(row.keys.toUtf8().constData());
            field.setProperty("Text", row.before.toString());
            focusWhole(field);
            told();
            tippe(row.keys);
            EXPECT_EQ(marked(field), row.shown);
            EXPECT_EQ(told(), row.told);
        }
    }
    static QString marked(const QWidget& field)
    {
        const auto* const combo = qobject_cast<const QComboBox*>(&field);
        const auto& line = combo ? *combo->lineEdit() : static_cast<const QLineEdit&>(field);
        QString text = line.text();
        if (!line.hasSelectedText()) return text;
        return text.insert(line.selectionEnd(), u']').insert(line.selectionStart(), u'[');
    }
    sys::Answer show(const QString& text, int flags) override
    {
        m_message = text;
        tell("!");
        return sys::defaultAnswer(flags);
    }

    QDialog m_window;
    QVBoxLayout m_layout{&m_window};
    QString m_message; ///< The last one.

private:
    QStringList m_told;
    sys::MessageScope m_scope{*this};
};
