#include "platform/jet/sql/SelectParser.h"

#include "platform/jet/Errors.h"
#include "platform/jet/sql/ExpressionParser.h"
#include "platform/jet/sql/Lexer.h"

using namespace Qt::StringLiterals;

namespace jet::sql {

namespace {

constexpr std::size_t MostColumns = 255; // of one table or result

class SelectParser {
public:
    explicit SelectParser(TokenCursor& cursor) : m_cursor(cursor) {}

    Select parse()
    {
        parseQuantity();
        do {
            m_select.items.push_back(parseSelectItem());
            if (m_select.items.size() > MostColumns)
                raise(ErrorNumber::TooComplex, {}, m_cursor.peek().start);
        } while (m_cursor.accept(Symbol::Comma));
        if (m_cursor.accept(u"INTO")) parseInto();
        m_cursor.expect(u"FROM", ErrorNumber::SelectSyntax);
        parseFrom();
        if (m_cursor.accept(u"WHERE")) m_select.where = parseCondition(ErrorNumber::WhereSyntax);
        if (m_cursor.accept(u"GROUP")) parseGroupBy();
        if (m_cursor.accept(u"HAVING")) m_select.having = parseCondition(ErrorNumber::HavingSyntax);
        if (m_cursor.accept(u"ORDER")) parseOrderBy();
        if (m_cursor.at(u"UNION")) refuse(u"UNION"_s, m_cursor.peek().start);
        if (!endsStatement()) raise(m_lastClause, {}, m_cursor.peek().start);
        return std::move(m_select);
    }

private:
    bool endsStatement() const { return m_cursor.atEnd() || m_cursor.at(Symbol::Semicolon); }

    bool endsClause() const
    {
        return endsStatement() || m_cursor.at(u"WHERE") || m_cursor.at(u"GROUP") || m_cursor.at(u"HAVING") ||
               m_cursor.at(u"ORDER") || m_cursor.at(u"UNION");
    }

    void parseQuantity()
    {
        if (m_cursor.accept(u"DISTINCT"))
            m_select.distinct = true;
        else if (!m_cursor.accept(u"ALL"))
            m_cursor.accept(u"DISTINCTROW"); // over the rows of one table it changes nothing
        if (!m_cursor.at(u"TOP") || m_cursor.peek(1).kind != TokenKind::Integer) return;
        m_cursor.take();
        const auto count = literalValue(m_cursor.peek(), m_cursor.shape().statement);
        if (!count || count->type() != Type::Long)
            raise(ErrorNumber::SelectSyntax, {}, m_cursor.peek().start);
        m_select.top = count->toLong();
        m_cursor.take();
        if (m_cursor.at(u"PERCENT")) refuse(u"TOP PERCENT"_s, m_cursor.peek().start);
    }

    SelectItem parseSelectItem()
    {
        SelectItem item;
        item.position = m_cursor.peek().start;
        if (endsClause() || m_cursor.at(u"FROM") || m_cursor.at(Symbol::Comma))
            raise(ErrorNumber::SelectSyntax, {}, item.position);
        if (m_cursor.accept(Symbol::Star)) return item;
        if (m_cursor.atName() && m_cursor.peek(1).symbol == Symbol::Dot &&
            m_cursor.peek(2).symbol == Symbol::Star) {
            item.starTable = m_cursor.takeName(ErrorNumber::SelectSyntax);
            m_cursor.take();
            m_cursor.take();
            return item;
        }
        ExpressionParser parser(m_cursor, ExpressionParser::Within::ListItem);
        item.expression = parser.parse();
        if (m_cursor.accept(u"AS")) item.alias = m_cursor.takeName(ErrorNumber::SelectSyntax);
        if (!m_cursor.at(Symbol::Comma) && !m_cursor.at(u"FROM") && !m_cursor.at(u"INTO") && !endsStatement())
            parser.raiseLeftover();
        return item;
    }

    void parseInto()
    {
        Into into;
        into.table = m_cursor.takeName(ErrorNumber::SelectSyntax);
        if (m_cursor.accept(u"IN")) {
            const Token& file = m_cursor.peek();
            if (file.kind != TokenKind::Text) raise(ErrorNumber::SelectSyntax, {}, file.start);
            into.file = m_cursor.valueOf(m_cursor.take()).toText();
            if (m_cursor.peek().kind == TokenKind::BracketName)
                into.connect = nameOf(m_cursor.take(), m_cursor.shape().statement).toString();
        }
        m_select.into = std::move(into);
    }

    void parseFrom()
    {
        m_lastClause = ErrorNumber::FromSyntax;
        parseJoins();
        if (m_cursor.at(Symbol::Comma))
            throw Error(ErrorNumber::NotSupported,
                        u"Mehrere Tabellen ohne JOIN werden in Abfragen nicht unterstützt."_s,
                        m_cursor.peek().start);
        if (!endsClause()) raise(ErrorNumber::FromSyntax, {}, m_cursor.peek().start);
    }

    /// A table or joins in brackets, joined to further tables from left to right.
    void parseJoins()
    {
        if (m_cursor.at(Symbol::LeftParen) && m_cursor.isWord(1, u"SELECT"))
            refuse(u"Unterabfrage"_s, m_cursor.peek(1).start);
        if (m_cursor.accept(Symbol::LeftParen)) {
            if (++m_brackets > 20) raise(ErrorNumber::TooComplex, {}, m_cursor.peek().start);
            parseJoins();
            m_cursor.expect(Symbol::RightParen, ErrorNumber::JoinSyntax);
        } else {
            m_select.from.push_back(parseSource());
        }
        while (m_cursor.at(u"INNER") || m_cursor.at(u"LEFT") || m_cursor.at(u"JOIN")) {
            const bool left = m_cursor.accept(u"LEFT");
            if (left)
                m_cursor.accept(u"OUTER");
            else
                m_cursor.accept(u"INNER");
            m_cursor.expect(u"JOIN", ErrorNumber::JoinSyntax);
            Source source = parseSource();
            source.leftJoin = left;
            m_cursor.expect(u"ON", ErrorNumber::JoinSyntax);
            source.on = ExpressionParser(m_cursor, ExpressionParser::Within::Clause).parse();
            m_select.from.push_back(std::move(source));
        }
    }

    Source parseSource()
    {
        Source source;
        source.position = m_cursor.peek().start;
        source.table = m_cursor.takeName(ErrorNumber::FromSyntax);
        for (const auto word : {u"RIGHT", u"FULL", u"CROSS", u"NATURAL"}) // else they would pass for an alias
            if (m_cursor.at(word)) refuse(QString::fromUtf16(word) + u" JOIN"_s, m_cursor.peek().start);
        const bool alias = m_cursor.accept(u"AS");
        source.alias = alias || m_cursor.atName() ? m_cursor.takeName(ErrorNumber::FromSyntax) : source.table;
        return source;
    }

    ExpressionPtr parseCondition(ErrorNumber whenEmpty)
    {
        m_lastClause = whenEmpty;
        if (endsClause()) raise(whenEmpty, {}, m_cursor.peek().start);
        ExpressionParser parser(m_cursor, ExpressionParser::Within::Clause);
        auto condition = parser.parse();
        if (!endsClause()) parser.raiseLeftover();
        return condition;
    }

    void parseGroupBy()
    {
        m_lastClause = ErrorNumber::GroupBySyntax;
        m_cursor.expect(u"BY", ErrorNumber::GroupBySyntax);
        ExpressionParser parser(m_cursor, ExpressionParser::Within::Clause);
        do {
            if (endsClause()) raise(ErrorNumber::GroupBySyntax, {}, m_cursor.peek().start);
            m_select.groupBy.push_back(parser.parse());
        } while (m_cursor.accept(Symbol::Comma));
        if (!endsClause()) parser.raiseLeftover();
        if (m_select.groupBy.size() > 10) raise(ErrorNumber::TooComplex, {}, m_cursor.peek().start);
    }

    void parseOrderBy()
    {
        m_lastClause = ErrorNumber::OrderBySyntax;
        m_cursor.expect(u"BY", ErrorNumber::OrderBySyntax);
        m_select.orderText = m_cursor.clause(m_cursor.index(), false);
        ExpressionParser parser(m_cursor, ExpressionParser::Within::Clause);
        do {
            if (endsClause()) raise(ErrorNumber::OrderBySyntax, {}, m_cursor.peek().start);
            OrderKey key;
            key.expression = parser.parse();
            key.descending = m_cursor.accept(u"DESC");
            if (!key.descending) m_cursor.accept(u"ASC");
            m_select.orderBy.push_back(std::move(key));
        } while (m_cursor.accept(Symbol::Comma));
        if (!endsStatement() && !m_cursor.at(u"UNION")) parser.raiseLeftover();
    }

    TokenCursor& m_cursor;
    Select m_select;
    ErrorNumber m_lastClause = ErrorNumber::SelectSyntax;
    int m_brackets = 0;
};

} // namespace

Select parseSelect(TokenCursor& cursor)
{
    return SelectParser(cursor).parse();
}

} // namespace jet::sql
