#pragma once

#include "platform/jet/sql/TokenCursor.h"
#include "platform/jet/sql/Tree.h"

namespace jet::sql {

/// Reads expressions from weakest to strongest binding: OR, AND, NOT, comparisons, &, + and -, MOD, \, * and
/// /, the minus sign, ^.
class ExpressionParser {
public:
    /// What an expression is part of decides how its faults are told.
    enum class Within {
        Clause,    ///< A whole clause: "... in Abfrageausdruck '(the clause)'."
        ListItem,  ///< One item of a list: the same with the item.
        Criterion, ///< A find criterion: "... in Ausdruck."
    };

    ExpressionParser(TokenCursor& cursor, Within within)
        : m_cursor(cursor), m_within(within), m_first(cursor.index())
    {}

    /// One expression, up to the first word that cannot go on with it. \throws Error ExpressionSyntax or
    /// CriterionSyntax, TooComplex, NotSupported.
    ExpressionPtr parse();
    /// Refuses what stands after a complete expression.
    [[noreturn]] void raiseLeftover();

private:
    ExpressionPtr parseOr();
    ExpressionPtr parseAnd();
    ExpressionPtr parseNot();
    ExpressionPtr parseComparison();
    ExpressionPtr parseConcatenation();
    ExpressionPtr parseSum();
    ExpressionPtr parseModulo();
    ExpressionPtr parseWholeQuotient();
    ExpressionPtr parseProduct();
    ExpressionPtr parseSign();
    ExpressionPtr parsePower();
    ExpressionPtr parseOperand();
    ExpressionPtr parseBrackets();
    ExpressionPtr parseLiteral();
    ExpressionPtr parseWord();
    ExpressionPtr parseColumn();
    ExpressionPtr parseCall();
    ExpressionPtr parseIn(ExpressionPtr left);
    ExpressionPtr parseBetween(ExpressionPtr left);
    ExpressionPtr parseIs(ExpressionPtr left);
    bool atPredicate() const; ///< At IS, or at LIKE, IN or BETWEEN with an optional NOT before.
    ExpressionPtr parsePredicate(ExpressionPtr left);

    ExpressionPtr node(Op op, ExpressionPtr first, ExpressionPtr second = {}, ExpressionPtr third = {});
    void checkDepth(const Expression& expression) const;
    void refuseUnsupportedOperator() const;
    [[noreturn]] void raiseFault(SyntaxFault fault) const;
    [[noreturn]] void raiseMissingOperand() const;

    TokenCursor& m_cursor;
    Within m_within;
    std::size_t m_first; ///< Token at which the clause or item begins.
    int m_brackets = 0;
};

} // namespace jet::sql
