#include "platform/jet/sql/Shape.h"

#include "platform/jet/Errors.h"
#include "platform/jet/sql/Lexer.h"

#include <algorithm>

namespace jet::sql {

namespace {

constexpr qsizetype LongestStatement = 1'000'000; // characters; the longest lists of articles stay far below

constexpr qsizetype MostCompared = 64; // parameters; a text of a million characters may have very many

bool isLiteral(const Token& token)
{
    switch (token.kind) {
    case TokenKind::Text:
    case TokenKind::Integer:
    case TokenKind::Float:
    case TokenKind::Date: return true;
    default: return false;
    }
}

/// The mark of a parameter in the key; its kind counts, since text, number and date are compared by different
/// rules.
QChar mark(TokenKind kind)
{
    return QChar(
        static_cast<char16_t>(kind)); // a control character, which no statement with a shape contains
}

class Shaper {
public:
    explicit Shaper(Shape& shape) : m_shape(shape), m_text(shape.statement) {}

    void run()
    {
        m_shape.key.reserve(m_text.size());
        m_isSelect = isWord(wordAt(0), u"SELECT");
        for (const auto definition : {u"CREATE", u"ALTER", u"DROP"})
            if (isWord(wordAt(0), definition)) m_keep = false;
        for (std::size_t i = 0; i < m_shape.tokens.size(); ++i) {
            Token& token = m_shape.tokens[i];
            if (token.kind == TokenKind::Invalid) m_keep = false;
            if (token.kind == TokenKind::Name) noteWord(wordAt(i));
            if (token.symbol == Symbol::LeftParen) ++m_brackets;
            if (token.symbol == Symbol::RightParen) --m_brackets;
            if (!isLiteral(token)) continue;
            if (const std::size_t last = listEnd(i); last > i) {
                takeList(i, last);
                i = last;
            } else if (!isFixed(i)) {
                takeSingle(token);
            }
        }
        m_shape.key += m_text.mid(m_copied);
        if (!m_keep) m_shape.key.clear();
    }

private:
    /// The lengths first: every name of every statement is compared with three keywords.
    static bool isWord(QStringView word, QStringView name)
    {
        return word.size() == name.size() && word.compare(name, Qt::CaseInsensitive) == 0;
    }

    QStringView wordAt(std::size_t index) const
    {
        const Token& token = m_shape.tokens[index];
        return token.kind == TokenKind::Name ? m_text.mid(token.start, token.length) : QStringView();
    }

    void noteWord(QStringView word)
    {
        m_afterTop = isWord(word, u"TOP");
        if (isWord(word, u"BY")) m_inOrder = true;
        if (m_isSelect && isWord(word, u"INTO")) m_keep = false;
    }

    bool isFixed(std::size_t index)
    {
        const bool wasAfterTop = m_afterTop;
        m_afterTop = false;
        const Token& token = m_shape.tokens[index];
        return token.kind == TokenKind::Integer && (wasAfterTop || isOrdinal(index) || token.length == 1);
    }

    /// A sort key that is nothing but a number.
    bool isOrdinal(std::size_t index) const
    {
        if (!m_inOrder || m_brackets != 0) return false;
        return m_shape.tokens[index - 1].symbol == Symbol::Comma || isWord(wordAt(index - 1), u"BY");
    }

    /// The index of the last literal when an IN ( of literals of one kind begins at `first`, else `first`.
    std::size_t listEnd(std::size_t first) const
    {
        const auto& tokens = m_shape.tokens;
        if (first < 2 || tokens[first - 1].symbol != Symbol::LeftParen || !isWord(wordAt(first - 2), u"IN"))
            return first;
        std::size_t last = first;
        while (tokens[last + 1].symbol == Symbol::Comma && tokens[last + 2].kind == tokens[first].kind)
            last += 2;
        return tokens[last + 1].symbol == Symbol::RightParen ? last : first;
    }

    void takeSingle(Token& token)
    {
        m_shape.parameters.emplace_back();
        take(token);
        // A whole number too large for four bytes is a floating one.
        const auto& values = m_shape.parameters.back();
        const bool isFloat = !values.empty() && values.front().type() == Type::Double;
        copyUpTo(token, mark(isFloat ? TokenKind::Float : token.kind));
        shareParameter(token);
    }

    /// A value that stands twice is one parameter: an expression of the list must be found again in GROUP BY.
    void shareParameter(Token& token)
    {
        auto& parameters = m_shape.parameters;
        const auto compared =
            parameters.begin() + std::min<qsizetype>(MostCompared, std::ssize(parameters) - 1);
        const auto same = std::find(parameters.begin(), compared, parameters.back());
        if (token.parameter < 0 || same == compared) return;
        token.parameter = static_cast<int>(same - parameters.begin());
        parameters.pop_back();
        m_shape.key += u'\x1e'; // the place of the first one tells two shapes apart
        m_shape.key += QChar(static_cast<char16_t>(token.parameter));
    }

    void takeList(std::size_t first, std::size_t last)
    {
        m_shape.parameters.emplace_back();
        for (std::size_t i = first; i <= last; i += 2) {
            m_shape.tokens[i].inList = true;
            take(m_shape.tokens[i]);
        }
        copyUpTo(m_shape.tokens[first], mark(m_shape.tokens[first].kind));
        m_shape.key += u'\x1f'; // a list, whatever its length
        m_copied = m_shape.tokens[last].start + m_shape.tokens[last].length;
    }

    void take(Token& token)
    {
        const auto value = literalValue(token, m_text);
        if (!value) {
            token.fault = token.kind == TokenKind::Date ? SyntaxFault::Date : SyntaxFault::Number;
            token.kind = TokenKind::Invalid;
            m_keep = false;
            return;
        }
        token.parameter = static_cast<int>(m_shape.parameters.size()) - 1;
        m_shape.parameters.back().push_back(*value);
    }

    void copyUpTo(const Token& token, QChar kind)
    {
        m_shape.key += m_text.mid(m_copied, token.start - m_copied);
        m_shape.key += kind;
        m_copied = token.start + token.length;
    }

    Shape& m_shape;
    QStringView m_text;
    qsizetype m_copied = 0;
    bool m_keep = true;
    bool m_isSelect = false;
    bool m_afterTop = false;
    bool m_inOrder = false;
    int m_brackets = 0;
};

} // namespace

Shape shapeOf(const QString& statement)
{
    if (statement.size() > LongestStatement) raise(ErrorNumber::TooComplex);
    Shape shape;
    shape.statement = statement;
    shape.tokens = tokenize(shape.statement);
    Shaper(shape).run();
    return shape;
}

} // namespace jet::sql
