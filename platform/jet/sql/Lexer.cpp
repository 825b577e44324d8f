#include "platform/jet/sql/Lexer.h"

#include "platform/jet/sql/DateLiteral.h"

#include <cmath>

namespace jet::sql {

namespace {

bool isBlank(QChar c)
{
    return c == u' ' || c == u'\t' || c == u'\r' || c == u'\n';
}

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

bool startsName(QChar c)
{
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || c == u'_' ||
           (c.unicode() > 127 && c.isLetter());
}

class Lexer {
public:
    explicit Lexer(QStringView text) : m_text(text)
    {
        m_tokens.reserve(static_cast<std::size_t>(text.size() / 4 + 8));
    }

    std::vector<Token> run()
    {
        while (true) {
            while (m_at < m_text.size() && isBlank(m_text[m_at]))
                ++m_at;
            if (m_at >= m_text.size()) break;
            word();
        }
        add(TokenKind::End, m_at);
        return std::move(m_tokens);
    }

private:
    QChar at(qsizetype index) const { return index < m_text.size() ? m_text[index] : QChar(u'\0'); }

    void word()
    {
        const QChar c = m_text[m_at];
        if (startsName(c)) return name();
        if (isDigit(c) || (c == u'.' && isDigit(at(m_at + 1)) && !afterName())) return number();
        if (c == u'&' && at(m_at + 1).toUpper() == u'H') return hexNumber();
        if (c == u'\'' || c == u'"') return text(c);
        if (c == u'#') return date();
        if (c == u'[' || c == u'`') return bracketName(c == u'[' ? u']' : u'`');
        symbol(c);
    }

    /// In "T.5" the dot belongs to the name before it.
    bool afterName() const
    {
        if (m_tokens.empty()) return false;
        const Token& last = m_tokens.back();
        return (last.kind == TokenKind::Name || last.kind == TokenKind::BracketName) &&
               last.start + last.length == m_at;
    }

    void name()
    {
        qsizetype end = m_at + 1;
        while (end < m_text.size() && (startsName(m_text[end]) || isDigit(m_text[end])))
            ++end;
        add(TokenKind::Name, end);
    }

    void number()
    {
        qsizetype end = m_at;
        bool whole = true;
        while (isDigit(at(end)))
            ++end;
        if (at(end) == u'.') {
            whole = false;
            ++end;
            while (isDigit(at(end)))
                ++end;
        }
        if (at(end).toUpper() == u'E') {
            qsizetype digits = end + 1;
            if (at(digits) == u'+' || at(digits) == u'-') ++digits;
            if (isDigit(at(digits))) {
                whole = false;
                end = digits;
                while (isDigit(at(end)))
                    ++end;
            }
        }
        if (at(end) == u'.' || startsName(at(end))) return invalid(SyntaxFault::Number, end + 1);
        add(whole ? TokenKind::Integer : TokenKind::Float, end);
    }

    void hexNumber()
    {
        const auto isHex = [](QChar c) { return isDigit(c) || (c.toUpper() >= u'A' && c.toUpper() <= u'F'); };
        qsizetype end = m_at + 2;
        while (isHex(at(end)))
            ++end;
        // "Menge&Hafer" joins two columns; only "&H" with digits and nothing behind them is a number.
        if (end == m_at + 2 || startsName(at(end))) return symbol(u'&');
        add(TokenKind::Integer, end);
    }

    void text(QChar delimiter)
    {
        qsizetype end = m_at + 1;
        while (end < m_text.size()) {
            if (m_text[end] == u'\0')
                return invalid(SyntaxFault::Text, m_text.size()); // would end the text in the file
            if (m_text[end] != delimiter) {
                ++end;
                continue;
            }
            if (at(end + 1) != delimiter) return add(TokenKind::Text, end + 1);
            end += 2;
        }
        invalid(SyntaxFault::Text, m_text.size());
    }

    void date()
    {
        const qsizetype end = m_text.indexOf(u'#', m_at + 1);
        if (end < 0) return invalid(SyntaxFault::Date, m_text.size());
        add(TokenKind::Date, end + 1);
    }

    void bracketName(QChar closing)
    {
        const qsizetype end = m_text.indexOf(closing, m_at + 1);
        if (end < 0 || end == m_at + 1)
            return invalid(SyntaxFault::General, end < 0 ? m_text.size() : end + 1);
        // Behind a text, as in IN '' [;DATABASE=D:\Lager.mdb], it is no name but a connect text with a path
        // in it.
        const bool isName = m_tokens.empty() || m_tokens.back().kind != TokenKind::Text;
        for (qsizetype i = m_at + 1; i < end; ++i)
            if (m_text[i] < u' ' || (isName && QStringView(u"[.!`").contains(m_text[i])))
                return invalid(SyntaxFault::General, end + 1);
        add(TokenKind::BracketName, end + 1);
    }

    void symbol(QChar c)
    {
        const QChar next = at(m_at + 1);
        if (c == u'<' && next == u'>') return add(Symbol::NotEqual, 2);
        if (c == u'<' && next == u'=') return add(Symbol::LessEqual, 2);
        if (c == u'>' && next == u'=') return add(Symbol::GreaterEqual, 2);
        switch (c.unicode()) {
        case u'(': return add(Symbol::LeftParen, 1);
        case u')': return add(Symbol::RightParen, 1);
        case u',': return add(Symbol::Comma, 1);
        case u'.': return add(Symbol::Dot, 1);
        case u'!': return add(Symbol::Exclamation, 1);
        case u';': return add(Symbol::Semicolon, 1);
        case u'+': return add(Symbol::Plus, 1);
        case u'-': return add(Symbol::Minus, 1);
        case u'*': return add(Symbol::Star, 1);
        case u'/': return add(Symbol::Slash, 1);
        case u'\\': return add(Symbol::Backslash, 1);
        case u'^': return add(Symbol::Caret, 1);
        case u'&': return add(Symbol::Ampersand, 1);
        case u'=': return add(Symbol::Equal, 1);
        case u'<': return add(Symbol::Less, 1);
        case u'>': return add(Symbol::Greater, 1);
        default: return invalid(SyntaxFault::MissingOperator, m_at + 1);
        }
    }

    void add(TokenKind kind, qsizetype end)
    {
        Token token;
        token.kind = kind;
        token.start = m_at;
        token.length = end - m_at;
        m_tokens.push_back(token);
        m_at = end;
    }

    void add(Symbol symbol, qsizetype length)
    {
        add(TokenKind::Symbol, m_at + length);
        m_tokens.back().symbol = symbol;
    }

    void invalid(SyntaxFault fault, qsizetype end)
    {
        add(TokenKind::Invalid, end);
        m_tokens.back().fault = fault;
    }

    QStringView m_text;
    qsizetype m_at = 0;
    std::vector<Token> m_tokens;
};

std::optional<Value> wholeNumber(QStringView digits)
{
    if (digits.startsWith(u'&')) {
        bool valid = false;
        const uint number = digits.mid(2).toUInt(&valid, 16);
        if (!valid) return {};
        return Value(static_cast<int>(number)); // &HFFFFFFFF is -1
    }
    bool valid = false;
    const qint64 number = digits.toLongLong(&valid);
    if (valid && number <= 2147483647) return Value(number);
    const double large = digits.toDouble(&valid);
    if (!valid || !std::isfinite(large)) return {};
    return Value(large);
}

} // namespace

std::vector<Token> tokenize(QStringView statement)
{
    return Lexer(statement).run();
}

std::optional<Value> literalValue(const Token& token, QStringView statement)
{
    const QStringView span = statement.mid(token.start, token.length);
    switch (token.kind) {
    case TokenKind::Text: {
        const QChar delimiter = span.front();
        QString text = span.mid(1, span.size() - 2).toString();
        if (text.contains(delimiter)) text.replace(QString(2, delimiter), QString(delimiter));
        return Value(text);
    }
    case TokenKind::Integer: return wholeNumber(span);
    case TokenKind::Float: {
        bool valid = false;
        const double number = span.toDouble(&valid);
        if (!valid || !std::isfinite(number)) return {};
        return Value(number);
    }
    case TokenKind::Date: {
        const auto date = readDateLiteral(span.mid(1, span.size() - 2));
        if (!date) return {};
        return Value(*date);
    }
    default: return {};
    }
}

QStringView nameOf(const Token& token, QStringView statement)
{
    const QStringView span = statement.mid(token.start, token.length);
    return token.kind == TokenKind::BracketName ? span.mid(1, span.size() - 2) : span;
}

} // namespace jet::sql
