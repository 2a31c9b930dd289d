// T-SQL text to tokens. Texts and bracketed names are unescaped here.
#pragma once

#include <vector>

#include "Arena.h"
#include "Name.h"

namespace tsql {

// The reserved words; every other word may name a table or column without brackets.
enum class Word : quint8 {
    None,
    Add,
    All,
    Alter,
    And,
    As,
    Asc,
    Begin,
    Between,
    By,
    Case,
    Coalesce,
    Collate,
    Column,
    Constraint,
    Convert,
    Create,
    Cross,
    Default,
    Delete,
    Desc,
    Distinct,
    Drop,
    Else,
    End,
    Escape,
    Exec,
    Exists,
    From,
    Full,
    Group,
    Having,
    Identity,
    If,
    In,
    Index,
    Inner,
    Insert,
    Into,
    Is,
    Join,
    Key,
    Left,
    Like,
    Not,
    Null,
    NullIf,
    On,
    Or,
    Order,
    Outer,
    Primary,
    Right,
    Select,
    Set,
    Table,
    Then,
    Top,
    Truncate,
    Union,
    Unique,
    Update,
    Values,
    When,
    Where,
    With,
    Other
};

enum class TokenKind : quint8 { End, Word, QuotedName, Text, Integer, Decimal, Float, Symbol, RowPlace };

// A view of the text: the text and the arena have to live as long.
struct Token {
    TokenKind kind = TokenKind::End;
    Word word = Word::None;  // of an unquoted word that is reserved
    char16_t symbol = 0;     // of a symbol: its character; two-character comparisons as below
    QStringView text;        // content, without quotes
    quint32 hash = 0;        // of a word or quoted name
};

// Symbols of two characters.
inline constexpr char16_t kNotEqual = u'≠';
inline constexpr char16_t kLessOrEqual = u'≤';
inline constexpr char16_t kGreaterOrEqual = u'≥';

// Throws ServerError for an unclosed text, name or comment. The tokens, the last of them End, view
// `text` and `arena`.
void tokenize(QStringView text, Arena& arena, std::vector<Token>& tokens);

}  // namespace tsql
