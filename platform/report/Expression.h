#pragma once

#include "platform/jet/Value.h"
#include "platform/report/Place.h"

#include <QString>

#include <variant>
#include <vector>

namespace report {

/// What stands in braces. Names are found in any case.
///
///     {JOURNAL.Artikel}         a column of the current row, or of a lookup's row
///     {@Betriebsname}           a formula
///     {sum(JOURNAL.Menge)}      of the band's group, in page and report bands of the report, up to the
///                               current row
///     {count}                   rows, likewise
///     {total(JOURNAL.Menge)}    the sum over all rows of the report, known from its first band on
///     {same(JOURNAL.Einheit)}   1 while the column has had one value only, else 0; likewise
///     {page}, {pages}           number of the page, and of the last one
///     {continued}               1 where a group's head is repeated on a further page, else 0
///     {ending}                  1 on a page without a row, where only what is left of the report's footer
///                               stands, else 0
///     {today}                   the day of printing
///     {lower(@Stichdatum)}      the text of a formula or column in small letters, for the middle of a
///                               sentence
struct Reference {
    enum class Kind { Column, Formula, Sum, Count, Same, Total, Page, Pages, Continued, Ending, Today };

    bool isRunning() const { return kind == Kind::Sum || kind == Kind::Count || kind == Kind::Same; }
    bool isTotal() const { return kind == Kind::Total || isRunning(); }
    bool hasColumn() const { return kind == Kind::Column || (isTotal() && kind != Kind::Count); }

    Kind kind = Kind::Column;
    bool lower = false; ///< In small letters.
    QString table;      ///< Of Column, Sum, Same and Total.
    QString name;       ///< The column or formula.
    Place place;        ///< Where it stands, for what is found out later.

    /// After binding: where its value is found. What has a column: place in the row, -1 for a constant.
    /// Totals use `total` besides.
    int column = -1;
    int total = -1;
    jet::Value constant; ///< Of a lookup or formula, of Total, and of the day.
};

/// A text with references: "Seite {page} von {pages}". "{{" stands for a brace.
using Template = std::vector<std::variant<QString, Reference>>;

using Operand = std::variant<jet::Value, Reference>;

struct Comparison {
    enum class Operator { Equal, Unequal, Less, LessOrEqual, Greater, GreaterOrEqual };
    Operand left;
    Operator op = Operator::Equal;
    Operand right;
};

/// Comparisons joined by "and", and those by "or": met when all of one inner list are. No list: always met.
using Condition = std::vector<std::vector<Comparison>>;

/// \throws jet::Error InvalidArgument, the place in front.
Template readTemplate(QStringView text, const Place& place);
/// "{@MitSumme} = 'J' and {sum(JOURNAL.Menge)} <> 0"; an empty text is always met. Texts stand in ' or ", the
/// mark itself doubled; numbers have a point.
Condition readCondition(QStringView text, const Place& place);
/// One text, number or {reference}, which is all that a formula may be.
Operand readOperand(QStringView text, const Place& place);

/// All references of a text or condition, to be bound.
void collect(Template& text, std::vector<Reference*>& into);
void collect(Condition& condition, std::vector<Reference*>& into);
void collect(Operand& operand, std::vector<Reference*>& into);

} // namespace report
