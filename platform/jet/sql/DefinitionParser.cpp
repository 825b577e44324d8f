#include "platform/jet/sql/DefinitionParser.h"

#include "platform/jet/Errors.h"
#include "platform/jet/sql/Lexer.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace jet::sql {

namespace {

struct TypeWord {
    QStringView word;
    Type type;
};

// clang-format off
constexpr TypeWord TypeWords[] = { // a narrow number is kept as the wide one of its kind
    {u"LONG", Type::Long}, {u"INTEGER", Type::Long}, {u"INT", Type::Long}, {u"INTEGER4", Type::Long},
    {u"SHORT", Type::Long}, {u"SMALLINT", Type::Long}, {u"INTEGER2", Type::Long}, {u"BYTE", Type::Long},
    {u"DOUBLE", Type::Double}, {u"FLOAT", Type::Double}, {u"NUMBER", Type::Double}, 
    {u"NUMERIC", Type::Double},
    {u"SINGLE", Type::Double}, {u"REAL", Type::Double}, {u"CURRENCY", Type::Double}, {u"MONEY", Type::Double},
    {u"TEXT", Type::Text}, {u"CHAR", Type::Text}, {u"VARCHAR", Type::Text}, {u"STRING", Type::Text},
    {u"MEMO", Type::Memo}, {u"LONGTEXT", Type::Memo}, {u"NOTE", Type::Memo},
    {u"DATE", Type::Date}, {u"DATETIME", Type::Date}, {u"TIME", Type::Date},
    {u"BIT", Type::Boolean}, {u"YESNO", Type::Boolean}, {u"LOGICAL", Type::Boolean},
    {u"BOOLEAN", Type::Boolean},
    {u"COUNTER", Type::Counter}, {u"AUTOINCREMENT", Type::Counter}, {u"IDENTITY", Type::Counter},
};
// clang-format on

int parseSize(TokenCursor& cursor)
{
    const auto size = literalValue(cursor.peek(), cursor.shape().statement);
    if (!size || size->type() != Type::Long || size->toLong() < 1 || size->toLong() > 255)
        raise(ErrorNumber::ColumnDefinitionSyntax, {}, cursor.peek().start);
    cursor.take();
    cursor.expect(Symbol::RightParen, ErrorNumber::ColumnDefinitionSyntax);
    return static_cast<int>(size->toLong());
}

ColumnDefinition parseColumn(TokenCursor& cursor, ErrorNumber fault)
{
    ColumnDefinition column;
    column.name = cursor.takeName(fault);
    const auto* found = std::find_if(std::begin(TypeWords), std::end(TypeWords),
                                     [&](const TypeWord& row) { return cursor.at(row.word); });
    if (found == std::end(TypeWords)) raise(ErrorNumber::ColumnDefinitionSyntax, {}, cursor.peek().start);
    cursor.take();
    column.type = found->type;
    if (column.type == Type::Text) column.size = cursor.accept(Symbol::LeftParen) ? parseSize(cursor) : 255;
    if (cursor.accept(u"NOT")) {
        cursor.expect(u"NULL", fault);
        column.required = true;
    }
    if (cursor.accept(u"PRIMARY")) {
        cursor.expect(u"KEY", fault);
        column.primaryKey = true;
    }
    return column;
}

CreateTable parseCreateTable(TokenCursor& cursor)
{
    constexpr auto Fault = ErrorNumber::CreateTableSyntax;
    CreateTable create;
    create.table = cursor.takeName(Fault);
    cursor.expect(Symbol::LeftParen, Fault);
    do
        create.columns.push_back(parseColumn(cursor, Fault));
    while (cursor.accept(Symbol::Comma));
    cursor.expect(Symbol::RightParen, Fault);
    return create;
}

Definition parseAlterTable(TokenCursor& cursor)
{
    constexpr auto Fault = ErrorNumber::AlterTableSyntax;
    cursor.expect(u"TABLE", Fault);
    const QString table = cursor.takeName(Fault);
    const bool alter = cursor.accept(u"ALTER");
    if (!alter) cursor.expect(u"ADD", Fault);
    cursor.accept(u"COLUMN");
    auto column = parseColumn(cursor, Fault);
    if (alter) return AlterColumn{table, std::move(column)};
    return AddColumn{table, std::move(column)};
}

/// "LCASE(TRIM(" or "TRIM(LCASE(" before a column: the index serves look-ups of names as they are typed.
bool acceptFolding(TokenCursor& cursor)
{
    const bool lowerFirst = cursor.at(u"LCASE") && cursor.isWord(2, u"TRIM");
    const bool trimFirst = cursor.at(u"TRIM") && cursor.isWord(2, u"LCASE");
    if (!lowerFirst && !trimFirst) return false;
    for (int i = 0; i < 2; ++i) {
        cursor.take();
        cursor.expect(Symbol::LeftParen, ErrorNumber::CreateIndexSyntax);
    }
    return true;
}

CreateIndex parseCreateIndex(TokenCursor& cursor)
{
    constexpr auto Fault = ErrorNumber::CreateIndexSyntax;
    CreateIndex create;
    create.unique = cursor.accept(u"UNIQUE");
    cursor.expect(u"INDEX", Fault);
    create.name = cursor.takeName(Fault);
    cursor.expect(u"ON", Fault);
    create.table = cursor.takeName(Fault);
    cursor.expect(Symbol::LeftParen, Fault);
    do {
        IndexColumn column;
        column.folded = acceptFolding(cursor);
        column.name = cursor.takeName(Fault);
        for (int i = 0; column.folded && i < 2; ++i)
            cursor.expect(Symbol::RightParen, Fault);
        column.descending = cursor.accept(u"DESC");
        if (!column.descending) cursor.accept(u"ASC");
        create.columns.push_back(std::move(column));
    } while (cursor.accept(Symbol::Comma));
    cursor.expect(Symbol::RightParen, Fault);
    if (!cursor.accept(u"WITH")) return create;
    if (cursor.accept(u"PRIMARY")) {
        create.unique = true;
    } else { // leaving NULLs out of an index changes no result
        if (cursor.at(u"DISALLOW")) refuse(u"DISALLOW NULL"_s, cursor.peek().start);
        cursor.expect(u"IGNORE", Fault);
        cursor.expect(u"NULL", Fault);
    }
    return create;
}

Statement parseDrop(TokenCursor& cursor)
{
    constexpr auto Fault = ErrorNumber::DropSyntax;
    if (cursor.accept(u"TABLE")) return DropTable{cursor.takeName(Fault)};
    cursor.expect(u"INDEX", Fault);
    DropIndex drop;
    drop.name = cursor.takeName(Fault);
    cursor.expect(u"ON", Fault);
    drop.table = cursor.takeName(Fault);
    return drop;
}

} // namespace

std::optional<Statement> parseDefinition(TokenCursor& cursor)
{
    if (cursor.accept(u"ALTER")) return parseAlterTable(cursor);
    if (cursor.accept(u"DROP")) return parseDrop(cursor);
    if (!cursor.accept(u"CREATE")) return {};
    if (cursor.accept(u"TABLE")) return parseCreateTable(cursor);
    return parseCreateIndex(cursor);
}

} // namespace jet::sql
