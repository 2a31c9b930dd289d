#include "Parser.h"
#include "ServerText.h"

namespace tsql {

Select* Parser::select() {
    const auto level = deeper();
    const int outside = std::exchange(m_deepest, 0);
    Select* first = selectCore();
    Select* last = first;
    while (accept(Word::Union)) {
        last->unionAll = accept(Word::All);
        last->unionWith = selectCore();
        last = last->unionWith;
    }
    if (is(Word::Order))
        first->orderBy = orderClause();
    first->depth = deepened(m_deepest + 1);
    m_deepest = std::max(m_deepest, outside);
    return first;
}

// Null where nothing limits the rows.
Expression* Parser::top(Brackets brackets) {
    if (!accept(Word::Top))
        return nullptr;
    const bool bracketed = acceptSymbol(u'(');
    if (!bracketed && brackets == Brackets::Required)
        expectSymbol(u'(');
    Expression* const count = literal(ExpressionKind::Integer);
    if (bracketed)
        expectSymbol(u')');
    return count;
}

Select* Parser::selectCore() {
    auto* result = m_arena.make<Select>();
    expect(Word::Select);
    result->distinct = accept(Word::Distinct);
    if (!result->distinct)
        accept(Word::All);
    result->top = top(Brackets::Optional);
    selectList(*result);
    if (accept(Word::Into))
        result->into = objectName();
    if (accept(Word::From))
        result->from = fromClause();
    if (accept(Word::Where))
        result->where = condition();
    if (accept(Word::Group)) {
        expect(Word::By);
        result->groupBy = m_arena.copy(values());
    }
    if (accept(Word::Having))
        result->having = condition();
    return result;
}

void Parser::selectList(Select& select) {
    std::vector<SelectItem> items;
    do {
        items.push_back(selectItem());
    } while (acceptSymbol(u','));
    select.items = m_arena.copy(items);
}

SelectItem Parser::selectItem() {
    SelectItem item;
    if (acceptSymbol(u'*'))
        return item;
    if (isName() && isSymbol(u'.', 1) && isSymbol(u'*', 2)) {
        item.qualifier = name();
        m_at += 2;
        return item;
    }
    // alias = value
    if (isName() && isSymbol(u'=', 1)) {
        item.alias = name();
        ++m_at;
        item.value = value();
        return item;
    }
    item.value = value();
    item.alias = token().kind == TokenKind::Text ? Name(m_tokens[m_at++].text) : optionalAlias();
    return item;
}

Name Parser::optionalAlias() {
    const bool given = accept(Word::As);
    if (isName())
        return name();
    if (given && token().kind == TokenKind::Text)
        return Name(m_tokens[m_at++].text);
    if (given)
        fail();
    return {};
}

std::span<TableReference> Parser::fromClause() {
    std::vector<TableReference> tables;
    tables.push_back(tableReference());
    for (;;) {
        TableReference next;
        JoinKind join = JoinKind::Inner;
        if (acceptSymbol(u',')) {
            join = JoinKind::Comma;
        } else if (accept(Word::Cross)) {
            join = JoinKind::Cross;
            expect(Word::Join);
        } else if (accept(Word::Inner)) {
            expect(Word::Join);
        } else if (is(Word::Left) || is(Word::Right) || is(Word::Full)) {
            join = is(Word::Left) ? JoinKind::Left : is(Word::Right) ? JoinKind::Right : JoinKind::Full;
            ++m_at;
            accept(Word::Outer);
            expect(Word::Join);
        } else if (!accept(Word::Join)) {
            break;
        }
        next = tableReference();
        next.join = join;
        if (join != JoinKind::Comma && join != JoinKind::Cross) {
            expect(Word::On);
            next.on = condition();
        }
        tables.push_back(next);
    }
    return m_arena.copy(tables);
}

TableReference Parser::tableReference() {
    TableReference result;
    if (acceptSymbol(u'(')) {
        result.derived = select();
        expectSymbol(u')');
        result.alias = optionalAlias();
        if (result.alias.isEmpty())
            fail();
        return result;
    }
    result.table = objectName();
    result.alias = optionalAlias();
    // A lock hint says nothing to one process: WITH (NOLOCK), (NOLOCK)
    if ((is(Word::With) && isSymbol(u'(', 1)) || (isSymbol(u'(') && isName(1) && isSymbol(u')', 2))) {
        accept(Word::With);
        nameList();
    }
    return result;
}

std::span<OrderItem> Parser::orderClause() {
    std::vector<OrderItem> items;
    expect(Word::Order);
    expect(Word::By);
    do {
        OrderItem item;
        item.value = value();
        if (!accept(Word::Asc))
            item.descending = accept(Word::Desc);
        items.push_back(item);
    } while (acceptSymbol(u','));
    return m_arena.copy(items);
}

Statement* Parser::selectStatement() {
    auto* result = make<SelectStatement>(StatementKind::Select);
    result->select = select();
    return result;
}

Statement* Parser::insertStatement() {
    auto* result = make<InsertStatement>(StatementKind::Insert);
    expect(Word::Insert);
    accept(Word::Into);
    result->table = objectName();
    if (isSymbol(u'('))
        result->columns = nameList();
    if (accept(Word::Default)) {
        expect(Word::Values);
        result->defaults = true;
    } else if (accept(Word::Values)) {
        result->rows = valueRows();
    } else {
        result->select = select();
        if (!result->select->into.name.isEmpty())
            refuse(u"Incorrect syntax near the keyword '%1'.", QStringView(u"into"));
    }
    return result;
}

std::span<std::span<Expression*>> Parser::valueRows() {
    std::vector<std::span<Expression*>> rows;
    do {
        std::vector<Expression*> row;
        expectSymbol(u'(');
        do {
            row.push_back(accept(Word::Default) ? node(ExpressionKind::Default) : value());
        } while (acceptSymbol(u','));
        expectSymbol(u')');
        rows.push_back(m_arena.copy(row));
    } while (acceptSymbol(u','));
    return m_arena.copy(rows);
}

Statement* Parser::updateStatement() {
    auto* result = make<UpdateStatement>(StatementKind::Update);
    expect(Word::Update);
    result->top = top(Brackets::Required);
    result->table = objectName();
    expect(Word::Set);
    std::vector<Assignment> assignments;
    do {
        Assignment assignment;
        assignment.column = name();
        if (acceptSymbol(u'.'))
            assignment.column = name();
        expectSymbol(u'=');
        assignment.value = accept(Word::Default) ? node(ExpressionKind::Default) : value();
        assignments.push_back(assignment);
    } while (acceptSymbol(u','));
    result->assignments = m_arena.copy(assignments);
    if (accept(Word::From))
        result->from = fromClause();
    if (accept(Word::Where))
        result->where = condition();
    return result;
}

Statement* Parser::deleteStatement() {
    auto* result = make<DeleteStatement>(StatementKind::Delete);
    expect(Word::Delete);
    result->top = top(Brackets::Required);
    accept(Word::From);
    result->table = objectName();
    if (accept(Word::From))
        result->from = fromClause();
    if (accept(Word::Where))
        result->where = condition();
    return result;
}

Statement* Parser::truncateStatement() {
    auto* result = make<DeleteStatement>(StatementKind::Delete);
    expect(Word::Truncate);
    expect(Word::Table);
    result->table = objectName();
    return result;
}

}  // namespace tsql
