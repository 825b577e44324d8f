#include "platform/jet/sql/Parser.h"

#include "platform/jet/Errors.h"
#include "platform/jet/sql/DefinitionParser.h"
#include "platform/jet/sql/ExpressionParser.h"
#include "platform/jet/sql/SelectParser.h"

using namespace Qt::StringLiterals;

namespace jet::sql {

namespace {

ExpressionPtr parseWhere(TokenCursor& cursor)
{
    if (!cursor.accept(u"WHERE")) return {};
    if (cursor.atEnd() || cursor.at(Symbol::Semicolon))
        raise(ErrorNumber::WhereSyntax, {}, cursor.peek().start);
    ExpressionParser parser(cursor, ExpressionParser::Within::Clause);
    auto where = parser.parse();
    if (!cursor.atEnd() && !cursor.at(Symbol::Semicolon)) parser.raiseLeftover();
    return where;
}

Insert parseInsert(TokenCursor& cursor)
{
    constexpr auto Fault = ErrorNumber::InsertSyntax;
    Insert insert;
    cursor.expect(u"INTO", Fault);
    insert.table = cursor.takeName(Fault);
    if (cursor.accept(Symbol::LeftParen)) {
        do
            insert.columns.push_back(cursor.takeName(Fault));
        while (cursor.accept(Symbol::Comma));
        cursor.expect(Symbol::RightParen, Fault);
    }
    if (cursor.accept(u"SELECT")) {
        insert.select = parseSelect(cursor);
        return insert;
    }
    cursor.expect(u"VALUES", Fault);
    cursor.expect(Symbol::LeftParen, Fault);
    do {
        ExpressionParser parser(cursor, ExpressionParser::Within::ListItem);
        insert.values.push_back(parser.parse());
        if (!cursor.at(Symbol::Comma) && !cursor.at(Symbol::RightParen)) parser.raiseLeftover();
    } while (cursor.accept(Symbol::Comma));
    cursor.expect(Symbol::RightParen, Fault);
    return insert;
}

Source parseTarget(TokenCursor& cursor, ErrorNumber fault)
{
    Source source;
    source.position = cursor.peek().start;
    source.table = cursor.takeName(fault);
    source.alias = source.table;
    return source;
}

Update parseUpdate(TokenCursor& cursor)
{
    constexpr auto Fault = ErrorNumber::UpdateSyntax;
    Update update;
    update.table = parseTarget(cursor, Fault);
    cursor.expect(u"SET", Fault);
    do {
        Assignment assignment;
        assignment.position = cursor.peek().start;
        assignment.column = cursor.takeName(Fault);
        if (cursor.accept(Symbol::Dot)) assignment.column = cursor.takeName(Fault);
        cursor.expect(Symbol::Equal, Fault);
        ExpressionParser parser(cursor, ExpressionParser::Within::ListItem);
        assignment.value = parser.parse();
        update.assignments.push_back(std::move(assignment));
        if (!cursor.at(Symbol::Comma) && !cursor.at(u"WHERE") && !cursor.at(Symbol::Semicolon) &&
            !cursor.atEnd())
            parser.raiseLeftover();
    } while (cursor.accept(Symbol::Comma));
    update.where = parseWhere(cursor);
    return update;
}

Delete parseDelete(TokenCursor& cursor)
{
    Delete statement;
    cursor.accept(Symbol::Star);
    cursor.expect(u"FROM", ErrorNumber::DeleteSyntax);
    statement.table = parseTarget(cursor, ErrorNumber::FromSyntax);
    if (!cursor.atEnd() && !cursor.at(u"WHERE") && !cursor.at(Symbol::Semicolon))
        raise(ErrorNumber::FromSyntax, {}, cursor.peek().start);
    statement.where = parseWhere(cursor);
    return statement;
}

Statement parseVerb(TokenCursor& cursor)
{
    for (const auto word : {u"TRANSFORM", u"PARAMETERS"})
        if (cursor.at(word)) refuse(QString::fromUtf16(word), cursor.peek().start);
    if (cursor.accept(u"SELECT")) return parseSelect(cursor);
    if (cursor.accept(u"INSERT")) return parseInsert(cursor);
    if (cursor.accept(u"UPDATE")) return parseUpdate(cursor);
    if (cursor.accept(u"DELETE")) return parseDelete(cursor);
    if (auto definition = parseDefinition(cursor)) return std::move(*definition);
    raise(ErrorNumber::UnknownStatement, {}, cursor.peek().start);
}

} // namespace

Statement parse(const Shape& shape)
{
    TokenCursor cursor(shape);
    Statement statement = parseVerb(cursor);
    cursor.accept(Symbol::Semicolon);
    if (!cursor.atEnd()) raise(ErrorNumber::TextAfterStatement, {}, cursor.peek().start);
    return statement;
}

ExpressionPtr parseCriterion(const Shape& shape)
{
    TokenCursor cursor(shape);
    ExpressionParser parser(cursor, ExpressionParser::Within::Criterion);
    auto criterion = parser.parse();
    if (!cursor.atEnd()) parser.raiseLeftover();
    return criterion;
}

} // namespace jet::sql
