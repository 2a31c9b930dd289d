// From the start of the process to the first paint of a table: the host on the demonstration company,
// and a program that has little more than the table.
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <stdexcept>

#include "Bench.h"
#include "HostCompany.h"

namespace bench {
namespace {

constexpr int kRounds = 31;

// The watcher ends the program once its first table is painted.
void watchFirstPaint() {
    qputenv("QT_PLUGIN_PATH", (QCoreApplication::applicationDirPath() + "/bench-plugins").toUtf8());
    qputenv("QT_QPA_GENERIC_PLUGINS", "firstpaint");
}

void forgetWatcher() {
    qunsetenv("QT_PLUGIN_PATH");
    qunsetenv("QT_QPA_GENERIC_PLUGINS");
}

void runToFirstPaint(const QString& program, const QStringList& arguments) {
    QList<QByteArray> texts = {(QCoreApplication::applicationDirPath() + u'/' + program).toUtf8()};
    for (const QString& argument : arguments)
        texts.append(argument.toUtf8());
    QList<char*> values;
    for (QByteArray& text : texts)
        values.append(text.data());
    values.append(nullptr);
    // Standard output is for the results.
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    const auto freed = qScopeGuard([&] { posix_spawn_file_actions_destroy(&files); });
    posix_spawn_file_actions_adddup2(&files, STDERR_FILENO, STDOUT_FILENO);
    pid_t process = 0;
    int status = 0;
    if (posix_spawn(&process, values[0], &files, nullptr, values.data(), environ) != 0 ||
        waitpid(process, &status, 0) < 0 || !WIFEXITED(status) || WEXITSTATUS(status) != 0)
        throw std::runtime_error("a program did not reach its first paint");
}

}  // namespace

void coldStart() {
    const QString company = keptFile(QStringLiteral("demo.company"),
                                     [](const QString& making) { host::createDemoCompany(making); });
    // A program that is ended leaves its work tables behind, so each start has a company of its own.
    const QTemporaryDir folder;
    const QString own = folder.filePath(QStringLiteral("demo.company"));
    const auto renew = [&] {
        for (const char* part : {"", "-wal", "-shm"})
            QFile::remove(own + QLatin1String(part));
        if (!QFile::copy(company, own))
            throw std::runtime_error("the company cannot be copied");
    };
    watchFirstPaint();
    const auto cleared = qScopeGuard(forgetWatcher);
    const auto host = [&] {
        renew();
        return timed([&] { runToFirstPaint("korvanta-host", {"--company", own}); });
    };
    const auto small = [] { return timed([] { runToFirstPaint("korvanta-bench-small", {}); }); };
    report(QStringLiteral("cold-start"), compare(kRounds, host, small), 2);
}

}  // namespace bench
