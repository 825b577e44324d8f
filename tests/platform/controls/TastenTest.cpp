#include "platform/controls/Tasten.h"
#include "tests/support/Print.h"

#include <gtest/gtest.h>

#include <set>

using namespace Qt::StringLiterals;

// Two shortcuts of one key make neither work, a field keeps its editing keys before any shortcut sees them, and Ctrl+Alt
// is AltGr to many keyboards.
TEST(KeyTable, GivesEachKeyOnceAndNoneThatTypesOrEdits)
{
    QSet<QKeySequence> taken;
    for (const char letter :
         "ACDEKUVXYZ") // of text fields, on one desktop or another; the tests' own platform has fewer
        taken.insert(QKeySequence(u"Ctrl+"_s + QLatin1Char(letter)));
    for (const Tastenzeile& line : tastentabelle()) {
        EXPECT_FALSE(line.wirkung.isEmpty());
        for (const QKeySequence& key : line.tasten) {
            const std::string name = tastenname(key).toStdString();
            const auto modifiers = key[0].keyboardModifiers();
            EXPECT_FALSE(modifiers.testFlags(Qt::ControlModifier | Qt::AltModifier)) << name;
            const bool types = key[0].key() < Qt::Key_Escape && !(modifiers & (Qt::ControlModifier | Qt::AltModifier));
            EXPECT_FALSE(types) << name;
            const bool ofLists = line.gilt == Geltung::Journal || line.gilt == Geltung::Reserviert;
            EXPECT_TRUE(!taken.contains(key) || ofLists) << name;
            taken.insert(key);
        }
    }
    EXPECT_EQ(tastenname(Taste::Beenden), u"Strg+Umschalt+Eingabe"_s);
}
