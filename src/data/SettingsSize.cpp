#include "SettingsSize.h"

#include <QFileInfo>

#include "Errors.h"

namespace data {

void requireSettingsSize(const QString& file) {
    constexpr qint64 kLargest = 1 << 20;  // bytes
    if (QFileInfo(file).size() > kLargest)
        throw Refusal(
            QStringLiteral(
                "فايل تنظيمات «%1» بزرگتر از آن است که فايل تنظيمات باشد و خوانده نشد. آن را اصلاح يا "
                "پاک کنيد.")
                .arg(pathInText(file)));
}

}  // namespace data
