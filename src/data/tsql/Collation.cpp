#include "Collation.h"

#include <sqlite3.h>
#include <unicode/utf8.h>

#include <array>
#include <cstring>

namespace tsql {
namespace {

// Letters that Unicode scatters, in the order of the alphabet.
constexpr char16_t kAlphabet[] = u"ءآأإاٱؤئبپةتثجچحخدڈذرڑزژسشصضطظعغفقکكگلمنںوهھۀیيىےۓ";
constexpr unsigned kAlphabetStart = 0x621;  // the first Arabic letter of the code chart

struct Weights {
    std::array<unsigned, 0x700> of{};
    Weights() {
        for (unsigned i = 0; i < of.size(); ++i)
            of[i] = i * 4;
        for (unsigned i = 'A'; i <= 'Z'; ++i)
            of[i] = (i + 32) * 4;
        for (unsigned i = 0xC0; i <= 0xDE; ++i)
            if (i != 0xD7)
                of[i] = (i + 32) * 4;
        of[0x152] = of[0x153];
        unsigned weight = kAlphabetStart * 4 + 1;
        for (const char16_t* letter = kAlphabet; *letter; ++letter, weight += 2)
            of[*letter] = weight;
    }
};

bool onlyBlanks(std::string_view text) {
    return text.find_first_not_of(' ') == std::string_view::npos;
}

int collate(void*, int leftSize, const void* left, int rightSize, const void* right) {
    return compareTexts({static_cast<const char*>(left), size_t(leftSize)},
                        {static_cast<const char*>(right), size_t(rightSize)});
}

// Kashida and what takes no place: they count nowhere in the order.
bool isWeightless(char32_t character) {
    return character == 0x0640 || (character >= 0x200B && character <= 0x200F) || character == 0xFEFF;
}

// The weight of the next character that has one; a blank's at the end.
unsigned nextWeight(std::string_view& text) {
    while (!text.empty())
        if (const char32_t character = nextCharacter(text); !isWeightless(character))
            return characterWeight(character);
    return characterWeight(U' ');
}

// A blank of a shorter text weighs like the blanks that SQL Server pads it with.
int compareTails(std::string_view left, std::string_view right) {
    while (!left.empty() || !right.empty()) {
        const unsigned l = nextWeight(left), r = nextWeight(right);
        if (l != r)
            return l < r ? -1 : 1;
    }
    return 0;
}

}  // namespace

unsigned characterWeight(char32_t character) {
    static const Weights weights;
    return character < weights.of.size() ? weights.of[character] : unsigned(character) * 4;
}

char32_t nextCharacter(std::string_view& text) {
    UChar32 character = 0;
    int at = 0;
    U8_NEXT_OR_FFFD(reinterpret_cast<const uint8_t*>(text.data()), at, int(text.size()), character);
    text.remove_prefix(size_t(at));
    return char32_t(character);
}

int compareTexts(std::string_view left, std::string_view right) {
    const size_t shared = std::min(left.size(), right.size());
    if (std::memcmp(left.data(), right.data(), shared) == 0) {
        left.remove_prefix(shared);
        right.remove_prefix(shared);
        if (onlyBlanks(left) && onlyBlanks(right))
            return 0;
        // Inside a character only where one text breaks off there, which no whole text does.
        return compareTails(left, right);
    }
    return compareTails(left, right);
}

void registerCollation(sqlite3* handle) {
    sqlite3_create_collation_v2(handle, kCollation, SQLITE_UTF8, nullptr, collate, nullptr);
}

}  // namespace tsql
