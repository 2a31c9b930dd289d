// The DOS Persian code page. A letter has a code for each form it takes between its neighbours, and the
// codes stand in the order in which a screen without right-to-left support shows them.
//
// ASCII digits keep their ASCII codes, which are on this page too: programs compare and compute with the
// codes, dates and account numbers in such files. Persian and Arabic digits have the page's own.
#include <QHash>
#include <algorithm>
#include <array>
#include <cstring>
#include <optional>
#include <vector>

#include "DbfExport.h"

namespace {

constexpr QChar kLam(u'ل'), kAlef(u'ا');
constexpr uchar kLamAlef = 0xF2;
constexpr uchar kZero = 0x80;
constexpr uchar kNoBreakSpace = 0xFF;

struct Letter {
    char16_t letter;
    // Alone, joined to the letter before, to the one after, to both.
    std::array<uchar, 4> forms;
    bool joinsBefore = true;
    bool joinsAfter = true;
};

constexpr Letter pair(char16_t letter, uchar last, uchar joined) {
    return {letter, {last, last, joined, joined}};
}

constexpr Letter same(char16_t letter, uchar code) {
    return pair(letter, code, code);
}

// A letter that never joins the one after it.
constexpr Letter ending(char16_t letter, uchar alone, uchar joined) {
    return {letter, {alone, joined, alone, joined}, true, false};
}

constexpr Letter kLetters[] = {
    ending(u'آ', 0x8D, 0x8D),
    ending(u'ا', 0x90, 0x91),
    ending(u'د', 0xA2, 0xA2),
    ending(u'ذ', 0xA3, 0xA3),
    ending(u'ر', 0xA4, 0xA4),
    ending(u'ز', 0xA5, 0xA5),
    ending(u'ژ', 0xA6, 0xA6),
    ending(u'و', 0xF8, 0xF8),
    {u'ء', {0x8F, 0x8F, 0x8F, 0x8F}, false, false},
    same(u'ـ', 0x8B),
    // It has a code of its own only where it joins the next letter.
    {u'ئ', {0xFD, 0xFC, 0x8E, 0x8E}},
    pair(u'ب', 0x92, 0x93),
    pair(u'پ', 0x94, 0x95),
    pair(u'ت', 0x96, 0x97),
    pair(u'ث', 0x98, 0x99),
    pair(u'ج', 0x9A, 0x9B),
    pair(u'چ', 0x9C, 0x9D),
    pair(u'ح', 0x9E, 0x9F),
    pair(u'خ', 0xA0, 0xA1),
    pair(u'س', 0xA7, 0xA8),
    pair(u'ش', 0xA9, 0xAA),
    pair(u'ص', 0xAB, 0xAC),
    pair(u'ض', 0xAD, 0xAE),
    same(u'ط', 0xAF),
    same(u'ظ', 0xE0),
    {u'ع', {0xE1, 0xE2, 0xE4, 0xE3}},
    {u'غ', {0xE5, 0xE6, 0xE8, 0xE7}},
    pair(u'ف', 0xE9, 0xEA),
    pair(u'ق', 0xEB, 0xEC),
    pair(u'ک', 0xED, 0xEE),
    pair(u'گ', 0xEF, 0xF0),
    pair(u'ل', 0xF1, 0xF3),
    pair(u'م', 0xF4, 0xF5),
    pair(u'ن', 0xF6, 0xF7),
    {u'ه', {0xF9, 0xF9, 0xFB, 0xFA}},
    {u'ی', {0xFD, 0xFC, 0xFE, 0xFE}},
};

struct Replacement {
    char16_t from, to;
};

// Characters without a code and what a reader takes for them.
constexpr Replacement kReplacements[] = {
    {u'أ', u'ا'},  {u'إ', u'ا'}, {u'ٱ', u'ا'}, {u'ؤ', u'و'}, {u'ة', u'ه'}, {u'ۀ', u'ه'},  {u'ھ', u'ه'},
    {u'ہ', u'ه'},  {u'ە', u'ه'}, {u'ي', u'ی'}, {u'ى', u'ی'}, {u'ے', u'ی'}, {u'ك', u'ک'},  {u'ٹ', u'ت'},
    {u'ڈ', u'د'},  {u'ڑ', u'ر'}, {u'ں', u'ن'}, {u'؛', u';'}, {u'٪', u'%'}, {u'٫', u'.'},  {u'٬', u','},
    {u'«', u'"'},  {u'»', u'"'}, {u'“', u'"'}, {u'”', u'"'}, {u'„', u'"'}, {u'‘', u'\''}, {u'’', u'\''},
    {u'‚', u'\''}, {u'‹', u'<'}, {u'›', u'>'}, {u'–', u'-'}, {u'—', u'-'}, {u'•', u'*'},  {u'·', u'.'},
    {u'…', u'.'},  {u'×', u'x'}, {u'÷', u'/'}, {u'¦', u'|'},
};

constexpr QChar kNonJoiner(0x200C);

const Letter* letterOf(QChar character) {
    static const auto byCharacter = [] {
        QHash<char16_t, const Letter*> letters;
        for (const Letter& letter : kLetters)
            letters.insert(letter.letter, &letter);
        return letters;
    }();
    return byCharacter.value(character.unicode());
}

// The code of a character that is no letter; none where the page has no place for it.
std::optional<uchar> plainCode(QChar character) {
    const char16_t code = character.unicode();
    if (code < 0x80)
        return static_cast<uchar>(code);
    if (code >= 0x06F0 && code <= 0x06F9)
        return kZero + (code - 0x06F0);
    if (code >= 0x0660 && code <= 0x0669)
        return kZero + (code - 0x0660);
    switch (code) {
        case u'،':
            return 0x8A;
        case u'؟':
            return 0x8C;
        case 0x00A0:
            return kNoBreakSpace;
        default:
            return std::nullopt;
    }
}

QChar replaced(QChar character) {
    static const auto replacements = [] {
        QHash<char16_t, char16_t> map;
        for (const Replacement& replacement : kReplacements)
            map.insert(replacement.from, replacement.to);
        return map;
    }();
    if (const char16_t other = replacements.value(character.unicode()))
        return other;
    // A Western letter loses its accent.
    const QString parts = character.decomposition();
    return !parts.isEmpty() && parts[0].unicode() < 0x80 && parts[0] != u' ' ? parts[0] : character;
}

// The text in characters that have a code. A non-joiner stays until the forms are known: it parts two
// letters.
QString reduced(const QString& text) {
    QString result;
    for (QChar character : text) {
        if (character.unicode() >= 0x80)
            character = replaced(character);
        if (letterOf(character) || plainCode(character) || character == kNonJoiner)
            result.append(character);
    }
    return result;
}

bool joins(const Letter* before, const Letter* after) {
    return before && after && before->joinsAfter && after->joinsBefore;
}

// --- order ------------------------------------------------------------------------------------------

enum class Reading { Persian, Neutral, Number, Latin };

struct Sign {
    uchar code;
    Reading reading;
};

Reading readingOf(uchar code) {
    if ((code >= '0' && code <= '9') || (code >= kZero && code < kZero + 10))
        return Reading::Number;
    if ((code >= 'A' && code <= 'Z') || (code >= 'a' && code <= 'z'))
        return Reading::Latin;
    return code < 0x80 || code == kNoBreakSpace ? Reading::Neutral : Reading::Persian;
}

std::vector<Sign> shaped(const QString& text) {
    std::vector<Sign> signs;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const auto neighbour = [&](qsizetype place) {
            return place >= 0 && place < text.size() ? letterOf(text[place]) : nullptr;
        };
        const Letter* letter = letterOf(text[i]);
        uchar code = 0;
        if (text[i] == kLam && i + 1 < text.size() && text[i + 1] == kAlef) {
            code = kLamAlef;
            ++i;
        } else if (letter) {
            const int form =
                (joins(neighbour(i - 1), letter) ? 1 : 0) | (joins(letter, neighbour(i + 1)) ? 2 : 0);
            code = letter->forms[form];
        } else if (const auto plain = plainCode(text[i])) {
            code = *plain;
        } else {
            continue;
        }
        signs.push_back({code, readingOf(code)});
    }
    return signs;
}

// "-" and "/" belong to the digits that they stand beside, a point, comma or colon to those on its two
// sides: dates and amounts stay whole.
void joinNumbers(std::vector<Sign>& signs) {
    const auto isNumber = [&](size_t place) {
        return place < signs.size() && signs[place].reading == Reading::Number;
    };
    for (size_t i = 1; i + 1 < signs.size(); ++i)
        if (std::strchr(".,:", signs[i].code) && signs[i].code && isNumber(i - 1) && isNumber(i + 1))
            signs[i].reading = Reading::Number;
    const auto spread = [&](size_t from, size_t to) {
        if (isNumber(from) && (signs[to].code == '-' || signs[to].code == '/'))
            signs[to].reading = Reading::Number;
    };
    for (size_t i = 1; i < signs.size(); ++i)
        spread(i - 1, i);
    for (size_t i = signs.size(); i-- > 1;)
        spread(i, i - 1);
}

// The end of what reads from the left and begins here. Numbers end at a blank; Latin words go on over
// blanks and marks up to their last letter or digit.
size_t leftToRightEnd(const std::vector<Sign>& signs, size_t begin) {
    size_t end = begin;
    bool latin = false;
    for (size_t i = begin; i < signs.size() && signs[i].reading != Reading::Persian; ++i) {
        if (signs[i].reading == Reading::Neutral) {
            if (!latin)
                break;
            continue;
        }
        latin = latin || signs[i].reading == Reading::Latin;
        end = i + 1;
    }
    return end;
}

// Such a screen mirrors nothing: the bracket that opens a Persian text must look as it does there.
char turned(uchar code) {
    constexpr char kBrackets[] = "()[]{}<>";
    const char* found = code ? std::strchr(kBrackets, code) : nullptr;
    return found ? kBrackets[(found - kBrackets) ^ 1] : static_cast<char>(code);
}

QByteArray inVisualOrder(std::vector<Sign>& signs) {
    QByteArray bytes(static_cast<qsizetype>(signs.size()), Qt::Uninitialized);
    const bool persian = std::any_of(signs.begin(), signs.end(),
                                     [](const Sign& sign) { return sign.reading == Reading::Persian; });
    joinNumbers(signs);
    char* place = bytes.data() + (persian ? bytes.size() : 0);
    for (size_t i = 0; i < signs.size();) {
        const size_t end = persian ? leftToRightEnd(signs, i) : signs.size();
        if (end == i) {
            *--place = turned(signs[i++].code);
            continue;
        }
        if (persian)
            place -= end - i;
        for (char* to = place; i < end; ++i)
            *to++ = static_cast<char>(signs[i].code);
    }
    return bytes;
}

}  // namespace

QByteArray Dos_Persian(const QString& text) {
    std::vector<Sign> signs = shaped(reduced(text));
    return inVisualOrder(signs);
}
