#pragma once

#include "platform/report/Expression.h"

#include <QColor>
#include <QPageLayout>
#include <QPageSize>
#include <QSizeF>
#include <QString>

#include <optional>
#include <vector>

namespace report {

// A report form as its file says it. Lengths are millimetres, counted from the band's upper left corner, font
// sizes are points. docs/report-forms.md tells what each thing means to the one who writes a form.

struct Font {
    double size = 0;
    bool bold = false;
    bool italic = false;
    QRgb color = 0xFF000000;
    bool operator==(const Font&) const = default;
};

/// A field or caption: wraps at its width and makes its band grow.
struct Text {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0; ///< 0: one line.
    Font font;
    Qt::AlignmentFlag align = Qt::AlignLeft;
    QString format; ///< "##,##0.00" or "dd.mm.yyyy", for what in the text is a number or a date.
    Template text;
    Condition show;

    bool isNumber() const; ///< By its format; a number is never broken into lines.
};

/// A filled rectangle: a rule, or a box whose border, if it has one, is `border` thick.
struct Box {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;
    double border = 0;
    QRgb color = 0xFF000000;
    std::optional<QRgb> fill;
    Condition show;
};

struct Band {
    double height = 0;   ///< At least.
    bool repeat = false; ///< Of a group's head: again on each further page of the group.
    Condition show;
    std::vector<Box> boxes; ///< Lie below the texts.
    std::vector<Text> texts;
};

using Bands = std::vector<Band>; ///< One section: those whose condition is met, one below the other.

struct Group {
    Operand by;           ///< A column, or a formula that names one; a formula that does not makes no group.
    bool newPage = false; ///< Each but the first begins on a page of its own.
    Bands header;
    Bands footer;
};

struct FormulaDefault {
    QString name;
    Operand value;
};

/// A column of the rows that the table has not: an expression of the engine, such as a sum over a group of
/// its rows.
struct ComputedColumn {
    QString name;
    QString expression;
    Place place;
};

struct Key {
    QString column;
    bool descending = false;
    Condition show; ///< Of a summarised form: while it is not met the rows are not told apart by this column.
    Place place;
};

/// Where the rows come from. With `summarise` a row stands for all rows of the table that agree in those
/// columns.
struct Data {
    QString table;
    std::vector<Key> summarise;
    std::vector<ComputedColumn> computed;
    std::vector<Key> sort; ///< After the groups and the control's sort fields.
    Condition show;        ///< Rows that do not meet it are left out.
};

/// One row of another table, read once: its first one, or the first one in which `column` has the value.
struct Lookup {
    QString table;
    QString column;
    std::optional<Operand> equals;
};

struct Form {
    QString file;
    QString title;
    QPageSize::PageSizeId paper = QPageSize::A4;
    QPageLayout::Orientation orientation = QPageLayout::Portrait;
    QMarginsF margins; ///< Millimetres.
    QString family;    ///< Of the font.

    std::vector<FormulaDefault> formulas;
    Data data;
    std::vector<Lookup> lookups;

    Bands reportHeader;
    Bands pageHeader;
    std::vector<Group> groups; ///< From the outermost inwards.
    Bands detail;
    Bands pageFooter;
    Bands reportFooter;

    QSizeF paperSize() const; ///< Millimetres, as it is turned.
};

/// All references of the form's bands, to be bound; not those of its data, lookups and formulas.
std::vector<Reference*> bandReferences(Form& form);

} // namespace report
