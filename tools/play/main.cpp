// korvanta-play: plays scenarios and says which failed.
#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <cstdio>

#include "Supervisor.h"

namespace {

const char kUsage[] =
    "korvanta-play [--shots DIR] [--sql-log FILE] [--odbc CONNECTION] [--timeout S] [--module FILE] "
    "FILE.play...\n";

struct CommandLine {
    play::RunOptions options;
    QStringList files;
    bool understood = true;
};

CommandLine read(const QStringList& words) {
    CommandLine line;
    // Beside this program, however it was called.
    const QString folder = QFileInfo(QStringLiteral("/proc/self/exe")).canonicalPath();
    line.options.moduleFile = folder + QStringLiteral("/libPaymentKorvanta.so");
    for (qsizetype i = 0; i < words.size(); ++i) {
        const QString& word = words[i];
        const bool last = i + 1 == words.size();
        if (!word.startsWith(QLatin1String("--")))
            line.files.append(word);
        else if (last)
            line.understood = false;
        else if (word == QLatin1String("--shots"))
            line.options.shotsFolder = words[++i];
        else if (word == QLatin1String("--sql-log"))
            line.options.sqlLog = words[++i];
        else if (word == QLatin1String("--odbc"))
            line.options.odbc = words[++i];
        else if (word == QLatin1String("--module"))
            line.options.moduleFile = words[++i];
        else if (word == QLatin1String("--timeout"))
            line.options.timeoutSeconds = words[++i].toInt();
        else
            line.understood = false;
    }
    line.understood = line.understood && !line.files.isEmpty() && line.options.timeoutSeconds > 0;
    return line;
}

}  // namespace

int main(int count, char** values) {
    QStringList words;
    for (int i = 1; i < count; ++i)
        words.append(QString::fromLocal8Bit(values[i]));
    CommandLine line = read(words);
    if (!line.understood) {
        std::fputs(kUsage, stderr);
        return 2;
    }
    const QTemporaryDir folder;
    if (!folder.isValid()) {
        std::fprintf(stderr, "no temporary folder: %s\n", qUtf8Printable(folder.errorString()));
        return 2;
    }
    line.options.runFolder = folder.path();
    if (!line.options.sqlLog.isEmpty())
        QFile::remove(line.options.sqlLog);  // of this run alone
    int passed = 0, failed = 0;
    for (const QString& file : line.files)
        ++(play::playApart(file, line.options) ? passed : failed);
    std::printf("%d passed, %d failed\n", passed, failed);
    return failed == 0 ? 0 : 1;
}
