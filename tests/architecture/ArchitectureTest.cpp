#include "tests/architecture/Sources.h"
#include "tests/support/Print.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(Architecture, TheSourcesKeepToTheirRooms)
{
    const QDir tree(QStringLiteral(SOURCE_TREE));
    ASSERT_TRUE(tree.exists(u"platform/system/Path.h"_s));
    EXPECT_EQ(brokenRules(tree), QStringList());
}

TEST(Architecture, WhatBreaksTheRulesIsFoundWithFileAndLine)
{
    struct File {
        QString path;
        QByteArray text;
    };
    const File files[] = {
        {u"core/Bestand.cpp"_s,
         "#include \"core/Bestand.h\"\n#include <QWidget>\n#include <QString>\n#include <cmath>\n"},
        {u"core/Gut.h"_s, "#include \"platform/jet/Value.h\"\n#include <zablager/FileError.h>\n"},
        {u"host/main.cpp"_s, "  #  include \"core/Bestand.h\" // past the library\n#include \"main.moc\"\n"},
        {u"masks/Maske.cpp"_s, "#include \"transfer/ampel/AmpelLED.h\"\n#include \"transfer/LAUmbuchForm.h\"\n"},
        {u"platform/jet/sql/Lexer.cpp"_s, "#include <sqlite3.h>\n#include <unicode/coll.h>\n#include \"Token.h\"\n"},
        {u"platform/jet/sqlite/Statement.cpp"_s, "#include <sqlite3.h>\nsqlite3_stmt* statement;\n"},
        {u"platform/jet/Database.cpp"_s, "\nrun(\"PRAGMA synchronous\");\n"},
        {u"platform/system/Long.cpp"_s, QByteArray(501, '\n')},
        {u"platform/system/Right.cpp"_s, "#include <unistd.h>\n" + QByteArray(499, '\n')},
        {u"utils/Drawer.h"_s, "#pragma once\n"},
    };
    const QTemporaryDir tree;
    for (const File& file : files) {
        const QString path = tree.filePath(file.path);
        ASSERT_TRUE(QDir().mkpath(QFileInfo(path).path()));
        QFile made(path);
        ASSERT_TRUE(made.open(QIODevice::WriteOnly));
        made.write(file.text);
    }
    const QStringList expected = {
        u"core/Bestand.cpp:2: core may not include QtWidgets"_s,
        u"host/main.cpp:1: host may not include core"_s,
        u"masks/Maske.cpp:2: masks may not include transfer"_s,
        u"platform/jet/Database.cpp:2: platform/jet may not speak to SQLite"_s,
        u"platform/jet/sql/Lexer.cpp:1: platform/jet may not include sqlite3"_s,
        u"platform/jet/sql/Lexer.cpp:3: platform/jet may not include a path that begins in no room"_s,
        u"platform/system/Long.cpp:501: passes 500 lines"_s,
        u"utils/Drawer.h:1: belongs to no room"_s,
    };
    EXPECT_EQ(brokenRules(QDir(tree.path())), expected);
}
