#include "CodePage.h"

#include <unicode/ucnv.h>

#include <array>

#include "Errors.h"

namespace data {
namespace {

constexpr QChar kFarsiYeh(0x06CC);
constexpr QChar kArabicYeh(0x064A);

struct Tables {
    std::array<QChar, 256> characters;
    std::array<uchar, 0x10000> bytes{};

    Tables() {
        UErrorCode status = U_ZERO_ERROR;
        UConverter* converter = ucnv_open("windows-1256", &status);
        for (int byte = 0; byte < 256; ++byte) {
            const char source = static_cast<char>(byte);
            UChar target[4] = {};
            status = U_ZERO_ERROR;
            ucnv_toUChars(converter, target, 4, &source, 1, &status);
            characters[byte] = QChar(target[0]);
            if (byte != 0 && U_SUCCESS(status))
                bytes[target[0]] = static_cast<uchar>(byte);
        }
        ucnv_close(converter);
    }
};

const Tables& tables() {
    static const Tables instance;
    return instance;
}

}  // namespace

uchar codePageByte(QChar character) {
    return tables().bytes[character.unicode()];
}

QChar codePageCharacter(uchar byte) {
    return tables().characters[byte];
}

QString foldToCodePage(const QString& text) {
    QString result = text;  // shared until a letter really changes
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar character = text[i];
        if (character.unicode() < 0x80)
            continue;
        if (character == kFarsiYeh)
            result[i] = kArabicYeh;
        else if (codePageByte(character) == 0) {
            const bool pair = character.isHighSurrogate() && i + 1 < text.size();
            throw Refusal(
                QStringLiteral("نويسه «%1» در بانک اطلاعات قابل نگهداري نيست. آن را حذف يا جايگزين کنيد.")
                    .arg(text.mid(i, pair ? 2 : 1)));
        }
    }
    return result;
}

QString foldDigits(const QString& text) {
    QString result = text;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t code = text[i].unicode();
        if (code >= 0x06F0 && code <= 0x06F9)
            result[i] = QChar(u'0' + (code - 0x06F0));
        else if (code >= 0x0660 && code <= 0x0669)
            result[i] = QChar(u'0' + (code - 0x0660));
    }
    return result;
}

}  // namespace data
