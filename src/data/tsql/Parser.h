// Tokens to statements, by recursive descent.
#pragma once

#include <QScopedValueRollback>
#include <memory>

#include "Ast.h"

namespace tsql {

// The statements of one text, with the memory that they view.
struct Batch {
    QString text;
    Arena arena;
    std::span<Statement*> statements;
    int count = 0;  // statements, nested ones included
};

// Throws ServerError ("Incorrect syntax near 'x'.") for what is not understood.
std::unique_ptr<Batch> parse(const QString& text);

// More levels than any statement needs; SQLite allows a tree of a thousand.
inline constexpr int kDeepest = 400;

class Parser {
public:
    Parser(Arena& arena, const std::vector<Token>& tokens) : m_arena(arena), m_tokens(tokens) {}
    std::span<Statement*> batch();
    int count() const { return m_count; }

private:
    // --- tokens (Parser.cpp)
    const Token& token(int ahead = 0) const { return m_tokens[std::min(m_at + ahead, m_tokens.size() - 1)]; }
    bool is(Word word) const { return token().word == word; }
    bool isSymbol(char16_t symbol, int ahead = 0) const { return token(ahead).symbol == symbol; }
    bool isPlain(QStringView word, int ahead = 0) const;  // a word that is not reserved
    bool isName(int ahead = 0) const;
    bool accept(Word word);
    bool acceptSymbol(char16_t symbol);
    bool acceptPlain(QStringView word);
    void expect(Word word);
    void expectSymbol(char16_t symbol);
    Name name();
    ObjectName objectName();
    void collation();
    int integer();
    std::span<Name> nameList();  // (a, b, c), each with an optional ASC or DESC
    [[noreturn]] void fail() const;
    // Holds one level of nesting; a text cannot exhaust the stack.
    [[nodiscard]] QScopedValueRollback<int> deeper();

    // --- statements (Parser.cpp)
    template <typename T>
    T* make(StatementKind kind);
    Statement* statement();
    Statement* ifStatement();
    Statement* block();
    Statement* execute();
    Statement* setting();

    // --- queries and changes of rows (ParserQueries.cpp)
    Select* select();
    enum class Brackets { Optional, Required };
    Expression* top(Brackets brackets);
    Select* selectCore();
    void selectList(Select& select);
    SelectItem selectItem();
    std::span<TableReference> fromClause();
    TableReference tableReference();
    Name optionalAlias();
    std::span<OrderItem> orderClause();
    Statement* selectStatement();
    Statement* insertStatement();
    std::span<std::span<Expression*>> valueRows();
    Statement* updateStatement();
    Statement* deleteStatement();
    Statement* truncateStatement();

    // --- tables and indexes (ParserDefinitions.cpp)
    Statement* createStatement();
    Statement* createTable();
    Statement* createIndex(KeyKind kind);
    Statement* alterTable();
    Statement* dropStatement();
    void tableElement(std::vector<ColumnDefinition>& columns, std::vector<KeyDefinition>& keys);
    bool tableConstraint(std::vector<KeyDefinition>& keys, Name constraint);
    ColumnDefinition columnDefinition(std::vector<KeyDefinition>& keys);
    bool columnOption(ColumnDefinition& column, std::vector<KeyDefinition>& keys);
    void fileGroup();
    Type type(int defaultLength = 1);

    // --- expressions (ParserExpressions.cpp)
    Expression* condition();
    Expression* value();
    Expression* disjunction();
    Expression* conjunction();
    Expression* negation();
    Expression* predicate();
    Expression* predicateTail(Expression* left);
    Expression* additive();
    Expression* multiplicative();
    Expression* unary();
    Expression* primary();
    Expression* columnOrCall();
    Expression* callOf(Name name);
    Expression* caseExpression();
    Expression* convertCall();
    Expression* castCall();
    Expression* parenthesised();
    Expression* literal(ExpressionKind kind);
    Expression* node(ExpressionKind kind) const;
    Expression* node(ExpressionKind kind, const std::vector<Expression*>& arguments);
    // The expression with these arguments, and its select, below it.
    Expression* over(Expression* expression, const std::vector<Expression*>& arguments);
    quint16 deepened(int depth);
    Expression* asValue(Expression* expression) const;
    Expression* asCondition(Expression* expression) const;
    std::vector<Expression*> values();

    Arena& m_arena;
    const std::vector<Token>& m_tokens;
    size_t m_at = 0;
    int m_count = 0;
    int m_level = 0;
    int m_deepest = 0;  // of the trees of the select that is being read
};

template <typename T>
T* Parser::make(StatementKind kind) {
    T* result = m_arena.make<T>();
    result->kind = kind;
    result->number = m_count++;
    return result;
}

}  // namespace tsql
