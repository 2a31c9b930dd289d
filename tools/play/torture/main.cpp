// korvanta-torture: plays random sessions and says which crash, hang or leave a window behind. What such a
// session types and chooses may be refused or not be there; only its end is checked.
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <cstdio>

#include "../Supervisor.h"
#include "Parts.h"
#include "Progress.h"
#include "Session.h"

// A fault that a sanitizer finds ends the session like any crash.
extern "C" const char* __asan_default_options() {
    return "abort_on_error=1:detect_leaks=0";
}
extern "C" const char* __ubsan_default_options() {
    return "halt_on_error=1:abort_on_error=1:print_stacktrace=1";
}

namespace {

const char kUsage[] =
    "korvanta-torture [--sessions N] [--first SEED] [--lines N] [--timeout S] [--module FILE] [--keep DIR]\n"
    "The seeds are counted up from the first; --keep writes the failed sessions as scenarios.\n";

struct CommandLine {
    play::RunOptions options;
    quint32 first = 1;
    int sessions = 100, lines = 60;
    QString keep;
    bool understood = true;
};

CommandLine read(int count, char** values) {
    CommandLine line;
    line.options.quiet = true;
    line.options.moduleFile = host::partOf(QStringLiteral("libPaymentKorvanta.so"));
    for (int i = 1; i + 1 < count; i += 2) {
        const QByteArrayView name(values[i]);
        const QString value = QString::fromLocal8Bit(values[i + 1]);
        if (name == "--sessions")
            line.sessions = value.toInt();
        else if (name == "--first")
            line.first = value.toUInt();
        else if (name == "--lines")
            line.lines = value.toInt();
        else if (name == "--timeout")
            line.options.timeoutSeconds = value.toInt();
        else if (name == "--module")
            line.options.moduleFile = value;
        else if (name == "--keep")
            line.keep = value;
        else
            line.understood = false;
    }
    line.understood = line.understood && count % 2 == 1 && line.options.timeoutSeconds > 0;
    return line;
}

void write(const QString& path, const QString& text) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0)
        std::fprintf(stderr, "not written: %s\n", qUtf8Printable(path));
}

}  // namespace

int main(int count, char** values) {
    CommandLine line = read(count, values);
    const QTemporaryDir folder;
    if (!line.understood || !folder.isValid()) {
        std::fputs(kUsage, stderr);
        return 2;
    }
    line.options.runFolder = folder.path();
    widgets::Progress::setPatience(0);  // events run in the midst of every step that shows it
    int failed = 0;
    for (quint32 seed = line.first; seed - line.first < static_cast<quint32>(line.sessions); ++seed) {
        const play::Session session = play::randomSession(seed, line.lines);
        const QString name = QStringLiteral("/session-%1.play").arg(seed);
        write(folder.path() + name, session.text);
        const play::Ending ending = play::playApart(folder.path() + name, line.options);
        if (ending.trouble.isEmpty() && ending.lastFailure < session.firstCheck)
            continue;
        ++failed;
        std::printf("seed %u, line %d: %s\n", seed, ending.line,
                    ending.trouble.isEmpty() ? "the window's end is not as it must be"
                                             : qUtf8Printable(ending.trouble));
        std::fflush(stdout);
        if (!line.keep.isEmpty())
            write(line.keep + name, session.text);
    }
    std::printf("%d sessions, %d failed\n", line.sessions, failed);
    return failed == 0 ? 0 : 1;
}
