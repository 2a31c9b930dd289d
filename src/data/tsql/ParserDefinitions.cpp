#include "Parser.h"
#include "ServerText.h"

namespace tsql {

Statement* Parser::createStatement() {
    expect(Word::Create);
    if (is(Word::Table))
        return createTable();
    return createIndex(accept(Word::Unique) ? KeyKind::Unique : KeyKind::Plain);
}

Statement* Parser::createTable() {
    auto* result = make<CreateTableStatement>(StatementKind::CreateTable);
    expect(Word::Table);
    result->table = objectName();
    std::vector<ColumnDefinition> columns;
    std::vector<KeyDefinition> keys;
    expectSymbol(u'(');
    do {
        tableElement(columns, keys);
    } while (acceptSymbol(u',') && !isSymbol(u')'));
    expectSymbol(u')');
    result->columns = m_arena.copy(columns);
    result->keys = m_arena.copy(keys);
    return result;
}

void Parser::tableElement(std::vector<ColumnDefinition>& columns, std::vector<KeyDefinition>& keys) {
    const Name constraint = accept(Word::Constraint) ? name() : Name();
    if (!tableConstraint(keys, constraint)) {
        if (!constraint.isEmpty())
            fail();
        columns.push_back(columnDefinition(keys));
    }
}

bool Parser::tableConstraint(std::vector<KeyDefinition>& keys, Name constraint) {
    KeyDefinition key;
    key.name = constraint;
    if (accept(Word::Primary)) {
        expect(Word::Key);
        key.kind = KeyKind::Primary;
    } else if (accept(Word::Unique)) {
        key.kind = KeyKind::Unique;
    } else {
        return false;
    }
    key.columns = nameList();
    keys.push_back(key);
    return true;
}

ColumnDefinition Parser::columnDefinition(std::vector<KeyDefinition>& keys) {
    ColumnDefinition column;
    column.name = name();
    column.type = type();
    while (columnOption(column, keys)) {
    }
    return column;
}

bool Parser::columnOption(ColumnDefinition& column, std::vector<KeyDefinition>& keys) {
    const Name constraint = accept(Word::Constraint) ? name() : Name();
    if (accept(Word::Null)) {
        column.nullabilityGiven = true;
    } else if (accept(Word::Not)) {
        expect(Word::Null);
        column.nullable = false;
        column.nullabilityGiven = true;
    } else if (accept(Word::Default)) {
        column.defaultValue = asValue(unary());
    } else if (accept(Word::Collate)) {
        collation();
    } else if (accept(Word::Identity)) {
        column.identity = true;
        column.nullable = false;
        if (acceptSymbol(u'(')) {
            column.identitySeed = integer();
            expectSymbol(u',');
            if (integer() != 1)
                fail();
            expectSymbol(u')');
        }
    } else if (is(Word::Primary) || is(Word::Unique)) {
        KeyDefinition key;
        key.name = constraint;
        key.kind = accept(Word::Primary) ? (expect(Word::Key), KeyKind::Primary)
                                         : (expect(Word::Unique), KeyKind::Unique);
        key.columns = m_arena.copy(std::vector<Name>{column.name});
        keys.push_back(key);
    } else if (!constraint.isEmpty()) {
        fail();
    } else {
        return false;
    }
    return true;
}

Type Parser::type(int defaultLength) {
    const Name typeName = name();
    int numbers[2] = {-1, -1};
    if (acceptSymbol(u'(')) {
        const bool unlimited = sameName(typeName.text, u"varchar") || sameName(typeName.text, u"nvarchar");
        if (unlimited && acceptPlain(u"max"))
            numbers[0] = 0;
        else
            numbers[0] = integer();
        if (acceptSymbol(u','))
            numbers[1] = integer();
        expectSymbol(u')');
    }
    Type result = typeNamed(typeName.text, numbers[0], numbers[1]);
    if (result.kind == Kind::Null)
        refuse(u"Cannot find data type %1.", typeName.text);
    if (result.length > longestText(result))
        refuse(u"The size (%1) given to the type '%2' exceeds the maximum allowed (%3).",
               QString::number(result.length), typeName.text, QString::number(longestText(result)));
    if (result.length == 1 && numbers[0] < 0)
        result.length = defaultLength;
    return result;
}

Statement* Parser::createIndex(KeyKind kind) {
    auto* result = make<CreateIndexStatement>(StatementKind::CreateIndex);
    expect(Word::Index);
    result->key.kind = kind;
    result->key.name = name();
    expect(Word::On);
    result->table = objectName();
    result->key.columns = nameList();
    // The file group that every index is kept in.
    if (accept(Word::On) && !sameName(name().text, u"primary"))
        fail();
    return result;
}

Statement* Parser::alterTable() {
    auto* result = make<AlterTableStatement>(StatementKind::AlterTable);
    expect(Word::Alter);
    expect(Word::Table);
    result->table = objectName();
    std::vector<ColumnDefinition> columns;
    std::vector<KeyDefinition> keys;
    std::vector<Name> dropped;
    if (accept(Word::Alter)) {
        expect(Word::Column);
        result->change = AlterKind::AlterColumn;
        columns.push_back(columnDefinition(keys));
        if (!keys.empty() || columns[0].defaultValue || columns[0].identity)
            fail();
    } else if (accept(Word::Drop)) {
        expect(Word::Column);
        result->change = AlterKind::DropColumn;
        do {
            dropped.push_back(name());
        } while (acceptSymbol(u','));
    } else {
        expect(Word::Add);
        do {
            tableElement(columns, keys);
        } while (acceptSymbol(u','));
    }
    result->columns = m_arena.copy(columns);
    result->keys = m_arena.copy(keys);
    result->dropped = m_arena.copy(dropped);
    return result;
}

Statement* Parser::dropStatement() {
    expect(Word::Drop);
    expect(Word::Table);
    auto* result = make<DropTableStatement>(StatementKind::DropTable);
    std::vector<ObjectName> tables;
    do {
        tables.push_back(objectName());
    } while (acceptSymbol(u','));
    result->tables = m_arena.copy(tables);
    return result;
}

}  // namespace tsql
