#include "Parts.h"

#include <QDir>
#include <QFileInfo>

namespace host {

QString partOf(const QString& name) {
    // However the program was called.
    const QDir program(QFileInfo(QStringLiteral("/proc/self/exe")).canonicalPath());
    for (const char* folder :
         {"", "../", "../" KORVANTA_PARTS "/", "../" KORVANTA_SHARED "/", KORVANTA_SOURCE_DIR "/"})
        if (const QString part = program.filePath(QLatin1String(folder) + name); QFileInfo::exists(part))
            return QDir::cleanPath(part);
    return program.filePath(name);
}

}  // namespace host
