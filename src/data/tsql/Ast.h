// What a batch says, before anything is known of the database. All nodes live in the batch's arena.
#pragma once

#include <span>

#include "Lexer.h"
#include "Type.h"

namespace tsql {

struct Select;

enum class ExpressionKind : quint8 {
    Null,
    Integer,
    Decimal,
    Float,
    Text,
    Binary,    // literals; `name.text` holds their characters
    Column,    // qualifier.name
    Star,      // the * of count(*)
    RowPlace,  // qualifier.%%physloc%%
    Default,   // the DEFAULT of a values list
    Negate,
    Arithmetic,  // operation: + - * / %
    Call,        // name(arguments)
    Convert,     // arguments[0] to `type`, an optional style after it
    Case,        // [operand] when then … [else]; see Case below
    Subquery,    // one value of a select
    // Conditions
    Compare,  // operation: = < > and the symbols of the lexer
    And,
    Or,
    Not,
    IsNull,
    Like,
    Between,
    In,
    Exists
};

struct Expression {
    ExpressionKind kind = ExpressionKind::Null;
    quint16 depth = 0;  // of the tree below, selects included
    char16_t operation = 0;
    bool negated = false;     // NOT IN, NOT LIKE, NOT BETWEEN, IS NOT NULL
    bool distinct = false;    // of an aggregate
    bool hasOperand = false;  // of a CASE: arguments begin with the value that the WHENs compare with
    bool hasElse = false;     // of a CASE: arguments end with the ELSE value
    Type type;
    Name qualifier, name;
    std::span<Expression*> arguments;
    Select* select = nullptr;

    bool isCondition() const { return kind >= ExpressionKind::Compare; }
    bool isLiteral() const { return kind <= ExpressionKind::Binary; }
};

struct ObjectName {
    Name database, name;
};

enum class JoinKind : quint8 { Comma, Inner, Left, Right, Full, Cross };

struct TableReference {
    ObjectName table;
    Name alias;
    Select* derived = nullptr;  // instead of a table
    JoinKind join = JoinKind::Comma;
    Expression* on = nullptr;
};

struct SelectItem {
    Expression* value = nullptr;  // null for * and qualifier.*
    Name qualifier, alias;
};

struct OrderItem {
    Expression* value = nullptr;
    bool descending = false;
};

struct Select {
    quint16 depth = 0;  // of what it holds
    bool distinct = false;
    Expression* top = nullptr;
    std::span<SelectItem> items;
    ObjectName into;
    std::span<TableReference> from;
    Expression* where = nullptr;
    std::span<Expression*> groupBy;
    Expression* having = nullptr;
    std::span<OrderItem> orderBy;  // of the whole union, kept at its first select
    Select* unionWith = nullptr;
    bool unionAll = false;
};

enum class StatementKind : quint8 {
    Select,
    Insert,
    Update,
    Delete,
    If,
    Block,
    Execute,
    CreateTable,
    AlterTable,
    DropTable,
    CreateIndex,
    DropIndex,
    Setting
};

struct Statement {
    StatementKind kind = StatementKind::Setting;
    int number = 0;  // its place among the statements of the batch
};

struct SelectStatement : Statement {
    Select* select = nullptr;
};

struct InsertStatement : Statement {
    ObjectName table;
    std::span<Name> columns;                 // empty when not given
    std::span<std::span<Expression*>> rows;  // of VALUES
    Select* select = nullptr;                // or a select
    bool defaults = false;                   // or DEFAULT VALUES
};

struct Assignment {
    Name column;
    Expression* value = nullptr;
};

struct UpdateStatement : Statement {
    Expression* top = nullptr;  // at most so many rows; only without `from`
    ObjectName table;           // or an alias of `from`
    std::span<Assignment> assignments;
    std::span<TableReference> from;
    Expression* where = nullptr;
};

struct DeleteStatement : Statement {
    Expression* top = nullptr;  // as of an update
    ObjectName table;           // or an alias of `from`
    std::span<TableReference> from;
    Expression* where = nullptr;
};

struct IfStatement : Statement {
    Expression* condition = nullptr;
    Statement* then = nullptr;
    Statement* otherwise = nullptr;
};

struct BlockStatement : Statement {
    std::span<Statement*> statements;
};

struct ExecuteStatement : Statement {
    Name procedure;
    std::span<Expression*> arguments;  // literals
};

enum class KeyKind : quint8 { Plain, Unique, Primary };

struct KeyDefinition {
    KeyKind kind = KeyKind::Plain;
    Name name;
    std::span<Name> columns;
};

struct ColumnDefinition {
    Name name;
    Type type;
    bool nullable = true, nullabilityGiven = false;
    bool identity = false;
    qint64 identitySeed = 1;
    Expression* defaultValue = nullptr;
    bool withValues = false;  // rows that stand already get the default
};

struct CreateTableStatement : Statement {
    ObjectName table;
    std::span<ColumnDefinition> columns;
    std::span<KeyDefinition> keys;
};

enum class AlterKind : quint8 { Add, AlterColumn, DropColumn, DropConstraint };

struct AlterTableStatement : Statement {
    AlterKind change = AlterKind::Add;
    ObjectName table;
    std::span<ColumnDefinition> columns;
    std::span<KeyDefinition> keys;
    std::span<Name> dropped;
    Expression* defaultValue = nullptr;  // ADD DEFAULT value FOR dropped[0]
};

struct DropTableStatement : Statement {
    std::span<ObjectName> tables;
};

struct CreateIndexStatement : Statement {
    ObjectName table;
    KeyDefinition key;
};

struct DropIndexStatement : Statement {
    ObjectName table;
    Name index;
};

}  // namespace tsql
