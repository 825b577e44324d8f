#include "platform/controls/GridSearch.h"

#include "platform/controls/DataGrid.h"
#include "platform/controls/GridHeader.h"
#include "platform/jet/ShownText.h"
#include "platform/jet/TextLiteral.h"
#include "platform/system/ErrorReport.h"

#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QTimerEvent>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr int Pause = 1000; // ms without a key, after which a word is at its end

QString begins(const QString& field, QStringView format, const QString& word)
{
    return u"BEGINS(%1, %2, %3)"_s.arg(field, jet::textLiteral(format.toString()), jet::textLiteral(word));
}

/// A whole day is a stretch of an index.
QString dateCriterion(const QString& field, const QString& word)
{
    const QDate day = QDate::fromString(word, u"dd.MM.yyyy"_s);
    if (!day.isValid()) return begins(field, jet::DayFormat, word);
    const auto written = [](QDate date) { return date.toString(u"#MM/dd/yyyy#"_s); };
    return u"%1 >= %2 AND %1 < %3"_s.arg(field, written(day), written(day.addDays(1)));
}

/// The stretch of an index in which the word can be: from what of it no blank interrupts, which is on view
/// one blank however many there are, to that with the last of all characters behind it. A text that begins
/// with blanks lies elsewhere in the order and is not found.
QString textCriterion(const QString& field, const QString& word)
{
    const QString first = word.section(u' ', 0, 0);
    return u"%1 >= %2 AND %1 <= %3 AND %4"_s.arg(
        field, jet::textLiteral(first), jet::textLiteral(first + QChar(0xFFFF)), begins(field, {}, word));
}

/// A letter begins no figure, so that no row need be asked.
bool mayBegin(const GridModel& model, int column, const QString& word)
{
    return !jet::isNumber(model.type(column)) ||
           std::none_of(word.begin(), word.end(), [](QChar c) { return c.isLetter(); });
}

/// What is tried before a figure is written out for each row: none that is smaller begins with the word,
/// however it is rounded. Empty for a word that may begin with a sign or a zero.
QString leastCriterion(const QString& field, const QString& word)
{
    const QString whole = word.section(u',', 0, 0).remove(u'.');
    if (whole.isEmpty() || whole[0] < u'1' || whole[0] > u'9') return {};
    return field + u" >= "_s + QString::number(whole.toDouble() - 0.5, 'f', 1) + u" AND "_s;
}

/// What the engine looks for: the rows that show a text beginning with the word.
QString criterion(const GridModel& model, int column, const QString& word)
{
    const GridColumn& searched = model.column(column);
    const QString field = u'[' + searched.DataField() + u']';
    const jet::Type type = model.type(column);
    if (type == jet::Type::Date) return dateCriterion(field, word);
    if (jet::isText(type)) return textCriterion(field, word);
    const QString shown = begins(field, searched.NumberFormat(), word);
    if (const QString least = leastCriterion(field, word); !least.isEmpty()) return least + shown;
    return model.hidesZero(column) ? field + u" <> 0 AND "_s + shown : shown;
}

} // namespace

GridSearch::GridSearch(DataGrid& grid, GridModel& model, GridHeader& header)
    : QObject(&grid), m_grid(grid), m_model(model), m_header(header)
{}

bool GridSearch::press(const QKeyEvent& event)
{
    if (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) return false;
    if (event.key() == Qt::Key_Space && !m_word.isEmpty()) {
        type(event.text()); // the grid would take it for itself
    } else if (event.key() == Qt::Key_Backspace && !m_word.isEmpty()) {
        m_word.chop(1);
        find(m_grid.currentIndex().row());
    } else {
        return false;
    }
    return true;
}

void GridSearch::type(const QString& text)
{
    const bool printable = std::all_of(text.begin(), text.end(), [](QChar c) { return c.isPrint(); });
    if (!printable || (m_word.isEmpty() && text.trimmed().isEmpty()) || !m_grid.currentIndex().isValid())
        return;
    const bool begins = m_word.isEmpty();
    m_word += text;
    find(m_grid.currentIndex().row() + (begins ? 1 : 0));
}

void GridSearch::end()
{
    if (m_moving) return;
    m_pause.stop();
    m_word.clear();
    m_header.setSearch({});
    m_grid.setAccessibleDescription({});
}

void GridSearch::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == m_pause.timerId()) end();
}

void GridSearch::find(qsizetype from)
{
    if (m_word.isEmpty()) return end();
    const int column = m_grid.currentIndex().column();
    std::optional<qsizetype> found;
    sys::underErrorReport({[&] {
        found = mayBegin(m_model, column, m_word)
                    ? m_grid.rows().FindFrom(from, criterion(m_model, column, m_word))
                    : -1;
    }});
    if (!found) return end();
    if (*found >= 0) {
        const QScopedValueRollback moving(m_moving, true);
        m_grid.setCurrentIndex(m_model.index(int(*found), column));
    }
    show(*found >= 0);
}

void GridSearch::show(bool found)
{
    const QString caption = m_model.column(m_grid.currentIndex().column()).Caption();
    const QString text =
        u"Suche in %1: "_s.arg(caption) + m_word + (found ? QString() : u" (nicht gefunden)"_s);
    m_header.setSearch(text);
    m_grid.setAccessibleDescription(text);
    m_pause.start(Pause, this); // only now: a search over a long journal may itself take as long
}
