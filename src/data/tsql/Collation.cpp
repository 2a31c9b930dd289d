#include "Collation.h"

#include <sqlite3.h>

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

// A blank of a shorter text weighs like the blanks that SQL Server pads it with.
int compareTails(std::string_view left, std::string_view right) {
    while (!left.empty() || !right.empty()) {
        const unsigned l = left.empty() ? characterWeight(U' ') : characterWeight(nextCharacter(left));
        const unsigned r = right.empty() ? characterWeight(U' ') : characterWeight(nextCharacter(right));
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
    const auto lead = static_cast<unsigned char>(text[0]);
    const size_t size = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    char32_t character = lead < 0x80 ? lead : lead & (0x7F >> size);
    for (size_t i = 1; i < size && i < text.size(); ++i)
        character = character << 6 | (static_cast<unsigned char>(text[i]) & 0x3F);
    text.remove_prefix(std::min(size, text.size()));
    return character;
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
