#include "platform/sheet/Spreadsheet.h"

#include "platform/jet/NumberFormat.h"
#include "platform/sheet/CompletePackage.h"
#include "platform/system/FileFault.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QThread>

#include <xlsxwriter.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr double Finest = 1e10;       // numbers are held to 10 decimals: what adding leaves beyond is dust
constexpr qsizetype CaptionExtra = 3; // bold is wider, and the filter's button stands in the cell
constexpr quint8 PaperA4 = 9;         // the format's number for it

/// A number format in the words of spreadsheets: "##,##0.00" is "#,##0.00" there.
QByteArray sheetFormat(const QString& format)
{
    const qsizetype point = format.indexOf(u'.');
    const QString whole = point < 0 ? format : format.left(point);
    QString digits(whole.count(u'0'), u'0');
    if (whole.contains(u',')) {
        digits = digits.rightJustified(4, u'#');
        for (qsizetype i = digits.size() - 3; i > 0; i -= 3)
            digits.insert(i, u',');
    }
    return (point < 0 ? digits : digits + format.mid(point)).toLatin1();
}

/// What a sheet may be called.
QByteArray sheetName(QString name)
{
    constexpr qsizetype Longest = 31;
    for (const QChar forbidden : u"[]:*?/\\'"_s)
        name.replace(forbidden, u'-');
    return name.left(Longest).toUtf8();
}

sys::FileError failure(int systemError, const QString& file)
{
    return sys::fileFault(systemError == 0 ? ENOSPC : systemError, file);
}

} // namespace

Spreadsheet::Spreadsheet(const QString& file, const QString& name, const std::vector<SheetColumn>& columns)
    : m_file(file)
{
    QByteArray directory = QFile::encodeName(QDir::toNativeSeparators(QFileInfo(file).path()));
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    options.tmpdir = directory.data(); // copied
    m_book = workbook_new_opt(QFile::encodeName(file).constData(), &options);
    if (m_book) {
        m_day = addFormat("dd.mm.yyyy");
        m_moment = addFormat("dd.mm.yyyy hh:mm:ss");
        for (lxw_format* const date : {m_day, m_moment})
            format_set_align(date, LXW_ALIGN_CENTER);
    }
    beginSheet(name, columns);
}

void Spreadsheet::addSheet(const QString& name, const std::vector<SheetColumn>& columns)
{
    endSheet();
    beginSheet(name, columns);
}

void Spreadsheet::beginSheet(const QString& name, const std::vector<SheetColumn>& columns)
{
    m_sheet = m_book ? workbook_add_worksheet(m_book, sheetName(name).constData()) : nullptr;
    if (!m_sheet) {
        const int reason = errno;
        close();
        throw failure(reason, m_file);
    }
    m_sheets.push_back(m_sheet);
    setUpPage();
    m_row = 0;
    m_columns.clear();
    for (const SheetColumn& column : columns) {
        const auto index = static_cast<lxw_col_t>(m_columns.size());
        worksheet_write_string(m_sheet, 0, index, column.caption.toUtf8().constData(),
                               captionFormat(column.alignment));
        m_columns.push_back(
            {.format = column.numberFormat.isEmpty() ? nullptr : addFormat(sheetFormat(column.numberFormat)),
             .numberFormat = column.numberFormat,
             .longest = column.caption.size() + CaptionExtra});
    }
}

Spreadsheet::~Spreadsheet()
{
    close();
}

void Spreadsheet::close()
{
    if (!m_book) return;
    for (lxw_worksheet* const sheet : m_sheets)
        std::fclose(sheet->optimize_tmpfile); // which the library only does when it packs
    lxw_workbook_free(std::exchange(m_book, nullptr));
}

lxw_format* Spreadsheet::addFormat(const QByteArray& numberFormat)
{
    lxw_format* const format = workbook_add_format(m_book);
    if (!numberFormat.isEmpty()) format_set_num_format(format, numberFormat.constData());
    return format;
}

lxw_format* Spreadsheet::captionFormat(Qt::Alignment alignment)
{
    lxw_format* const format = addFormat({});
    format_set_bold(format);
    if (alignment & Qt::AlignRight) format_set_align(format, LXW_ALIGN_RIGHT);
    if (alignment & Qt::AlignHCenter) format_set_align(format, LXW_ALIGN_CENTER);
    return format;
}

void Spreadsheet::setUpPage()
{
    worksheet_freeze_panes(m_sheet, 1, 0);
    worksheet_set_landscape(m_sheet);
    worksheet_set_paper(m_sheet, PaperA4);
    worksheet_fit_to_pages(m_sheet, 1, 0); // one sheet wide, as many down as it takes
    worksheet_repeat_rows(m_sheet, 0, 0);
}

void Spreadsheet::addRow(const std::vector<jet::Value>& values, const std::vector<QString>& formulas)
{
    ++m_row;
    for (std::size_t i = 0; i < values.size(); ++i)
        write(static_cast<lxw_col_t>(i), values[i], i < formulas.size() ? formulas[i] : QString());
}

void Spreadsheet::write(quint16 column, const jet::Value& value, const QString& formula)
{
    switch (value.type()) {
    case jet::Type::Null: return;
    case jet::Type::Long:
    case jet::Type::Double: return writeNumber(column, value.toDouble(), formula);
    case jet::Type::Date: return writeDate(column, value.toDateTime());
    default: return writeText(column, value.toText());
    }
}

void Spreadsheet::writeNumber(quint16 column, double number, const QString& formula)
{
    if (!std::isfinite(number)) return writeText(column, jet::Value(number).toText());
    const double held = std::round(number * Finest) / Finest + 0.0; // never -0
    const double written = std::isfinite(held) ? held : number;
    Column& its = m_columns[column];
    its.largest = std::max(its.largest, std::fabs(written));
    if (formula.isEmpty())
        worksheet_write_number(m_sheet, m_row, column, written, its.format);
    else
        worksheet_write_formula_num(m_sheet, m_row, column, ('=' + formula.toUtf8()).constData(), its.format,
                                    written);
}

/// Spreadsheets count days from the end of 1899, but one program and the other begin to agree only on 1 March
/// 1900; what is before that, or after the year 9999, stays a text.
void Spreadsheet::writeDate(quint16 column, const QDateTime& moment)
{
    static const qint64 Zero = QDate(1899, 12, 30).toJulianDay();
    static const qint64 First = QDate(1900, 3, 1).toJulianDay();
    static const qint64 Last = QDate(9999, 12, 31).toJulianDay();
    constexpr double MillisecondsADay = 86'400'000;
    constexpr qsizetype Characters = 10; // 01.03.2025
    const qint64 day = moment.date().toJulianDay();
    if (day < First || day > Last) return writeText(column, moment.date().toString(u"dd.MM.yyyy"));
    const int time = moment.time().msecsSinceStartOfDay();
    Column& its = m_columns[column];
    its.longest = std::max(its.longest, time == 0 ? Characters : 2 * Characters);
    worksheet_write_number(m_sheet, m_row, column, static_cast<double>(day - Zero) + time / MillisecondsADay,
                           time == 0 ? m_day : m_moment);
}

/// Never a formula, whatever it begins with.
void Spreadsheet::writeText(quint16 column, const QString& text)
{
    constexpr qsizetype Longest = 32'000; // characters; a cell holds hardly more
    const bool isLine = std::none_of(text.begin(), text.end(), [](QChar letter) { return letter < u' '; });
    const QString line = (isLine ? text : text.simplified()).left(Longest);
    Column& its = m_columns[column];
    its.longest = std::max(its.longest, line.size());
    m_bytes.resize(m_utf8.requiredSpace(line.size()) + 1);
    *m_utf8.appendToBuffer(m_bytes.data(), line) = 0;
    worksheet_write_string(m_sheet, m_row, column, m_bytes.constData(), nullptr);
}

void Spreadsheet::requireRoom() const
{
    // The library writes rows into this file without looking whether they get there.
    if (std::ferror(m_sheet->optimize_tmpfile) == 0) return;
    errno = 0;
    std::fflush(m_sheet->optimize_tmpfile); // what is left over tells the reason
    throw failure(errno, m_file);
}

void Spreadsheet::setWidths()
{
    constexpr qsizetype Widest = 60;
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        const Column& its = m_columns[i];
        const qsizetype figures =
            its.largest == 0 ? 0 : jet::formatted(-its.largest, its.numberFormat).size();
        const auto width = static_cast<double>(std::min(std::max(its.longest, figures), Widest) + 2);
        const auto column = static_cast<lxw_col_t>(i);
        worksheet_set_column(m_sheet, column, column, width, nullptr);
    }
}

void Spreadsheet::endSheet()
{
    setWidths();
    worksheet_autofilter(m_sheet, 0, 0, m_row, static_cast<lxw_col_t>(m_columns.size() - 1));
    lxw_worksheet_write_single_row(m_sheet); // the last one, which waits for one behind it
    std::fflush(m_sheet->optimize_tmpfile);
    requireRoom();
}

void Spreadsheet::finish(const std::function<void()>& meanwhile)
{
    constexpr int Beat = 50; // ms
    endSheet();
    int reason = 0;
    bool complete = false;
    const std::unique_ptr<QThread> packer(QThread::create([&] {
        errno = 0;
        const lxw_error error = workbook_close(std::exchange(m_book, nullptr));
        reason = errno;
        complete = error == LXW_NO_ERROR && isCompletePackage(m_file);
    }));
    packer->start();
    while (!packer->wait(Beat))
        meanwhile();
    if (!complete) throw failure(reason, m_file);
}
