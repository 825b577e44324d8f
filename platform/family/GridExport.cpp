#include "platform/family/GridExport.h"

#include "platform/controls/DataGrid.h"
#include "platform/family/Spreadsheet.h"
#include "platform/jet/Errors.h"
#include "platform/system/ErrorReport.h"
#include "platform/system/FileFault.h"
#include "platform/system/Files.h"
#include "platform/system/Path.h"
#include "platform/system/Programs.h"

#include <QDir>
#include <QFile>
#include <QScopeGuard>
#include <QTemporaryDir>

#include <algorithm>
#include <cerrno>
#include <future>

using namespace Qt::StringLiterals;

namespace {

/// What a file can be called on every system.
QString fileName(QString name)
{
    for (const QChar forbidden : u"/\\:*?\"<>|"_s)
        name.replace(forbidden, u'-');
    return name;
}

std::vector<int> visibleColumns(const DataGrid& grid)
{
    std::vector<int> visible;
    for (int i = 0; i < grid.ColumnCount(); ++i)
        if (grid.Columns(i).Visible()) visible.push_back(i);
    return visible;
}

using Block = std::vector<std::vector<jet::Value>>;

void addRows(Spreadsheet& sheet, const Block& block, const std::vector<int>& visible)
{
    std::vector<jet::Value> shown;
    for (const auto& row : block) {
        shown.clear();
        for (const int column : visible)
            shown.push_back(row[static_cast<std::size_t>(column)]);
        sheet.addRow(shown);
    }
}

/// \returns false when it was ended.
bool writeSheet(const DataGrid& grid, const QString& file, const QString& name, const GridExport::Progress& progress)
{
    constexpr qsizetype RowsABlock = 500;
    const std::vector<int> visible = visibleColumns(grid);
    std::vector<SheetColumn> columns;
    columns.reserve(visible.size());
    for (const int i : visible)
        columns.push_back({grid.Columns(i).Caption(), grid.Columns(i).NumberFormat()});
    const qsizetype rows = grid.rows().RecordCount();
    const qsizetype all = 2 * rows; // the rows, and then their packing
    Spreadsheet sheet(file, name, columns);
    Block written;
    std::future<void> writing; // in a thread of its own, while the next block is read here
    for (qsizetype row = 0; row < rows; row += RowsABlock) {
        Block read = grid.Values(static_cast<int>(row), static_cast<int>(std::min(RowsABlock, rows - row)));
        if (writing.valid()) writing.get();
        sheet.requireRoom();
        if (!progress(row, all)) return false;
        written = std::move(read);
        writing = std::async(std::launch::async, [&] { addRows(sheet, written, visible); });
    }
    if (writing.valid()) writing.get();
    bool wanted = true;
    sheet.finish([&] { wanted = wanted && progress(rows, all); });
    return wanted;
}

/// Renames a file to the first free one of "Name.xlsx", "Name (2).xlsx", and so on.
QString takeFreeName(QFile& draft, const QString& path)
{
    QString file = path + u".xlsx"_s;
    for (int number = 2; QFile::exists(file); ++number)
        file = path + u" ("_s + QString::number(number) + u").xlsx"_s;
    if (!draft.rename(file)) throw sys::fileFault(errno, file);
    return file;
}

} // namespace

void GridExport::Export(const DataGrid& grid, const QString& name, const QString& directory, const Progress& progress)
{
    QString file;
    sys::underErrorReport({
        [&] { file = Write(grid, name, directory, progress); },
        [&] {
            if (!file.isEmpty()) sys::openDocument(file);
        },
    });
}

QString GridExport::Write(const DataGrid& grid, const QString& name, const QString& directory, const Progress& progress)
{
    if (grid.rows().RecordCount() > Spreadsheet::MostRows)
        throw jet::Error(
            jet::ErrorNumber::InvalidArgument,
            u"Die Liste hat mehr Zeilen, als in einer Tabelle Platz haben. Grenzen Sie die Ansicht ein."_s);
    const QString title = name.isEmpty() ? grid.Title() : name;
    const QString path = (directory.isEmpty() ? ownDirectory() : sys::localPath(directory)) + u'/' + fileName(title);
    QFile draft(sys::draftName(path));
    if (!draft.open(QIODevice::WriteOnly | QIODevice::NewOnly)) throw sys::fileFault(errno, path + u".xlsx"_s);
    draft.close();
    auto removeDraft = qScopeGuard([&draft] { draft.remove(); });
    if (!writeSheet(grid, draft.fileName(), title, progress)) return {};
    QString file = takeFreeName(draft, path);
    removeDraft.dismiss();
    return file;
}

QString GridExport::ownDirectory()
{
    if (!m_directory.isEmpty() && QFileInfo(m_directory).isDir()) return m_directory;
    QTemporaryDir made(QDir::tempPath() + u"/Lagerverwaltung-XXXXXX"_s);
    if (!made.isValid()) throw sys::fileFault(sys::FileErrorNumber::PathAccess, QDir::tempPath());
    made.setAutoRemove(false);
    m_directory = made.path();
    return m_directory;
}
