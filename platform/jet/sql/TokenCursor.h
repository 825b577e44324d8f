#pragma once

#include "platform/jet/sql/Shape.h"

#include <zablager/DatabaseError.h>

#include <QString>

namespace jet::sql {

/// A reader's place among the words of a statement. Keywords are compared in any case.
class TokenCursor {
public:
    explicit TokenCursor(const Shape& shape) : m_shape(shape) {}

    const Token& peek(std::size_t ahead = 0) const;
    bool at(Symbol symbol) const { return peek().symbol == symbol; }
    bool at(QStringView keyword) const { return isWord(0, keyword); }
    bool atEnd() const { return peek().kind == TokenKind::End; }
    bool atName() const; ///< A name in brackets, or a word that is no reserved one.
    bool isWord(std::size_t ahead, QStringView keyword) const;
    /// Whether the word ahead may not stand as a name without brackets.
    bool isReserved(std::size_t ahead) const;

    const Token& take();
    bool accept(Symbol symbol);
    bool accept(QStringView keyword);
    /// Takes what must follow. \throws Error `number` when something else does.
    void expect(Symbol symbol, ErrorNumber number);
    void expect(QStringView keyword, ErrorNumber number);
    QString takeName(ErrorNumber number);

    QString textOf(const Token& token) const;
    const Value& valueOf(const Token& token) const; ///< Of a literal that is a single parameter.
    std::size_t index() const { return m_index; }
    const Shape& shape() const { return m_shape; }

    /// The text of the clause that begins at token `first`: up to the next clause of the statement, the end
    /// or, when the clause is one of a list, the next comma outside brackets.
    QString clause(std::size_t first, bool oneOfList) const;

private:
    bool isWordAt(std::size_t index, QStringView keyword) const;

    const Shape& m_shape;
    std::size_t m_index = 0;
};

} // namespace jet::sql
