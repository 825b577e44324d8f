#include "platform/family/GridExport.h"

#include "platform/controls/DataGrid.h"
#include "platform/jet/Errors.h"
#include "platform/system/ErrorReport.h"
#include "platform/system/FileFault.h"
#include "platform/system/FileName.h"
#include "platform/system/Files.h"
#include "platform/system/Path.h"
#include "platform/system/Programs.h"

#include <QDir>
#include <QFile>
#include <QScopeGuard>
#include <QSemaphore>
#include <QTemporaryDir>
#include <QThreadPool>

#include <algorithm>
#include <cerrno>

using namespace Qt::StringLiterals;

namespace {

std::vector<SheetColumn> visibleColumns(const DataGrid& grid)
{
    std::vector<SheetColumn> visible;
    for (int i = 0; i < grid.ColumnCount(); ++i) {
        if (!grid.Columns(i).Visible()) continue;
        const QVariant alignment = grid.model()->headerData(i, Qt::Horizontal, Qt::TextAlignmentRole);
        visible.push_back(
            {grid.Columns(i).Caption(), grid.Columns(i).NumberFormat(), Qt::Alignment(alignment.toInt())});
    }
    return visible;
}

SheetRows rowsOf(const DataGrid& grid)
{
    return {visibleColumns(grid), grid.rows().RecordCount(),
            [&grid](int first, int count) { return grid.Values(first, count); }};
}

/// Rows are written by a thread while the next ones are read here, a block at a time. It stays the same one:
/// where the machine has other work, a thread for each block is kept waiting longer than it saves. \returns
/// false when it was ended.
bool writeSheet(const SheetRows& source, const QString& file, const QString& name,
                const GridExport::Progress& progress)
{
    constexpr qsizetype RowsABlock = 500;
    const qsizetype rows = source.count;
    const qsizetype all = 2 * rows; // the rows, and then their packing
    Spreadsheet sheet(file, name, source.columns);
    std::vector<std::vector<jet::Value>> block;
    QSemaphore written(1);
    QThreadPool writer; // goes first, and not before it is done
    for (qsizetype row = 0; row < rows; row += RowsABlock) {
        auto read = source.read(static_cast<int>(row), static_cast<int>(std::min(RowsABlock, rows - row)));
        written.acquire();
        sheet.requireRoom();
        if (!progress(row, all)) return false;
        block = std::move(read);
        writer.start([&, number = static_cast<int>(row)]() mutable {
            for (const auto& values : block) {
                sheet.addRow(values, source.formulas ? source.formulas(number) : std::vector<QString>());
                ++number;
            }
            written.release();
        });
    }
    written.acquire();
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

/// An empty name: the writing was ended.
void writeAndOpen(const std::function<QString()>& write)
{
    QString file;
    sys::underErrorReport({
        [&] { file = write(); },
        [&] {
            if (!file.isEmpty()) sys::openDocument(file);
        },
    });
}

} // namespace

void GridExport::Export(const DataGrid& grid, const QString& name, const QString& directory,
                        const Progress& progress)
{
    writeAndOpen([&] { return Write(grid, name, directory, progress); });
}

void GridExport::Export(const SheetRows& rows, const QString& name, const Progress& progress)
{
    writeAndOpen([&] { return write(rows, name, {}, progress); });
}

QString GridExport::Write(const DataGrid& grid, const QString& name, const QString& directory,
                          const Progress& progress)
{
    return write(rowsOf(grid), name.isEmpty() ? grid.Title() : name, directory, progress);
}

QString GridExport::write(const SheetRows& rows, const QString& title, const QString& directory,
                          const Progress& progress)
{
    if (rows.count > Spreadsheet::MostRows)
        throw jet::Error(
            jet::ErrorNumber::InvalidArgument,
            u"Die Liste hat mehr Zeilen, als in einer Tabelle Platz haben. Grenzen Sie die Ansicht ein."_s);
    const QString path =
        (directory.isEmpty() ? ownDirectory() : sys::localPath(directory)) + u'/' + sys::fileNameFor(title);
    QFile draft(sys::draftName(path));
    if (!draft.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        throw sys::fileFault(errno, path + u".xlsx"_s);
    draft.close();
    auto removeDraft = qScopeGuard([&draft] { draft.remove(); });
    try {
        if (!writeSheet(rows, draft.fileName(), title, progress)) return {};
    } catch (const sys::FileError& error) { // the user knows the file, not its draft
        throw sys::FileError(error.number(),
                             QString(error.text()).replace(draft.fileName(), path + u".xlsx"_s));
    }
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
