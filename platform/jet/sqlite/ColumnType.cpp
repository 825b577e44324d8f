#include "platform/jet/sqlite/ColumnType.h"

#include "platform/jet/sqlite/Names.h"

#include <algorithm>
#include <iterator>

namespace jet::sqlite {

namespace {

struct DeclaredType {
    Type type;
    const char* declared;
};

// SQLite derives from these words how it stores values: texts must never be taken for numbers, so dates and
// both kinds of text carry TEXT in their name (DATETIME, which is only read, makes every comparison try both
// dates for numbers); LONG must not read INT, which would make a primary key of that type the row's own key.
// The second row of a type is only read, and so are the narrow numbers that files of before have.
constexpr DeclaredType DeclaredTypes[] = {
    {Type::Boolean, "YESNO"}, {Type::Long, "LONG"},  {Type::Counter, "INTEGER"}, {Type::Double, "DOUBLE"},
    {Type::Date, "DATETEXT"}, {Type::Text, "TEXT"},  {Type::Memo, "LONGTEXT"},   {Type::Date, "DATETIME"},
    {Type::Long, "BYTE"},     {Type::Long, "SHORT"}, {Type::Double, "SINGLE"},   {Type::Double, "CURRENCY"},
};

} // namespace

QByteArray writeColumn(const sql::ColumnDefinition& column)
{
    const auto* row = std::find_if(std::begin(DeclaredTypes), std::end(DeclaredTypes),
                                   [&](const DeclaredType& entry) { return entry.type == column.type; });
    QByteArray text = quoted(column.name) + ' ' + row->declared;
    if (column.type == Type::Counter) return text + " PRIMARY KEY AUTOINCREMENT";
    if (column.type == Type::Text) {
        const QByteArray size = QByteArray::number(column.size);
        text += '(' + size + ") CHECK(length(" + quoted(column.name) + ")<=" + size + ')';
    }
    if (column.type == Type::Boolean)
        text += " NOT NULL DEFAULT 0 CHECK(-" + quoted(column.name) + " IN (0,1))";
    else if (column.required || column.primaryKey)
        text += " NOT NULL";
    return text;
}

Field readColumnType(const QString& name, const QString& declared, bool isKey)
{
    Field field;
    field.name = name;
    const QString word = declared.section(u'(', 0, 0).trimmed().toUpper();
    const auto* row =
        std::find_if(std::begin(DeclaredTypes), std::end(DeclaredTypes),
                     [&](const DeclaredType& entry) { return word == QLatin1StringView(entry.declared); });
    if (row == std::end(DeclaredTypes)) {
        // A table that another program made: by the rule by which SQLite itself stores values of that
        // declaration.
        const bool whole = word.contains(u"INT");
        const bool number =
            whole || word.contains(u"REAL") || word.contains(u"FLOA") || word.contains(u"DOUB");
        field.type = whole ? Type::Long : number ? Type::Double : Type::Memo;
        return field;
    }
    field.type = row->type == Type::Counter && !isKey ? Type::Long : row->type;
    if (field.type == Type::Text) field.size = declared.section(u'(', 1).section(u')', 0, 0).toInt();
    if (field.type == Type::Text && field.size == 0) field.size = 255;
    return field;
}

} // namespace jet::sqlite
