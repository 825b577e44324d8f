#include "platform/jet/sql/TokenCursor.h"

#include "platform/jet/Errors.h"
#include "platform/jet/sql/Lexer.h"

#include <algorithm>

namespace jet::sql {

namespace {

constexpr QStringView ReservedWords[] = {
    u"SELECT", u"FROM",     u"WHERE",       u"GROUP",   u"ORDER", u"HAVING", u"BY",    u"AND", u"OR",
    u"NOT",    u"LIKE",     u"IN",          u"BETWEEN", u"IS",    u"NULL",   u"AS",    u"ON",  u"INNER",
    u"LEFT",   u"JOIN",     u"UNION",       u"INTO",    u"SET",   u"VALUES", u"MOD",   u"XOR", u"EQV",
    u"IMP",    u"DISTINCT", u"DISTINCTROW", u"ASC",     u"DESC",  u"TRUE",   u"FALSE", u"TOP",
};

constexpr QStringView ClauseWords[] = {u"FROM",  u"WHERE", u"GROUP", u"HAVING",
                                       u"ORDER", u"INTO",  u"UNION", u"SET"};

} // namespace

const Token& TokenCursor::peek(std::size_t ahead) const
{
    return m_shape.tokens[std::min(m_index + ahead, m_shape.tokens.size() - 1)];
}

bool TokenCursor::isWordAt(std::size_t index, QStringView keyword) const
{
    const Token& token = m_shape.tokens[std::min(index, m_shape.tokens.size() - 1)];
    return token.kind == TokenKind::Name && token.length == keyword.size() &&
           QStringView(m_shape.statement)
                   .mid(token.start, token.length)
                   .compare(keyword, Qt::CaseInsensitive) == 0;
}

bool TokenCursor::isWord(std::size_t ahead, QStringView keyword) const
{
    return isWordAt(m_index + ahead, keyword);
}

bool TokenCursor::isReserved(std::size_t ahead) const
{
    return std::any_of(std::begin(ReservedWords), std::end(ReservedWords),
                       [&](QStringView word) { return isWord(ahead, word); });
}

bool TokenCursor::atName() const
{
    if (peek().kind == TokenKind::BracketName) return true;
    return peek().kind == TokenKind::Name && !isReserved(0);
}

const Token& TokenCursor::take()
{
    const Token& token = peek();
    if (token.kind != TokenKind::End) ++m_index;
    return token;
}

bool TokenCursor::accept(Symbol symbol)
{
    if (!at(symbol)) return false;
    ++m_index;
    return true;
}

bool TokenCursor::accept(QStringView keyword)
{
    if (!at(keyword)) return false;
    ++m_index;
    return true;
}

void TokenCursor::expect(Symbol symbol, ErrorNumber number)
{
    if (!accept(symbol)) raise(number, {}, peek().start);
}

void TokenCursor::expect(QStringView keyword, ErrorNumber number)
{
    if (!accept(keyword)) raise(number, {}, peek().start);
}

QString TokenCursor::takeName(ErrorNumber number)
{
    if (!atName()) raise(number, {}, peek().start);
    return nameOf(take(), m_shape.statement).toString();
}

QString TokenCursor::textOf(const Token& token) const
{
    return m_shape.statement.mid(token.start, token.length);
}

const Value& TokenCursor::valueOf(const Token& token) const
{
    return m_shape.parameters[static_cast<std::size_t>(token.parameter)].front();
}

QString TokenCursor::clause(std::size_t first, bool oneOfList) const
{
    const auto& tokens = m_shape.tokens;
    std::size_t end = first;
    int depth = 0;
    while (tokens[end].kind != TokenKind::End && tokens[end].symbol != Symbol::Semicolon) {
        if (tokens[end].symbol == Symbol::LeftParen) ++depth;
        if (tokens[end].symbol == Symbol::RightParen) --depth;
        if (oneOfList && depth <= 0 && tokens[end].symbol == Symbol::Comma) break;
        if (std::any_of(std::begin(ClauseWords), std::end(ClauseWords),
                        [&](QStringView word) { return isWordAt(end, word); }))
            break;
        ++end;
    }
    if (end == first) return {};
    const qsizetype start = tokens[first].start;
    return m_shape.statement.mid(start, tokens[end - 1].start + tokens[end - 1].length - start);
}

} // namespace jet::sql
