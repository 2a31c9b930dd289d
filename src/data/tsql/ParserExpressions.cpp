#include "Parser.h"
#include "ServerText.h"

namespace tsql {

// Characters of a conversion that names no length.
constexpr int kConvertedLength = 30;

Expression* Parser::node(ExpressionKind kind) const {
    Expression* result = m_arena.make<Expression>();
    result->kind = kind;
    return result;
}

Expression* Parser::node(ExpressionKind kind, const std::vector<Expression*>& arguments) {
    return over(node(kind), arguments);
}

Expression* Parser::over(Expression* expression, const std::vector<Expression*>& arguments) {
    int depth = expression->select ? expression->select->depth : 0;
    for (const Expression* argument : arguments)
        depth = std::max<int>(depth, argument->depth);
    expression->depth = deepened(depth + 1);
    expression->arguments = m_arena.copy(arguments);
    return expression;
}

quint16 Parser::deepened(int depth) {
    if (depth > kDeepest)
        refuseDepth();
    m_deepest = std::max(m_deepest, depth);
    return quint16(depth);
}

Expression* Parser::asValue(Expression* expression) const {
    if (expression->isCondition())
        fail();
    return expression;
}

Expression* Parser::asCondition(Expression* expression) const {
    if (expression->isCondition())
        return expression;
    const Token& culprit = token().kind == TokenKind::End && m_at > 0 ? m_tokens[m_at - 1] : token();
    refuse(
        u"An expression of non-boolean type specified in a context where a condition is expected, near '%1'.",
        culprit.text);
}

Expression* Parser::condition() {
    return asCondition(disjunction());
}
Expression* Parser::value() {
    return asValue(additive());
}

std::vector<Expression*> Parser::values() {
    std::vector<Expression*> result;
    do {
        result.push_back(value());
    } while (acceptSymbol(u','));
    return result;
}

// Conditions with one word between each two.
Expression* Parser::chain(Word between, ExpressionKind kind, Expression* (Parser::*link)()) {
    Expression* left = (this->*link)();
    while (is(between)) {
        asCondition(left);
        ++m_at;
        left = node(kind, {left, asCondition((this->*link)())});
    }
    return left;
}

Expression* Parser::disjunction() {
    return chain(Word::Or, ExpressionKind::Or, &Parser::conjunction);
}
Expression* Parser::conjunction() {
    return chain(Word::And, ExpressionKind::And, &Parser::negation);
}

Expression* Parser::negation() {
    const auto level = deeper();
    if (accept(Word::Not))
        return node(ExpressionKind::Not, {asCondition(negation())});
    return predicate();
}

Expression* Parser::predicate() {
    if (accept(Word::Exists)) {
        Expression* result = node(ExpressionKind::Exists);
        expectSymbol(u'(');
        result->select = select();
        expectSymbol(u')');
        return over(result, {});
    }
    Expression* left = additive();
    return left->isCondition() ? left : predicateTail(left);
}

Expression* Parser::predicateTail(Expression* left) {
    const char16_t symbol = token().symbol;
    if (symbol == u'=' || symbol == u'<' || symbol == u'>' || symbol == kNotEqual || symbol == kLessOrEqual ||
        symbol == kGreaterOrEqual) {
        ++m_at;
        Expression* result = node(ExpressionKind::Compare, {left, value()});
        result->operation = symbol;
        return result;
    }
    if (accept(Word::Is)) {
        Expression* result = node(ExpressionKind::IsNull, {left});
        result->negated = accept(Word::Not);
        expect(Word::Null);
        return result;
    }
    const bool negated = accept(Word::Not);
    Expression* result = nullptr;
    if (accept(Word::Like)) {
        Expression* pattern = value();
        result = accept(Word::Escape) ? node(ExpressionKind::Like, {left, pattern, value()})
                                      : node(ExpressionKind::Like, {left, pattern});
    } else if (accept(Word::Between)) {
        Expression* low = value();
        expect(Word::And);
        result = node(ExpressionKind::Between, {left, low, value()});
    } else if (accept(Word::In)) {
        expectSymbol(u'(');
        result = node(ExpressionKind::In);
        std::vector<Expression*> list{left};
        if (is(Word::Select)) {
            result->select = select();
        } else {
            do {
                list.push_back(value());
            } while (acceptSymbol(u','));
        }
        expectSymbol(u')');
        over(result, list);
    } else if (negated) {
        fail();
    } else {
        return left;
    }
    result->negated = negated;
    return result;
}

Expression* Parser::additive() {
    Expression* left = multiplicative();
    while (isSymbol(u'+') || isSymbol(u'-')) {
        asValue(left);
        const char16_t operation = token().symbol;
        ++m_at;
        left = node(ExpressionKind::Arithmetic, {left, asValue(multiplicative())});
        left->operation = operation;
    }
    return left;
}

Expression* Parser::multiplicative() {
    Expression* left = unary();
    while (isSymbol(u'*') || isSymbol(u'/') || isSymbol(u'%')) {
        asValue(left);
        const char16_t operation = token().symbol;
        ++m_at;
        left = node(ExpressionKind::Arithmetic, {left, asValue(unary())});
        left->operation = operation;
    }
    return left;
}

Expression* Parser::unary() {
    const auto level = deeper();
    if (acceptSymbol(u'-'))
        return node(ExpressionKind::Negate, {asValue(unary())});
    if (acceptSymbol(u'+'))
        return asValue(unary());
    Expression* result = primary();
    if (accept(Word::Collate))
        collation();
    return result;
}

Expression* Parser::literal(ExpressionKind kind) {
    Expression* result = node(kind);
    result->name.text = token().text;
    if (kind == ExpressionKind::Integer && token().kind != TokenKind::Integer)
        fail();
    ++m_at;
    return result;
}

Expression* Parser::primary() {
    switch (token().kind) {
        case TokenKind::Integer:
            return literal(ExpressionKind::Integer);
        case TokenKind::Decimal:
            return literal(ExpressionKind::Decimal);
        case TokenKind::Float:
            return literal(ExpressionKind::Float);
        case TokenKind::Text:
            return literal(ExpressionKind::Text);
        case TokenKind::RowPlace:
            ++m_at;
            return node(ExpressionKind::RowPlace);
        case TokenKind::QuotedName:
            return columnOrCall();
        case TokenKind::Symbol:
            if (isSymbol(u'('))
                return parenthesised();
            fail();
        case TokenKind::End:
            fail();
        case TokenKind::Word:
            break;
    }
    switch (token().word) {
        case Word::None:
            return columnOrCall();
        case Word::Null:
            return literal(ExpressionKind::Null);
        case Word::Case:
            return caseExpression();
        case Word::Convert:
            return convertCall();
        case Word::Left:
        case Word::Right:
        case Word::Coalesce:
        case Word::NullIf: {
            const Token& function = token();
            ++m_at;
            return callOf({function.text, function.hash});
        }
        default:
            fail();
    }
}

Expression* Parser::parenthesised() {
    expectSymbol(u'(');
    Expression* result = nullptr;
    if (is(Word::Select)) {
        result = node(ExpressionKind::Subquery);
        result->select = select();
        over(result, {});
    } else {
        result = disjunction();
    }
    expectSymbol(u')');
    return result;
}

Expression* Parser::columnOrCall() {
    const bool quotedName = token().kind == TokenKind::QuotedName;
    if (!quotedName && isPlain(u"cast") && isSymbol(u'(', 1))
        return castCall();
    Name first = name();
    if (isSymbol(u'('))
        return quotedName ? (fail(), nullptr) : callOf(first);
    Expression* result = node(ExpressionKind::Column);
    // owner.table.column, database..table.column: the last two parts count
    while (acceptSymbol(u'.')) {
        if (acceptSymbol(u'.'))
            first = name();
        if (token().kind == TokenKind::RowPlace) {
            ++m_at;
            result->kind = ExpressionKind::RowPlace;
            result->qualifier = first;
            return result;
        }
        result->qualifier = first;
        first = name();
    }
    result->name = first;
    return result;
}

Expression* Parser::callOf(Name function) {
    Expression* result = node(ExpressionKind::Call);
    result->name = function;
    expectSymbol(u'(');
    if (accept(Word::Distinct))
        result->distinct = true;
    else
        accept(Word::All);
    if (isSymbol(u'*') && isSymbol(u')', 1)) {
        ++m_at;
        over(result, {node(ExpressionKind::Star)});
    } else if (!isSymbol(u')')) {
        over(result, values());
    }
    expectSymbol(u')');
    return result;
}

Expression* Parser::caseExpression() {
    expect(Word::Case);
    Expression* result = node(ExpressionKind::Case);
    std::vector<Expression*> arguments;
    result->hasOperand = !is(Word::When);
    if (result->hasOperand)
        arguments.push_back(value());
    do {
        expect(Word::When);
        arguments.push_back(result->hasOperand ? value() : condition());
        expect(Word::Then);
        arguments.push_back(value());
    } while (is(Word::When));
    result->hasElse = accept(Word::Else);
    if (result->hasElse)
        arguments.push_back(value());
    expect(Word::End);
    return over(result, arguments);
}

Expression* Parser::convertCall() {
    expect(Word::Convert);
    expectSymbol(u'(');
    const Type target = type(kConvertedLength);
    expectSymbol(u',');
    std::vector<Expression*> arguments{value()};
    if (acceptSymbol(u','))
        arguments.push_back(literal(ExpressionKind::Integer));
    Expression* result = node(ExpressionKind::Convert, arguments);
    result->type = target;
    expectSymbol(u')');
    return result;
}

Expression* Parser::castCall() {
    ++m_at;
    expectSymbol(u'(');
    Expression* result = node(ExpressionKind::Convert, {value()});
    expect(Word::As);
    result->type = type(kConvertedLength);
    expectSymbol(u')');
    return result;
}

}  // namespace tsql
