#include "tests/architecture/Sources.h"

#include <QDirIterator>
#include <QFile>
#include <QLibraryInfo>
#include <QRegularExpression>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype LongestFile = 500;

/// A folder and what its files may include besides each other and the standard library: rooms, a folder of rooms,
/// modules of Qt, or "sqlite3", "icu", "xlsxwriter", "zlib", "os" (the operating system's own headers) and "test" (test and benchmark tools).
struct Room {
    QString folder;
    QStringList mayInclude;
};

// clang-format off
const std::vector<Room>& rooms()
{
    static const QString api = u"include/zablager"_s;
    static const QString jet = u"platform/jet"_s;
    static const QString sys = u"platform/system"_s;
    static const QStringList qt = {u"QtCore"_s, u"QtGui"_s, u"QtWidgets"_s, u"QtPrintSupport"_s};
    static const std::vector<Room> table = {
        {api,                      {u"QtCore"_s}},
        {sys,                      {u"QtCore"_s, u"QtGui"_s, u"os"_s, api}},
        {jet,                      {u"QtCore"_s, u"icu"_s, api, sys}},
        {u"platform/jet/sqlite"_s, {u"QtCore"_s, u"icu"_s, u"sqlite3"_s, u"os"_s, api, sys, jet}},
        {u"platform/controls"_s,   qt + QStringList{jet, sys}},
        {u"platform/report"_s,     qt + QStringList{jet, sys}},
        {u"platform/family"_s,     qt + QStringList{u"xlsxwriter"_s, u"zlib"_s, u"platform/controls"_s, jet, sys}},
        {u"core/farm"_s,           {u"QtCore"_s, api, jet, sys}},
        {u"core"_s,                {u"QtCore"_s, api, u"core/farm"_s, jet, sys}},
        {u"transfer/ampel"_s,      qt},
        {u"masks"_s,               qt + QStringList{u"core"_s, u"transfer/ampel"_s, u"platform"_s}},
        {u"transfer"_s,            qt + QStringList{u"masks"_s, u"transfer/ampel"_s, u"core"_s, u"platform"_s}},
        {u"delivery"_s,            qt + QStringList{u"core"_s, u"platform"_s}},
        {u"overview"_s,            qt + QStringList{u"delivery"_s, u"transfer"_s, u"masks"_s, u"core"_s, u"platform"_s}},
        {u"component"_s,           qt + QStringList{u"overview"_s, u"delivery"_s, u"transfer"_s, u"masks"_s, u"core"_s,
                                                    u"platform"_s, api}},
        {u"host"_s,                {u"QtCore"_s, u"QtGui"_s, u"QtWidgets"_s, api, u"core/farm"_s, jet, sys}}, // loads the library as any host
        {u"tests"_s,               qt + QStringList{u"QtTest"_s, u"os"_s, u"test"_s, u"platform"_s, u"core"_s, u"overview"_s,
                                                    u"delivery"_s, u"transfer"_s, u"masks"_s, u"component"_s, u"host"_s, api}},
        {u"tests/support/Plattenstoerung.cpp"_s, {u"QtCore"_s, u"sqlite3"_s, u"os"_s, u"test"_s, u"platform"_s, u"tests"_s}},
        {u"tests/package/client"_s, {u"QtCore"_s, api}}, // what others build
        {u"bench"_s,               qt + QStringList{u"os"_s, u"test"_s, u"sqlite3"_s, u"xlsxwriter"_s, u"platform"_s, u"core"_s,
                                                    u"masks"_s, u"delivery"_s, u"overview"_s, u"host"_s, u"tests"_s, api}},
    };
    return table;
}
// clang-format on

bool liesIn(const QString& path, const QString& folder)
{
    return path == folder || path.startsWith(folder + u'/');
}

/// The room of a file: of those whose folder it lies in, the one with the longest name.
const Room* roomOf(const QString& path)
{
    const Room* found = nullptr;
    for (const Room& room : rooms()) {
        if (liesIn(path, room.folder) && (!found || room.folder.size() > found->folder.size())) found = &room;
    }
    return found;
}

/// "QtCore" for "QString": the module whose folder among Qt's headers has it.
QString qtModule(const QString& header)
{
    const QString headers = QLibraryInfo::path(QLibraryInfo::HeadersPath);
    for (const auto& module : {u"QtCore"_s, u"QtGui"_s, u"QtWidgets"_s, u"QtPrintSupport"_s, u"QtTest"_s}) {
        if (header.startsWith(module + u'/') || QFile::exists(headers + u'/' + module + u'/' + header)) return module;
    }
    return u"unknown module of Qt"_s;
}

/// What an include line names, in the words of the table; an empty text: the standard library or a generated file.
QString includedThing(const QString& header, bool quoted)
{
    static const QRegularExpression generated(u"^(ui_\\w+\\.h|\\w+\\.moc)$"_s);
    if (quoted) {
        if (generated.match(header).hasMatch()) return {};
        const Room* room = roomOf(header);
        return room ? room->folder : u"a path that begins in no room"_s;
    }
    if (header.startsWith(u"zablager/")) return u"include/zablager"_s;
    if (header == u"sqlite3.h") return u"sqlite3"_s;
    if (header == u"xlsxwriter.h") return u"xlsxwriter"_s;
    if (header == u"zlib.h") return u"zlib"_s;
    if (header.startsWith(u"unicode/")) return u"icu"_s;
    if (header.startsWith(u"gtest/") || header.startsWith(u"gmock/") || header.startsWith(u"benchmark/"))
        return u"test"_s;
    if (header.startsWith(u'Q')) return qtModule(header);
    return header.endsWith(u".h") ? u"os"_s : QString();
}

bool allowed(const Room& from, const QString& thing)
{
    if (thing.isEmpty() || liesIn(thing, from.folder)) return true;
    return std::any_of(from.mayInclude.begin(), from.mayInclude.end(),
                       [&](const QString& name) { return liesIn(thing, name); });
}

/// What one line breaks; empty when it breaks nothing.
QString brokenBy(const QString& line, const Room& room)
{
    static const QRegularExpression include(u"^\\s*#\\s*include\\s*([<\"])([^>\"]+)[>\"]"_s);
    static const QRegularExpression sqlite(u"\\bsqlite3\\w*|\\bPRAGMA\\b"_s);
    if (const auto match = include.match(line); match.hasMatch()) {
        const QString thing = includedThing(match.captured(2), match.captured(1) == u"\"");
        return allowed(room, thing) ? QString() : room.folder + u" may not include "_s + thing;
    }
    const bool knowsSqlite = room.mayInclude.contains(u"sqlite3"_s) || room.folder == u"tests";
    if (!knowsSqlite && sqlite.match(line).hasMatch()) return room.folder + u" may not speak to SQLite"_s;
    return {};
}

QStringList brokenIn(const QString& path, const QByteArray& bytes)
{
    const Room* room = roomOf(path);
    if (!room) return {path + u":1: belongs to no room"_s};
    QStringList broken;
    const QStringList lines = QString::fromUtf8(bytes).split(u'\n');
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QString what = brokenBy(lines[i], *room);
        if (!what.isEmpty()) broken.append(path + u':' + QString::number(i + 1) + u": "_s + what);
    }
    const qsizetype length = bytes.count('\n');
    if (length > LongestFile) broken.append(path + u':' + QString::number(length) + u": passes 500 lines"_s);
    return broken;
}

} // namespace

QStringList brokenRules(const QDir& tree)
{
    QStringList files;
    QDirIterator found(tree.path(), {u"*.h"_s, u"*.cpp"_s}, QDir::Files, QDirIterator::Subdirectories);
    while (found.hasNext())
        files.append(tree.relativeFilePath(found.next()));
    files.removeIf([](const QString& path) { return liesIn(path, u"build"_s); });
    files.sort();

    QStringList broken;
    for (const QString& path : files) {
        QFile file(tree.filePath(path));
        if (!file.open(QIODevice::ReadOnly)) broken.append(path + u":1: cannot be read"_s);
        broken += brokenIn(path, file.readAll());
    }
    return broken;
}
