#include "platform/jet/sql/ExpressionParser.h"

#include "platform/jet/Errors.h"
#include "platform/jet/sql/Lexer.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace jet::sql {

namespace {

constexpr int MostLevels = 200; // of nodes or brackets; no statement of the screens has twenty

QString faultText(SyntaxFault fault)
{
    switch (fault) {
    case SyntaxFault::General: return u"Syntaxfehler"_s;
    case SyntaxFault::MissingOperator: return u"Syntaxfehler (fehlender Operator)"_s;
    case SyntaxFault::Text: return u"Syntaxfehler in Zeichenfolge"_s;
    case SyntaxFault::Date: return u"Syntaxfehler in Datum"_s;
    case SyntaxFault::Number: return u"Syntaxfehler in Zahl"_s;
    }
    return {};
}

Op comparisonOf(Symbol symbol)
{
    switch (symbol) {
    case Symbol::NotEqual: return Op::NotEqual;
    case Symbol::Less: return Op::Less;
    case Symbol::Greater: return Op::Greater;
    case Symbol::LessEqual: return Op::LessEqual;
    case Symbol::GreaterEqual: return Op::GreaterEqual;
    default: return Op::Equal;
    }
}

bool isComparison(Symbol symbol)
{
    return symbol == Symbol::Equal || comparisonOf(symbol) != Op::Equal;
}

ExpressionPtr constant(const Value& value, Type type, qsizetype position)
{
    auto expression = std::make_unique<Expression>();
    expression->constant = value;
    expression->type = type;
    expression->position = position;
    return expression;
}

} // namespace

ExpressionPtr ExpressionParser::parse()
{
    return parseOr();
}

ExpressionPtr ExpressionParser::parseOr()
{
    auto left = parseAnd();
    while (true) {
        refuseUnsupportedOperator();
        if (!m_cursor.accept(u"OR")) return left;
        left = node(Op::Or, std::move(left), parseAnd());
    }
}

ExpressionPtr ExpressionParser::parseAnd()
{
    auto left = parseNot();
    while (m_cursor.accept(u"AND"))
        left = node(Op::And, std::move(left), parseNot());
    return left;
}

ExpressionPtr ExpressionParser::parseNot()
{
    if (!m_cursor.at(u"NOT")) return parseComparison();
    std::size_t count = 0;
    while (m_cursor.accept(u"NOT"))
        ++count;
    if (count > MostLevels) raise(ErrorNumber::TooComplex, {}, m_cursor.peek().start);
    auto expression = parseComparison();
    for (std::size_t i = 0; i < count; ++i)
        expression = node(Op::Not, std::move(expression));
    return expression;
}

ExpressionPtr ExpressionParser::parseComparison()
{
    auto left = parseConcatenation();
    while (true) {
        if (isComparison(m_cursor.peek().symbol)) {
            const Op op = comparisonOf(m_cursor.take().symbol);
            left = node(op, std::move(left), parseConcatenation());
        } else if (atPredicate()) {
            left = parsePredicate(std::move(left));
        } else {
            return left;
        }
    }
}

bool ExpressionParser::atPredicate() const
{
    const std::size_t word = m_cursor.at(u"NOT") ? 1 : 0;
    return m_cursor.at(u"IS") || m_cursor.isWord(word, u"LIKE") || m_cursor.isWord(word, u"IN") ||
           m_cursor.isWord(word, u"BETWEEN");
}

ExpressionPtr ExpressionParser::parsePredicate(ExpressionPtr left)
{
    if (m_cursor.accept(u"IS")) return parseIs(std::move(left));
    const bool negated = m_cursor.accept(u"NOT");
    ExpressionPtr predicate;
    if (m_cursor.accept(u"LIKE")) {
        predicate = node(Op::Like, std::move(left), parseConcatenation());
    } else if (m_cursor.accept(u"IN")) {
        predicate = parseIn(std::move(left));
    } else {
        m_cursor.take(); // BETWEEN
        predicate = parseBetween(std::move(left));
    }
    return negated ? node(Op::Not, std::move(predicate)) : std::move(predicate);
}

ExpressionPtr ExpressionParser::parseIs(ExpressionPtr left)
{
    const bool negated = m_cursor.accept(u"NOT");
    if (!m_cursor.accept(u"NULL")) raiseMissingOperand();
    auto test = node(Op::IsNull, std::move(left));
    return negated ? node(Op::Not, std::move(test)) : std::move(test);
}

ExpressionPtr ExpressionParser::parseIn(ExpressionPtr left)
{
    if (!m_cursor.accept(Symbol::LeftParen)) raiseFault(SyntaxFault::General);
    if (m_cursor.at(u"SELECT")) refuse(u"Unterabfrage"_s, m_cursor.peek().start);
    if (m_cursor.at(Symbol::RightParen)) raiseFault(SyntaxFault::General);
    if (++m_brackets > MostLevels) raise(ErrorNumber::TooComplex, {}, m_cursor.peek().start);
    auto in = node(Op::In, std::move(left));
    do {
        auto item = parseOr();
        in->depth = std::max(in->depth, item->depth + 1);
        in->arguments.push_back(std::move(item));
    } while (m_cursor.accept(Symbol::Comma));
    if (!m_cursor.accept(Symbol::RightParen)) raiseLeftover();
    --m_brackets;
    checkDepth(*in);
    return in;
}

ExpressionPtr ExpressionParser::parseBetween(ExpressionPtr left)
{
    auto low = parseConcatenation();
    if (!m_cursor.accept(u"AND")) raiseFault(SyntaxFault::MissingOperator);
    return node(Op::Between, std::move(left), std::move(low), parseConcatenation());
}

ExpressionPtr ExpressionParser::parseConcatenation()
{
    auto left = parseSum();
    while (m_cursor.accept(Symbol::Ampersand))
        left = node(Op::Concatenate, std::move(left), parseSum());
    return left;
}

ExpressionPtr ExpressionParser::parseSum()
{
    auto left = parseModulo();
    while (true) {
        if (m_cursor.accept(Symbol::Plus))
            left = node(Op::Add, std::move(left), parseModulo());
        else if (m_cursor.accept(Symbol::Minus))
            left = node(Op::Subtract, std::move(left), parseModulo());
        else
            return left;
    }
}

ExpressionPtr ExpressionParser::parseModulo()
{
    auto left = parseWholeQuotient();
    while (m_cursor.accept(u"MOD"))
        left = node(Op::Modulo, std::move(left), parseWholeQuotient());
    return left;
}

ExpressionPtr ExpressionParser::parseWholeQuotient()
{
    auto left = parseProduct();
    while (m_cursor.accept(Symbol::Backslash))
        left = node(Op::IntegerDivide, std::move(left), parseProduct());
    return left;
}

ExpressionPtr ExpressionParser::parseProduct()
{
    auto left = parseSign();
    while (true) {
        if (m_cursor.accept(Symbol::Star))
            left = node(Op::Multiply, std::move(left), parseSign());
        else if (m_cursor.accept(Symbol::Slash))
            left = node(Op::Divide, std::move(left), parseSign());
        else
            return left;
    }
}

ExpressionPtr ExpressionParser::parseSign()
{
    int signs = 0;
    bool negative = false;
    while (m_cursor.at(Symbol::Minus) || m_cursor.at(Symbol::Plus)) {
        if (m_cursor.take().symbol == Symbol::Minus) negative = !negative;
        if (++signs > MostLevels) raise(ErrorNumber::TooComplex, {}, m_cursor.peek().start);
    }
    auto operand = parsePower();
    return negative ? node(Op::Negate, std::move(operand)) : std::move(operand);
}

ExpressionPtr ExpressionParser::parsePower()
{
    auto left = parseOperand();
    while (m_cursor.accept(Symbol::Caret)) {
        const bool negative = m_cursor.accept(Symbol::Minus); // 2^-1
        auto exponent = parseOperand();
        if (negative) exponent = node(Op::Negate, std::move(exponent));
        left = node(Op::Power, std::move(left), std::move(exponent));
    }
    return left;
}

ExpressionPtr ExpressionParser::parseOperand()
{
    const Token& token = m_cursor.peek();
    switch (token.kind) {
    case TokenKind::Text:
    case TokenKind::Integer:
    case TokenKind::Float:
    case TokenKind::Date: return parseLiteral();
    case TokenKind::Name: return parseWord();
    case TokenKind::BracketName: return parseColumn();
    case TokenKind::Invalid: raiseFault(token.fault);
    case TokenKind::Symbol:
        if (token.symbol == Symbol::LeftParen) return parseBrackets();
        if (token.symbol == Symbol::RightParen) raiseFault(SyntaxFault::General);
        break;
    case TokenKind::End: break;
    }
    raiseMissingOperand();
}

ExpressionPtr ExpressionParser::parseBrackets()
{
    m_cursor.take();
    if (m_cursor.at(u"SELECT")) refuse(u"Unterabfrage"_s, m_cursor.peek().start);
    if (++m_brackets > MostLevels) raise(ErrorNumber::TooComplex, {}, m_cursor.peek().start);
    auto inner = parseOr();
    if (!m_cursor.accept(Symbol::RightParen)) raiseLeftover();
    --m_brackets;
    return inner;
}

ExpressionPtr ExpressionParser::parseLiteral()
{
    const Token& token = m_cursor.take();
    if (token.parameter < 0) {
        const auto value = literalValue(token, m_cursor.shape().statement);
        if (!value) raiseFault(SyntaxFault::Number);
        return constant(*value, value->type(), token.start);
    }
    auto literal = constant({}, m_cursor.valueOf(token).type(), token.start);
    literal->op = token.inList ? Op::ParameterList : Op::Parameter;
    literal->parameter = token.parameter;
    while (token.inList && m_cursor.peek(1).inList && m_cursor.peek(1).parameter == token.parameter) {
        m_cursor.take(); // comma
        m_cursor.take();
    }
    return literal;
}

ExpressionPtr ExpressionParser::parseWord()
{
    const qsizetype position = m_cursor.peek().start;
    if (m_cursor.accept(u"NULL")) return constant({}, Type::Null, position);
    if (m_cursor.accept(u"TRUE")) return constant(Value(true), Type::Boolean, position);
    if (m_cursor.accept(u"FALSE")) return constant(Value(false), Type::Boolean, position);
    const bool isCall = m_cursor.peek(1).symbol == Symbol::LeftParen;
    if (m_cursor.at(u"EXISTS") && isCall) refuse(u"Unterabfrage"_s, position);
    if (isCall && (m_cursor.at(u"LEFT") || !m_cursor.isReserved(0))) return parseCall();
    if (m_cursor.isReserved(0) && !m_cursor.at(u"ON")) raiseMissingOperand();
    const auto truth = [&](bool value) { return constant(Value(value), Type::Boolean, position); };
    if (m_cursor.accept(u"YES") || m_cursor.accept(u"ON")) return truth(true);
    if (m_cursor.accept(u"NO") || m_cursor.accept(u"OFF")) return truth(false);
    return parseColumn();
}

ExpressionPtr ExpressionParser::parseColumn()
{
    auto column = std::make_unique<Expression>();
    column->op = Op::Column;
    const Token& token = m_cursor.take();
    column->position = token.start;
    column->name = nameOf(token, m_cursor.shape().statement).toString();
    if (m_cursor.accept(Symbol::Dot) || m_cursor.accept(Symbol::Exclamation)) {
        const Token& second = m_cursor.peek();
        if (second.kind != TokenKind::Name && second.kind != TokenKind::BracketName) raiseMissingOperand();
        column->table = column->name;
        column->name = nameOf(m_cursor.take(), m_cursor.shape().statement).toString();
    }
    return column;
}

ExpressionPtr ExpressionParser::parseCall()
{
    auto call = std::make_unique<Expression>();
    call->op = Op::Call;
    const Token& token = m_cursor.take();
    call->position = token.start;
    call->name = m_cursor.textOf(token);
    m_cursor.take(); // the bracket
    if (++m_brackets > MostLevels) raise(ErrorNumber::TooComplex, {}, token.start);
    if (m_cursor.at(Symbol::Star) && m_cursor.peek(1).symbol == Symbol::RightParen) {
        m_cursor.take();
        call->star = true;
    } else if (!m_cursor.at(Symbol::RightParen)) {
        do {
            auto argument = parseOr();
            call->depth = std::max(call->depth, argument->depth + 1);
            call->arguments.push_back(std::move(argument));
        } while (m_cursor.accept(Symbol::Comma));
    }
    if (!m_cursor.accept(Symbol::RightParen)) raiseLeftover();
    --m_brackets;
    checkDepth(*call);
    return call;
}

ExpressionPtr ExpressionParser::node(Op op, ExpressionPtr first, ExpressionPtr second, ExpressionPtr third)
{
    auto expression = std::make_unique<Expression>();
    expression->op = op;
    expression->position = first->position;
    for (auto* argument : {&first, &second, &third}) {
        if (!*argument) continue;
        // A chain of ANDs is written as one list, so its length is no depth.
        const bool chained = (op == Op::And || op == Op::Or) && (*argument)->op == op && argument == &first;
        expression->depth = std::max(expression->depth, (*argument)->depth + (chained ? 0 : 1));
        expression->arguments.push_back(std::move(*argument));
    }
    if ((op == Op::And || op == Op::Or) && expression->arguments.front()->op == op) {
        auto chain = std::move(expression->arguments.front());
        chain->depth = expression->depth;
        chain->arguments.push_back(std::move(expression->arguments.back()));
        expression = std::move(chain);
    }
    checkDepth(*expression);
    return expression;
}

void ExpressionParser::checkDepth(const Expression& expression) const
{
    if (expression.depth > MostLevels) raise(ErrorNumber::TooComplex, {}, expression.position);
}

void ExpressionParser::refuseUnsupportedOperator() const
{
    for (const auto word : {u"XOR", u"EQV", u"IMP"})
        if (m_cursor.at(word)) refuse(QString::fromUtf16(word), m_cursor.peek().start);
}

void ExpressionParser::raiseFault(SyntaxFault fault) const
{
    const qsizetype position = m_cursor.peek().start;
    if (m_within == Within::Criterion) raise(ErrorNumber::CriterionSyntax, {faultText(fault)}, position);
    raise(ErrorNumber::ExpressionSyntax,
          {faultText(fault), m_cursor.clause(m_first, m_within == Within::ListItem)}, position);
}

void ExpressionParser::raiseMissingOperand() const
{
    if (m_cursor.peek().kind == TokenKind::Invalid) raiseFault(m_cursor.peek().fault);
    raiseFault(SyntaxFault::MissingOperator);
}

void ExpressionParser::raiseLeftover()
{
    refuseUnsupportedOperator();
    const Token& token = m_cursor.peek();
    if (token.kind == TokenKind::Invalid) raiseFault(token.fault);
    const bool closes = token.symbol == Symbol::RightParen || token.symbol == Symbol::Semicolon;
    const bool bracket = closes || token.kind == TokenKind::End;
    raiseFault(bracket ? SyntaxFault::General : SyntaxFault::MissingOperator);
}

} // namespace jet::sql
