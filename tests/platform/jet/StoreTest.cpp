#include "platform/jet/Database.h"
#include "platform/jet/TableDef.h"
#include "platform/jet/Transaction.h"
#include "tests/platform/jet/Scratch.h"
#include "tests/platform/jet/wrapped/WrappedStore.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const char* const Before = "J(1 | a; 2 | b) Version 0 K()";

struct Work {
    const char* name;
    std::function<void(jet::Database&)> work;
    const char* after; ///< What the file then holds, see held(); a refused call leaves what there was.
    const char* half = Before; ///< What an error that leaves a transaction keeps of it.
};

void execute(jet::Database& database, const QString& statement)
{
    database.Execute(statement);
}

const Work Works[] = {
    {"insert", [](auto& file) { execute(file, u"INSERT INTO J (T) SELECT T FROM J"_s); },
     "J(1 | a; 2 | b; 3 | a; 4 | b) Version 0 K()"},
    {"rows",
     [](auto& file) {
         const auto rows = file.OpenRecordset(u"SELECT * FROM J ORDER BY T"_s);
         rows->MoveLast();
         rows->Edit();
         rows->Set(u"T", u"c"_s);
         rows->Update();
     },
     "J(1 | a; 2 | c) Version 0 K()"},
    {"delete",
     [](auto& file) {
         const auto rows = file.OpenRecordset(u"J"_s);
         rows->FindFirst(u"T = 'b'"_s);
         rows->Delete();
     },
     "J(1 | a) Version 0 K()"},
    {"definition", [](auto& file) { execute(file, u"ALTER TABLE J ADD COLUMN N Long"_s); },
     "J(1 | a | NULL; 2 | b | NULL) Version 0 K()"},
    {"into", [](auto& file) { execute(file, u"SELECT T INTO K FROM J"_s); },
     "J(1 | a; 2 | b) Version 0 K(a; b)"},
    {"elsewhere",
     [](auto& file) {
         execute(file, u"SELECT T & 'x' AS U INTO Da IN '%1' FROM J"_s.arg(file.Name() + u'2'));
     },
     "J(1 | a; 2 | b) Version 0 K(ax; bx)"},
    {"version", [](auto& file) { file.setSchemaVersion(7); }, "J(1 | a; 2 | b) Version 7 K()"},
    {"transaction",
     [](auto& file) {
         jet::Transaction whole(file);
         execute(file, u"UPDATE J SET T = 'x' WHERE ID = 1"_s);
         execute(file, u"UPDATE J SET T = 'y' WHERE ID = 2"_s);
         whole.commit();
     },
     "J(1 | x; 2 | y) Version 0 K()", "J(1 | x; 2 | b) Version 0 K()"},
};

/// As another program finds it; K is the table made by SELECT INTO, in whichever of the two files.
std::string held(const QString& path)
{
    jet::Engine other;
    const auto file = other.OpenDatabase(path);
    const auto second = other.OpenDatabase(path + u'2');
    std::string made;
    for (jet::Database* const database : {file.get(), second.get()})
        for (const jet::TableDef& table : database->TableDefs())
            if (table.name != u"J") made += rowsOf(*database, u"SELECT * FROM "_s + table.name);
    return "J(" + rowsOf(*file, u"SELECT * FROM J"_s) + ") Version " + std::to_string(file->SchemaVersion()) +
           " K(" + made + ')';
}

/// Does the work with the n-th call of the store failing. \returns whether there was such a call.
bool failsAt(int call, const Work& work)
{
    SCOPED_TRACE(std::string(work.name) + ", call " + std::to_string(call));
    const Scratch scratch;
    const QString path = scratch.path(u"Lager"_s);
    scratch.create(u"Lager2"_s);
    scratch.create(u"Lager"_s, {u"CREATE TABLE J (ID Counter PRIMARY KEY, T Text(5))"_s,
                                u"INSERT INTO J (T) VALUES ('a')"_s, u"INSERT INTO J (T) VALUES ('b')"_s});
    jet::Engine engine(std::make_unique<WrappedStore>());
    engine.setLockTimeout(0);
    const auto file = engine.OpenDatabase(path);
    WrappedStore::failAt(call);
    const bool isRefused = refused([&] { work.work(*file); }) != 0;
    const bool failed = WrappedStore::hasFailed();
    WrappedStore::failAt(0);
    const std::string left = held(path);
    // What fails when all is done, such as looking whether others have changed the tables, takes nothing
    // back.
    EXPECT_TRUE(left == work.after || (isRefused && (left == Before || left == work.half))) << left;
    if (left != work.after) work.work(*file); // and can be tried again at once
    EXPECT_EQ(held(path), work.after);
    return failed;
}

} // namespace

TEST(Store, ThatFailsAtAnyCallLeavesTheFileAsItWasOrAsItWasToBe)
{
    for (const Work& work : Works) {
        int call = 1;
        while (failsAt(call, work))
            ++call;
        EXPECT_GT(call, 3) << work.name;
    }
}
