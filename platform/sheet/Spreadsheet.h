#pragma once

#include "platform/jet/Value.h"

#include <QByteArray>
#include <QString>
#include <QStringEncoder>

#include <functional>
#include <vector>

struct lxw_format;
struct lxw_workbook;
struct lxw_worksheet;

struct SheetColumn {
    QString caption;
    QString numberFormat;                    ///< As jet::formatted() reads it; empty: as the value is.
    Qt::Alignment alignment = Qt::AlignLeft; ///< Of the caption, which stands over what is below it.
};

/// A spreadsheet file in the making, sheet by sheet: captions in a row that stays on view and filters,
/// below it rows from top to bottom. A sheet is printed on landscape sheets as wide as the columns, the
/// captions on each. No more than one row of it is kept in memory. What has not been finished is no file
/// that a program can read.
class Spreadsheet {
public:
    static constexpr int MostRows = 1'048'575; ///< Below the captions; more does no spreadsheet program show.

    /// Begins the file with its first sheet; temporary files go to its directory. The sheet is called
    /// `name` without what no sheet can be called. \throws sys::FileError.
    Spreadsheet(const QString& file, const QString& name, const std::vector<SheetColumn>& columns);
    ~Spreadsheet();
    Q_DISABLE_COPY_MOVE(Spreadsheet)

    /// Begins another sheet; the one before is complete. \throws sys::FileError as requireRoom().
    void addSheet(const QString& name, const std::vector<SheetColumn>& columns);

    /// One value for each column. Numbers and days become numbers and days in the sheet, everything else a
    /// text of one line, and NULL an empty cell. A number may be the result of a formula, "ROUND(A2*B2,2)" in
    /// the names that files have it in: programs that do not compute show the number.
    void addRow(const std::vector<jet::Value>& values, const std::vector<QString>& formulas = {});
    void
    requireRoom() const; ///< \throws sys::FileError DiskFull when some of the rows found no room on the disk.
    /// Gives columns their widths and packs the file. That takes about as long as all rows before, so
    /// `meanwhile` is called now and then; it must not throw. \throws sys::FileError when the file could not
    /// be completed.
    void finish(const std::function<void()>& meanwhile);

private:
    struct Column {
        lxw_format* format;
        QString numberFormat;
        qsizetype longest;  ///< Text, in characters.
        double largest = 0; ///< Number, without its sign.
    };

    void beginSheet(const QString& name, const std::vector<SheetColumn>& columns);
    void endSheet();
    lxw_format* addFormat(const QByteArray& numberFormat);
    lxw_format* captionFormat(Qt::Alignment alignment);
    void setUpPage();
    void write(quint16 column, const jet::Value& value, const QString& formula);
    void writeNumber(quint16 column, double number, const QString& formula);
    void writeDate(quint16 column, const QDateTime& moment);
    void writeText(quint16 column, const QString& text);
    void setWidths();
    void close();

    QString m_file;
    lxw_workbook* m_book;
    lxw_worksheet* m_sheet = nullptr; // the one that gets rows
    std::vector<lxw_worksheet*> m_sheets;
    lxw_format* m_day = nullptr;
    lxw_format* m_moment = nullptr;
    std::vector<Column> m_columns;
    QStringEncoder m_utf8{QStringEncoder::Utf8};
    QByteArray m_bytes; // of the text being written
    quint32 m_row = 0;
};
