#include "Supervisor.h"

#include <poll.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QApplication>
#include <QFile>
#include <csignal>
#include <cstdio>
#include <cstdlib>

#include "Appearance.h"
#include "Player.h"

namespace play {
namespace {

// A page that the player's process writes and this one reads.
class SharedProgress {
public:
    SharedProgress()
        : m_progress(new (mmap(nullptr, sizeof(Progress), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS,
                               -1, 0)) Progress) {}
    ~SharedProgress() { munmap(m_progress, sizeof(Progress)); }
    SharedProgress(const SharedProgress&) = delete;
    SharedProgress& operator=(const SharedProgress&) = delete;
    Progress& operator*() const { return *m_progress; }
    volatile const Progress* operator->() const { return m_progress; }

private:
    Progress* m_progress;
};

// Without a display: a screen that exists in memory alone, of a size that offices have.
void selectPlatform(const RunOptions& options) {
    for (const char* variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        if (!qEnvironmentVariableIsEmpty(variable))
            return;
    const QString screen = options.runFolder + QStringLiteral("/screen.json");
    QFile file(screen);
    if (!file.exists() && file.open(QIODevice::WriteOnly))
        file.write(R"({"screens": [{"name": "memory", "x": 0, "y": 0, "width": 1024, "height": 768,
                                    "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
    qputenv("QT_QPA_PLATFORM", QByteArray("offscreen:configfile=") + screen.toLocal8Bit());
}

// What the screen in memory cannot do is no news; everything else that Qt says is.
void say(QtMsgType, const QMessageLogContext&, const QString& message) {
    if (!message.startsWith(QLatin1String("This plugin does not support")))
        std::fprintf(stderr, "%s\n", qUtf8Printable(message));
}

int playHere(const QString& file, const RunOptions& options, Progress& progress) {
    qInstallMessageHandler(say);
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR"))
        qputenv("XDG_RUNTIME_DIR", options.runFolder.toLocal8Bit());
    selectPlatform(options);
    char name[] = "korvanta-play";
    char* arguments[] = {name, nullptr};
    int count = 1;
    QApplication application(count, arguments);
    application.setQuitOnLastWindowClosed(false);
    host::applyAppearance(application);
    try {
        Player player(options, Script::read(file), progress);
        player.play();
    } catch (const Failure& failure) {
        ++progress.failures;
        std::printf("%s:1: %s\n", qUtf8Printable(file), qUtf8Printable(failure.text));
    }
    std::fflush(stdout);
    return progress.failures > 0 ? EXIT_FAILURE : EXIT_SUCCESS;
}

// Waits for the line and the moment at which the scenario is to be killed; true where it ends before.
bool endsBefore(int pipe, const SharedProgress& progress, const RunOptions& options) {
    pollfd watched{pipe, POLLIN, 0};
    while (progress->line < options.killedAtLine)
        if (poll(&watched, 1, 1) > 0)
            return true;
    usleep(static_cast<useconds_t>(options.killedAfter));
    return poll(&watched, 1, 0) > 0;
}

// Waits until the other end of the pipe is closed; false when the scenario stands at one line for the time.
bool ends(int pipe, const SharedProgress& progress, int secondsALine) {
    constexpr int second = 1000;
    int line = progress->line;
    for (int waited = 0; waited < secondsALine; ++waited) {
        pollfd watched{pipe, POLLIN, 0};
        if (poll(&watched, 1, second) > 0)
            return true;
        if (progress->line != line)
            waited = 0;
        line = progress->line;
    }
    return false;
}

}  // namespace

Ending playApart(const QString& file, const RunOptions& options) {
    const SharedProgress progress;
    int life[2];
    if (pipe(life) != 0) {
        std::perror("pipe");
        return {.trouble = QStringLiteral("no pipe can be made")};
    }
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        close(life[0]);
        if (options.onStart)
            options.onStart();
        if (options.quiet && !std::freopen("/dev/null", "w", stdout))
            std::_Exit(EXIT_FAILURE);
        const int status = playHere(file, options, *progress);
        std::fflush(nullptr);
        std::_Exit(status);
    }
    close(life[1]);
    const bool ended =
        child > 0 && (options.killedAtLine > 0 ? endsBefore(life[0], progress, options)
                                               : ends(life[0], progress, options.timeoutSeconds));
    if (!ended && child > 0)
        kill(child, SIGKILL);
    close(life[0]);
    int status = 0;
    if (child > 0)
        waitpid(child, &status, 0);
    Ending ending = {progress->failures, progress->lastFailure, progress->line,
                     progress->messages, progress->foreign,     {}};
    if (child < 0)
        ending.trouble = QStringLiteral("no process can be started");
    else if (!ended)
        ending.trouble = QStringLiteral("still not done after %1 s").arg(options.timeoutSeconds);
    else if (WIFSIGNALED(status))
        ending.trouble = QStringLiteral("the program was ended by signal %1").arg(WTERMSIG(status));
    else if (progress->failures == 0 && WEXITSTATUS(status) != EXIT_SUCCESS)
        ending.trouble = QStringLiteral("the program ended with status %1").arg(WEXITSTATUS(status));
    if (!ending.trouble.isEmpty() && !options.quiet)
        std::printf("%s:%d: %s\n", qUtf8Printable(file), ending.line, qUtf8Printable(ending.trouble));
    return ending;
}

}  // namespace play
