#include "Parser.h"

#include "ServerText.h"

namespace tsql {
namespace {

// Always on.
constexpr QStringView kSettings[] = {u"ansi_nulls",       u"ansi_padding",      u"ansi_warnings",
                                     u"arithabort",       u"quoted_identifier", u"concat_null_yields_null",
                                     u"ansi_null_dflt_on"};

}  // namespace

std::unique_ptr<Batch> parse(const QString& text) {
    auto batch = std::make_unique<Batch>();
    batch->text = text;
    std::vector<Token> tokens;
    tokens.reserve(size_t(text.size()) / 4 + 8);
    tokenize(batch->text, batch->arena, tokens);
    Parser parser(batch->arena, tokens);
    batch->statements = parser.batch();
    batch->count = parser.count();
    return batch;
}

QScopedValueRollback<int> Parser::deeper() {
    if (m_level >= kDeepest)
        refuseDepth();
    return QScopedValueRollback(m_level, m_level + 1);
}

bool Parser::isPlain(QStringView word, int ahead) const {
    return token(ahead).kind == TokenKind::Word && token(ahead).word == Word::None &&
           sameName(token(ahead).text, word);
}

bool Parser::isName(int ahead) const {
    const Token& next = token(ahead);
    return next.kind == TokenKind::QuotedName || (next.kind == TokenKind::Word && next.word == Word::None);
}

bool Parser::accept(Word word) {
    if (!is(word))
        return false;
    ++m_at;
    return true;
}

bool Parser::acceptSymbol(char16_t symbol) {
    if (!isSymbol(symbol))
        return false;
    ++m_at;
    return true;
}

bool Parser::acceptPlain(QStringView word) {
    if (!isPlain(word))
        return false;
    ++m_at;
    return true;
}

void Parser::expect(Word word) {
    if (!accept(word))
        fail();
}

void Parser::expectSymbol(char16_t symbol) {
    if (!acceptSymbol(symbol))
        fail();
}

void Parser::fail() const {
    size_t at = std::min(m_at, m_tokens.size() - 1);
    // At the end of the text the server names what stands last.
    if (m_tokens[at].kind == TokenKind::End && at > 0)
        --at;
    const Token& culprit = m_tokens[at];
    if (culprit.kind == TokenKind::Word && culprit.word != Word::None)
        refuse(u"Incorrect syntax near the keyword '%1'.", culprit.text);
    refuse(kSyntax, culprit.text);
}

Name Parser::name() {
    if (!isName())
        fail();
    const Token& next = token();
    ++m_at;
    return {next.text, next.hash};
}

// name, owner.name, database.owner.name or database..name; the owner is always the same.
ObjectName Parser::objectName() {
    ObjectName result{{}, name()};
    if (!isSymbol(u'.'))
        return result;
    ++m_at;
    if (acceptSymbol(u'.')) {
        result.database = result.name;
        result.name = name();
        return result;
    }
    const Name first = result.name;
    result.name = name();
    if (acceptSymbol(u'.')) {
        result.database = first;
        result.name = name();
    }
    return result;
}

// COLLATE and a name: every text compares in the database's own order.
void Parser::collation() {
    const Name given = name();
    if (!sameName(given.text, u"database_default") && !sameName(given.text, u"Persian_100_CI_AS"))
        refuse(u"Invalid collation '%1'.", given.text);
}

int Parser::integer() {
    if (token().kind != TokenKind::Integer)
        fail();
    const int number = token().text.toInt();
    ++m_at;
    return number;
}

std::span<Name> Parser::nameList() {
    std::vector<Name> names;
    expectSymbol(u'(');
    do {
        names.push_back(name());
        if (!accept(Word::Asc))
            accept(Word::Desc);
    } while (acceptSymbol(u','));
    expectSymbol(u')');
    return m_arena.copy(names);
}

std::span<Statement*> Parser::batch() {
    std::vector<Statement*> statements;
    while (acceptSymbol(u';')) {
    }
    // Only the first statement of a text may call a procedure by its bare name.
    if (isName())
        statements.push_back(execute());
    for (;;) {
        while (acceptSymbol(u';')) {
        }
        if (token().kind == TokenKind::End)
            break;
        statements.push_back(statement());
    }
    return m_arena.copy(statements);
}

Statement* Parser::statement() {
    const auto level = deeper();
    switch (token().word) {
        case Word::Select:
            return selectStatement();
        case Word::Insert:
            return insertStatement();
        case Word::Update:
            return updateStatement();
        case Word::Delete:
            return deleteStatement();
        case Word::Truncate:
            return truncateStatement();
        case Word::If:
            return ifStatement();
        case Word::Begin:
            return block();
        case Word::Create:
            return createStatement();
        case Word::Alter:
            return alterTable();
        case Word::Drop:
            return dropStatement();
        case Word::Set:
            return setting();
        case Word::Exec:
            ++m_at;
            return execute();
        default:
            fail();
    }
}

Statement* Parser::ifStatement() {
    auto* result = make<IfStatement>(StatementKind::If);
    expect(Word::If);
    result->condition = condition();
    result->then = statement();
    // A separator may stand before ELSE.
    const size_t before = m_at;
    acceptSymbol(u';');
    if (accept(Word::Else))
        result->otherwise = statement();
    else
        m_at = before;
    return result;
}

Statement* Parser::block() {
    auto* result = make<BlockStatement>(StatementKind::Block);
    expect(Word::Begin);
    std::vector<Statement*> statements;
    do {
        statements.push_back(statement());
        while (acceptSymbol(u';')) {
        }
    } while (!accept(Word::End));
    result->statements = m_arena.copy(statements);
    return result;
}

Statement* Parser::execute() {
    auto* result = make<ExecuteStatement>(StatementKind::Execute);
    result->procedure = objectName().name;
    std::vector<QStringView> arguments;
    if (token().kind == TokenKind::Text) {
        do {
            if (token().kind != TokenKind::Text)
                fail();
            arguments.push_back(m_tokens[m_at++].text);
        } while (acceptSymbol(u','));
    }
    result->arguments = m_arena.copy(arguments);
    return result;
}

// SET NOCOUNT ON and the like change nothing here.
Statement* Parser::setting() {
    expect(Word::Set);
    bool counts = true;
    do {
        const Name option = name();
        counts = counts && sameName(option.text, u"nocount");
        if (!counts && std::none_of(std::begin(kSettings), std::end(kSettings),
                                    [&](QStringView known) { return sameName(known, option.text); }))
            refuse(u"'%1' is not a recognized SET option.", option.text);
    } while (acceptSymbol(u','));
    if (!accept(Word::On)) {
        if (!counts || !sameName(token().text, u"off"))
            fail();
        ++m_at;
    }
    return make<Statement>(StatementKind::Setting);
}

}  // namespace tsql
