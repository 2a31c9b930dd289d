// korvanta-torture: plays random sessions and says which crash, hang, leave a window behind or move an amount
// from its item. What such a session types and chooses may be refused or not be there; only its end is
// checked. And what an operator does at once, while the program is killed, its disk fails or its line is cut.
#include <sys/wait.h>
#include <unistd.h>

#include <QFile>
#include <QTemporaryDir>
#include <cstdio>
#include <cstdlib>

#include "../Supervisor.h"
#include "CompanyState.h"
#include "Faults.h"
#include "HostCompany.h"
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
    "                 [--kills ROUNDS] [--disk N] [--cuts N] [--act NAME] [--pairs N]\n"
    "The seeds are counted up from the first; --keep writes the failed sessions as scenarios. Each act is "
    "killed so "
    "many times; of a kind of operation of the disk the first N fail; 1 cuts the line. A pair is two "
    "sessions at once on one company.\n";

struct CommandLine {
    play::RunOptions options;
    quint32 first = 1;
    int sessions = 0, lines = 60;
    int kills = 0, disk = 0, cuts = 0, pairs = 0;
    QString keep, act;
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
        else if (name == "--kills")
            line.kills = value.toInt();
        else if (name == "--disk")
            line.disk = value.toInt();
        else if (name == "--cuts")
            line.cuts = value.toInt();
        else if (name == "--pairs")
            line.pairs = value.toInt();
        else if (name == "--act")
            line.act = value;
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

// A session on a company of its own. What has gone wrong; empty for nothing.
QString played(const play::Session& session, const QString& file, const play::RunOptions& options,
               const QStringList& amounts) {
    const play::Ending ending = play::playApart(file, options);
    if (!ending.trouble.isEmpty())
        return QStringLiteral("line %1: %2").arg(ending.line).arg(ending.trouble);
    if (ending.lastFailure >= session.firstCheck)
        return QStringLiteral("line %1: the window's end is not as it must be").arg(ending.lastFailure);
    QStringList trouble;
    if (play::amountsOf(play::stateOf(options.companyFile, trouble)) != amounts)
        trouble.append(QStringLiteral("amounts have left their item"));
    return trouble.join(QStringLiteral("; "));
}

int playSessions(CommandLine line) {
    const QString folder = line.options.runFolder, demo = folder + "/demo.company";
    host::createDemoCompany(demo);
    QStringList trouble;
    const QStringList amounts = play::amountsOf(play::stateOf(demo, trouble));
    line.options.companyFile = folder + "/session.company";
    int failed = 0;
    for (quint32 seed = line.first; seed - line.first < static_cast<quint32>(line.sessions); ++seed) {
        play::copyAnew(demo, line.options.companyFile);
        const play::Session session = play::randomSession(seed, line.lines);
        const QString name = QStringLiteral("/session-%1.play").arg(seed);
        write(folder + name, session.text);
        const QString wrong = played(session, folder + name, line.options, amounts);
        if (wrong.isEmpty())
            continue;
        ++failed;
        std::printf("seed %u, %s\n", seed, qUtf8Printable(wrong));
        std::fflush(stdout);
        if (!line.keep.isEmpty())
            write(line.keep + name, session.text);
    }
    std::printf("%d sessions, %d failed\n", line.sessions, failed);
    return failed;
}

// Two programs at once on one company: each ends as it must, and the company is sound.
int playPairs(const CommandLine& line) {
    play::RunOptions options = line.options;
    const QString folder = options.runFolder, demo = folder + "/demo.company";
    if (!QFile::exists(demo))
        host::createDemoCompany(demo);
    options.companyFile = folder + "/shared.company";
    int failed = 0;
    for (quint32 pair = line.first; pair - line.first < static_cast<quint32>(line.pairs); ++pair) {
        play::copyAnew(demo, options.companyFile);
        const auto playOne = [&](quint32 program) {
            const play::Session session = play::randomSession(2 * pair + program, line.lines);
            const QString file = folder + QStringLiteral("/pair-%1.play").arg(program);
            write(file, session.text);
            const play::Ending ending = play::playApart(file, options);
            if (!ending.trouble.isEmpty())
                std::printf("session %u, line %d: %s\n", 2 * pair + program, ending.line,
                            qUtf8Printable(ending.trouble));
            std::fflush(stdout);
            return ending.trouble.isEmpty();
        };
        std::fflush(stdout);
        const pid_t other = fork();
        if (other == 0)
            std::_Exit(playOne(1) ? EXIT_SUCCESS : EXIT_FAILURE);
        bool well = playOne(0);
        int status = EXIT_FAILURE;
        waitpid(other, &status, 0);
        well = well && status == EXIT_SUCCESS;
        QStringList trouble;
        if (!well)
            trouble.append(QStringLiteral("a program has not ended as it must"));
        play::stateOf(options.companyFile, trouble);
        if (trouble.isEmpty())
            continue;
        ++failed;
        std::printf("pair %u, %s\n", pair, qUtf8Printable(trouble.join(QStringLiteral("; "))));
        std::fflush(stdout);
    }
    std::printf("%d pairs, %d failed\n", line.pairs, failed);
    return failed;
}

int told(const char* what, const play::Toll& toll) {
    std::printf("%s: %d tried, %d failed\n", what, toll.tried, toll.fell);
    std::fflush(stdout);
    return toll.fell;
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
    int failed = 0;
    if (line.kills > 0)
        failed += told("kills", play::killed(line.options, line.act, line.kills, line.first));
    if (line.disk > 0)
        failed += told("failing disk", play::failingDisk(line.options, line.act, line.disk));
    if (line.cuts > 0)
        failed += told("cut lines", play::cutLines(line.options, line.act));
    widgets::Progress::setPatience(0);  // events run in the midst of every step that shows it
    if (line.sessions > 0)
        failed += playSessions(line);
    if (line.pairs > 0)
        failed += playPairs(line);
    return failed == 0 ? 0 : 1;
}
