// korvanta-play: plays scenarios and says which failed.
#include <QDir>
#include <QMap>
#include <QTemporaryDir>
#include <cstdio>

#include "Parts.h"
#include "Recording.h"
#include "Supervisor.h"

namespace {

const char kUsage[] =
    "korvanta-play [--shots DIR] [--sql-log FILE] [--odbc CONNECTION | --wire [--latency MS]] [--timeout S] "
    "[--results FILE] [--compare FILE] [--module FILE] FILE.play...\n";

struct CommandLine {
    play::RunOptions options;
    QString comparedWith;  // results of another run; empty: none
    QStringList files;
    bool understood = true;
};

using Setter = void (*)(play::RunOptions&, const QString&);

const QMap<QString, Setter>& setters() {
    using Options = play::RunOptions;
    static const QMap<QString, Setter> table = {
        {"--shots", [](Options& options, const QString& value) { options.shotsFolder = value; }},
        {"--results", [](Options& options, const QString& value) { options.results = value; }},
        {"--sql-log", [](Options& options, const QString& value) { options.sqlLog = value; }},
        {"--odbc", [](Options& options, const QString& value) { options.odbc = value; }},
        {"--latency", [](Options& options, const QString& value) { options.latency = value.toInt(); }},
        {"--module", [](Options& options, const QString& value) { options.moduleFile = value; }},
        {"--timeout", [](Options& options, const QString& value) { options.timeoutSeconds = value.toInt(); }},
    };
    return table;
}

CommandLine read(const QStringList& words) {
    CommandLine line;
    line.options.moduleFile = host::partOf(QStringLiteral("libPaymentKorvanta.so"));
    for (qsizetype i = 0; i < words.size(); ++i) {
        if (!words[i].startsWith(QLatin1String("--"))) {
            line.files.append(words[i]);
            continue;
        }
        if (words[i] == QLatin1String("--wire")) {
            line.options.wire = true;
            continue;
        }
        if (words[i] == QLatin1String("--compare") && i + 1 < words.size()) {
            line.comparedWith = words[++i];
            continue;
        }
        const Setter set = setters().value(words[i]);
        if (set == nullptr || i + 1 == words.size())
            return {.understood = false};
        set(line.options, words[++i]);
    }
    line.understood = !line.files.isEmpty() && line.options.timeoutSeconds > 0;
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
    if (!line.comparedWith.isEmpty() && line.options.results.isEmpty())
        line.options.results = folder.filePath(QStringLiteral("results"));
    if (!line.options.results.isEmpty())
        QFile::remove(line.options.results);
    int passed = 0, failed = 0;
    for (const QString& file : line.files)
        ++(play::playApart(file, line.options).passed() ? passed : failed);
    std::printf("%d passed, %d failed\n", passed, failed);
    if (!line.comparedWith.isEmpty()) {
        const QString difference = play::firstDifference(line.comparedWith, line.options.results);
        std::printf("%s\n", difference.isEmpty() ? "the results are the same" : qUtf8Printable(difference));
        failed += difference.isEmpty() ? 0 : 1;
    }
    return failed == 0 ? 0 : 1;
}
