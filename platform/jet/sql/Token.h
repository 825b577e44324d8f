#pragma once

#include <QStringView>

namespace jet::sql {

enum class TokenKind : quint8 {
    End,
    Name,        ///< A word, keyword or not: which words are keywords depends on the place.
    BracketName, ///< [Summe von Menge] or the same in back-quotes; the span includes the brackets.
    Text,        ///< '...' or "...", the delimiter doubled inside; the span includes the delimiters.
    Integer,     ///< 12 or &H1F
    Float,       ///< 1.5, .5, 1e3
    Date,        ///< #month/day/year#; the span includes the signs.
    Symbol,
    Invalid,
};

enum class Symbol : quint8 {
    None,
    LeftParen,
    RightParen,
    Comma,
    Dot,
    Exclamation,
    Semicolon,
    Plus,
    Minus,
    Star,
    Slash,
    Backslash,
    Caret,
    Ampersand,
    Equal,
    NotEqual,
    Less,
    Greater,
    LessEqual,
    GreaterEqual,
};

/// The kinds of syntax error that the engine tells apart, whatever the clause.
enum class SyntaxFault : quint8 { General, MissingOperator, Text, Date, Number };

struct Token {
    TokenKind kind = TokenKind::End;
    Symbol symbol = Symbol::None;
    SyntaxFault fault = SyntaxFault::General; ///< Of an Invalid token.
    bool inList = false; ///< One of several literals of an IN (...) that share one parameter.
    int parameter = -1;  ///< Of a literal that the statement takes as a parameter: its number, from 0.
    qsizetype start = 0; ///< Span in the statement.
    qsizetype length = 0;
};

} // namespace jet::sql
