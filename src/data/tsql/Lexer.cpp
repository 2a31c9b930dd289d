#include "Lexer.h"

#include <array>

#include "ServerText.h"

namespace tsql {
namespace {

struct Reserved {
    QStringView text;
    Word word;
};

constexpr Reserved kReserved[] = {
    {u"add", Word::Add},
    {u"all", Word::All},
    {u"alter", Word::Alter},
    {u"and", Word::And},
    {u"as", Word::As},
    {u"asc", Word::Asc},
    {u"begin", Word::Begin},
    {u"between", Word::Between},
    {u"by", Word::By},
    {u"case", Word::Case},
    {u"coalesce", Word::Coalesce},
    {u"collate", Word::Collate},
    {u"column", Word::Column},
    {u"constraint", Word::Constraint},
    {u"convert", Word::Convert},
    {u"create", Word::Create},
    {u"cross", Word::Cross},
    {u"default", Word::Default},
    {u"delete", Word::Delete},
    {u"desc", Word::Desc},
    {u"distinct", Word::Distinct},
    {u"drop", Word::Drop},
    {u"else", Word::Else},
    {u"end", Word::End},
    {u"escape", Word::Escape},
    {u"exec", Word::Exec},
    {u"execute", Word::Exec},
    {u"exists", Word::Exists},
    {u"from", Word::From},
    {u"full", Word::Full},
    {u"group", Word::Group},
    {u"having", Word::Having},
    {u"identity", Word::Identity},
    {u"if", Word::If},
    {u"in", Word::In},
    {u"index", Word::Index},
    {u"inner", Word::Inner},
    {u"insert", Word::Insert},
    {u"into", Word::Into},
    {u"is", Word::Is},
    {u"join", Word::Join},
    {u"key", Word::Key},
    {u"left", Word::Left},
    {u"like", Word::Like},
    {u"not", Word::Not},
    {u"null", Word::Null},
    {u"nullif", Word::NullIf},
    {u"on", Word::On},
    {u"or", Word::Or},
    {u"order", Word::Order},
    {u"outer", Word::Outer},
    {u"primary", Word::Primary},
    {u"right", Word::Right},
    {u"select", Word::Select},
    {u"set", Word::Set},
    {u"table", Word::Table},
    {u"then", Word::Then},
    {u"top", Word::Top},
    {u"truncate", Word::Truncate},
    {u"union", Word::Union},
    {u"unique", Word::Unique},
    {u"update", Word::Update},
    {u"values", Word::Values},
    {u"when", Word::When},
    {u"where", Word::Where},
    {u"with", Word::With},
    // Reserved as well, though no statement here begins with them or holds them.
    {u"any", Word::Other},
    {u"break", Word::Other},
    {u"check", Word::Other},
    {u"close", Word::Other},
    {u"clustered", Word::Other},
    {u"commit", Word::Other},
    {u"continue", Word::Other},
    {u"cursor", Word::Other},
    {u"database", Word::Other},
    {u"declare", Word::Other},
    {u"except", Word::Other},
    {u"file", Word::Other},
    {u"for", Word::Other},
    {u"foreign", Word::Other},
    {u"function", Word::Other},
    {u"goto", Word::Other},
    {u"grant", Word::Other},
    {u"intersect", Word::Other},
    {u"kill", Word::Other},
    {u"merge", Word::Other},
    {u"nonclustered", Word::Other},
    {u"of", Word::Other},
    {u"off", Word::Other},
    {u"open", Word::Other},
    {u"option", Word::Other},
    {u"over", Word::Other},
    {u"percent", Word::Other},
    {u"print", Word::Other},
    {u"proc", Word::Other},
    {u"procedure", Word::Other},
    {u"read", Word::Other},
    {u"references", Word::Other},
    {u"return", Word::Other},
    {u"revoke", Word::Other},
    {u"rollback", Word::Other},
    {u"rule", Word::Other},
    {u"save", Word::Other},
    {u"schema", Word::Other},
    {u"some", Word::Other},
    {u"to", Word::Other},
    {u"tran", Word::Other},
    {u"transaction", Word::Other},
    {u"trigger", Word::Other},
    {u"use", Word::Other},
    {u"user", Word::Other},
    {u"view", Word::Other},
    {u"waitfor", Word::Other},
    {u"while", Word::Other},
};

// An open-addressed table: a word is looked up for every token of every statement.
class ReservedWords {
public:
    ReservedWords() {
        for (const Reserved& reserved : kReserved) {
            size_t slot = foldedHash(reserved.text) % kSlots;
            while (m_slots[slot])
                slot = (slot + 1) % kSlots;
            m_slots[slot] = &reserved;
        }
    }
    Word find(QStringView text, quint32 hash) const {
        for (size_t slot = hash % kSlots; m_slots[slot]; slot = (slot + 1) % kSlots)
            if (sameName(m_slots[slot]->text, text))
                return m_slots[slot]->word;
        return Word::None;
    }

private:
    static constexpr size_t kSlots = 1021;
    std::array<const Reserved*, kSlots> m_slots{};
};

bool isDigit(QChar character) {
    return character >= u'0' && character <= u'9';
}

bool startsName(QChar character) {
    const char16_t unit = character.unicode();
    if (unit < 128)
        return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z') || unit == u'_' ||
               unit == u'#' || unit == u'@';
    return character.isLetter();
}

bool continuesName(QChar character) {
    return startsName(character) || isDigit(character) || character == u'$' || character.isMark() ||
           (character.unicode() >= 128 && character.isDigit());
}

class Lexer {
public:
    Lexer(QStringView text, Arena& arena, std::vector<Token>& tokens)
        : m_text(text), m_arena(arena), m_tokens(tokens) {}

    void run() {
        for (;;) {
            skipBlanks();
            if (m_at >= m_text.size())
                break;
            m_tokens.push_back(next());
        }
        m_tokens.emplace_back();
    }

private:
    QChar peek(qsizetype ahead = 0) const {
        return m_at + ahead < m_text.size() ? m_text[m_at + ahead] : QChar();
    }

    void skipBlanks() {
        for (;;) {
            while (m_at < m_text.size() && m_text[m_at].isSpace())
                ++m_at;
            if (peek() == u'-' && peek(1) == u'-') {
                while (m_at < m_text.size() && m_text[m_at] != u'\n')
                    ++m_at;
            } else if (peek() == u'/' && peek(1) == u'*') {
                skipComment();
            } else {
                return;
            }
        }
    }

    void skipComment() {
        int depth = 0;
        do {
            if (m_at >= m_text.size())
                throw data::ServerError(QStringLiteral("Missing end comment mark '*/'."));
            const bool opens = peek() == u'/' && peek(1) == u'*';
            const bool closes = peek() == u'*' && peek(1) == u'/';
            depth += opens ? 1 : closes ? -1 : 0;
            m_at += opens || closes ? 2 : 1;
        } while (depth > 0);
    }

    Token next() {
        const QChar first = peek();
        if ((first == u'N' || first == u'n') && peek(1) == u'\'') {
            ++m_at;
            return quoted(u'\'', TokenKind::Text);
        }
        if (startsName(first))
            return word();
        if (isDigit(first) || (first == u'.' && isDigit(peek(1))))
            return number();
        if (first == u'\'')
            return quoted(u'\'', TokenKind::Text);
        if (first == u'[')
            return quoted(u']', TokenKind::QuotedName);
        if (first == u'"')
            return quoted(u'"', TokenKind::QuotedName);
        if (first == u'%' && m_text.sliced(m_at).startsWith(u"%%physloc%%", Qt::CaseInsensitive))
            return make(TokenKind::RowPlace, 11);
        return symbol();
    }

    Token make(TokenKind kind, qsizetype length) {
        Token token;
        token.kind = kind;
        token.text = m_text.sliced(m_at, length);
        m_at += length;
        return token;
    }

    Token word() {
        static const ReservedWords words;
        qsizetype end = m_at;
        quint32 hash = 2166136261u;
        for (; end < m_text.size() && continuesName(m_text[end]); ++end)
            hash = (hash ^ folded(m_text[end])) * 16777619u;
        Token token = make(TokenKind::Word, end - m_at);
        token.hash = hash;
        token.word = words.find(token.text, hash);
        return token;
    }

    Token number() {
        qsizetype end = m_at;
        TokenKind kind = TokenKind::Integer;
        const auto digits = [&] {
            while (end < m_text.size() && isDigit(m_text[end]))
                ++end;
        };
        digits();
        if (end < m_text.size() && m_text[end] == u'.') {
            kind = TokenKind::Decimal;
            ++end;
            digits();
        }
        if (end < m_text.size() && folded(m_text[end]) == u'e') {
            qsizetype exponent = end + 1;
            if (exponent < m_text.size() && (m_text[exponent] == u'-' || m_text[exponent] == u'+'))
                ++exponent;
            if (exponent < m_text.size() && isDigit(m_text[exponent])) {
                kind = TokenKind::Float;
                end = exponent;
                digits();
            }
        }
        return make(kind, end - m_at);
    }

    Token quoted(QChar closing, TokenKind kind) {
        const qsizetype start = ++m_at;
        bool doubled = false;
        for (;; ++m_at) {
            if (m_at >= m_text.size())
                throw data::ServerError(
                    QStringLiteral("Unclosed quotation mark after the character string '%1'.")
                        .arg(m_text.sliced(start)));
            if (m_text[m_at] != closing)
                continue;
            if (peek(1) != closing)
                break;
            doubled = true;
            ++m_at;
        }
        Token token;
        token.kind = kind;
        token.text = m_text.sliced(start, m_at++ - start);
        if (doubled)
            token.text = m_arena.copy(token.text.toString().replace(QString(2, closing), QString(closing)));
        if (kind == TokenKind::QuotedName)
            token.hash = foldedHash(token.text);
        return token;
    }

    Token symbol() {
        const QChar first = peek(), second = peek(1);
        char16_t meaning = first.unicode();
        qsizetype length = 2;
        if ((first == u'<' && second == u'>') || (first == u'!' && second == u'='))
            meaning = kNotEqual;
        else if (first == u'<' && second == u'=')
            meaning = kLessOrEqual;
        else if (first == u'>' && second == u'=')
            meaning = kGreaterOrEqual;
        else
            length = 1;
        Token token = make(TokenKind::Symbol, length);
        token.symbol = meaning;
        return token;
    }

    QStringView m_text;
    Arena& m_arena;
    std::vector<Token>& m_tokens;
    qsizetype m_at = 0;
};

}  // namespace

void tokenize(QStringView text, Arena& arena, std::vector<Token>& tokens) {
    Lexer(text, arena, tokens).run();
}

}  // namespace tsql
