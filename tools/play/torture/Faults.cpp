#include "Faults.h"

#include <sys/mman.h>

#include <QElapsedTimer>
#include <QFile>
#include <cstdio>
#include <random>

#include "../Supervisor.h"
#include "Acts.h"
#include "CompanyState.h"
#include "FaultyFiles.h"
#include "HostCompany.h"

namespace play {
namespace {

constexpr int kStatements = 40;  // more than any act sends

// Plays an act on a company of its own, each time anew.
class Trial {
public:
    Trial(const RunOptions& options, const Act& act)
        : m_options(options), m_act(act), m_folder(options.runFolder) {
        const QString demo = m_folder + "/small.company";
        if (!QFile::exists(demo))
            host::createDemoCompany(demo, {.employees = 20});
        Act nothing = act;
        nothing.line = QStringLiteral("wait 1");
        play(scenarioOf(nothing));
        m_old = state();
        play(scenarioOf(act));
        m_new = state();
        m_soundness = m_trouble;  // of an unharmed company
        m_trouble.clear();
        if (m_old == m_new)
            fail(QStringLiteral("the act changes nothing"));
    }

    // The options that the next play is made with.
    RunOptions options() const {
        RunOptions options = m_options;
        options.companyFile = m_folder + "/tried.company";
        return options;
    }

    Ending play(const ActScenario& scenario) { return play(scenario, options()); }
    Ending play(const ActScenario& scenario, const RunOptions& options) {
        copyAnew(m_folder + "/small.company", options.companyFile);
        return playOn(scenario, options);
    }
    // On the company as it was left.
    Ending playOn(const ActScenario& scenario, const RunOptions& options) {
        const QString file = m_folder + "/act.play";
        QFile text(file);
        if (!text.open(QIODevice::WriteOnly) || text.write(scenario.text.toUtf8()) < 0)
            std::fprintf(stderr, "not written: %s\n", qUtf8Printable(file));
        text.close();
        return playApart(file, options);
    }

    enum class Outcome { Old, New, Neither };
    // What has become of the company; where that is neither, or it is not sound, it is said.
    Outcome outcome(const QString& when) {
        const CompanyState now = state();
        m_trouble.removeIf([this](const QString& line) { return m_soundness.contains(line); });
        if (m_trouble.isEmpty() && (now == m_new || now == m_old))
            return now == m_new ? Outcome::New : Outcome::Old;
        fail(when + ": " + m_trouble.join(QStringLiteral("; ")) + " old differs in " +
             differenceOf(now, m_old) + ", new in " + differenceOf(now, m_new));
        return Outcome::Neither;
    }
    void fail(const QString& what) {
        std::printf("%s: %s\n", qUtf8Printable(m_act.name), qUtf8Printable(what));
        std::fflush(stdout);
        m_trouble.clear();
    }

private:
    CompanyState state() { return stateOf(options().companyFile, m_trouble); }

    const RunOptions m_options;
    const Act m_act;
    const QString m_folder;
    CompanyState m_old, m_new;
    QStringList m_trouble, m_soundness;
};

// The act under a fault, and where that has left the company as it was, once more in the same window.
bool survives(Trial& trial, const Act& act, const QStringList& between, const RunOptions& options,
              const QString& what, bool& reached, const std::function<bool()>& wasReached) {
    const Ending once = trial.play(scenarioOf(act, between), options);
    reached = wasReached ? wasReached() : once.messages > 0;
    if (!once.trouble.isEmpty() || once.foreign > 0) {
        trial.fail(what + (once.trouble.isEmpty() ? QStringLiteral(": told in no Persian words")
                                                  : ": " + once.trouble));
        return false;
    }
    if (const Trial::Outcome outcome = trial.outcome(what); outcome != Trial::Outcome::Old)
        return outcome == Trial::Outcome::New;
    if (reached && once.messages == 0) {
        trial.fail(what + ": nothing was said");
        return false;
    }
    const Ending again = trial.play(scenarioOf(act, between, 2), options);
    if (!again.trouble.isEmpty() || trial.outcome(what) != Trial::Outcome::New) {
        trial.fail(what + ": cannot be done again");
        return false;
    }
    return true;
}

}  // namespace

Toll killed(const RunOptions& options, const QString& which, int rounds, unsigned seed) {
    Toll toll;
    std::mt19937 dice(seed);
    for (const Act& act : acts()) {
        if (!act.name.contains(which))
            continue;
        Trial trial(options, act);
        const ActScenario scenario = scenarioOf(act);
        // How long the act takes, with the end of the program.
        RunOptions kill = trial.options();
        kill.killedAtLine = scenario.line;
        QElapsedTimer whole;
        whole.start();
        trial.play(scenario);
        const qint64 all = whole.elapsed();
        kill.killedAfter = 0;
        whole.restart();
        trial.play(scenario, kill);
        const auto longest =
            static_cast<unsigned>(qBound(qint64(20), all - whole.elapsed(), qint64(1000)) * 1000);
        for (int round = 0; round < rounds; ++round) {
            kill.killedAfter = static_cast<int>(dice() % longest);
            trial.play(scenario, kill);
            ++toll.tried;
            const QString when = QStringLiteral("killed after %1 us").arg(kill.killedAfter);
            const Trial::Outcome outcome = trial.outcome(when);
            bool well = outcome != Trial::Outcome::Neither;
            // What was left is opened and worked with like any company.
            if (act.repeats && outcome == Trial::Outcome::Old && round % 4 == 0) {
                trial.playOn(scenario, trial.options());
                well = trial.outcome(when) == Trial::Outcome::New;
                if (!well)
                    trial.fail(QStringLiteral("cannot be done after a kill"));
            }
            toll.fell += well ? 0 : 1;
        }
    }
    return toll;
}

Toll failingDisk(const RunOptions& options, const QString& which, int most) {
    Toll toll;
    auto* plan =
        new (mmap(nullptr, sizeof(FilePlan), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0))
            FilePlan;
    for (const Act& act : acts()) {
        if (!act.name.contains(which))
            continue;
        Trial trial(options, act);
        const int line = scenarioOf(act).line;
        RunOptions faulty = trial.options();
        faulty.onStart = [plan] {
            plan->done = 0;
            failFiles(plan);
        };
        faulty.onLine = [plan, line](int now) { plan->counts = now == line; };
        const std::pair<FileFault, const char*> kinds[] = {{FileFault::Read, "read"},
                                                           {FileFault::Write, "write"},
                                                           {FileFault::Sync, "sync"},
                                                           {FileFault::Full, "full at write"}};
        for (const auto& [fault, name] : kinds)
            for (int number = 1; number <= most; ++number) {
                plan->fault = fault;
                plan->failing = number;
                plan->counts = false;
                plan->done = 0;
                plan->failed = false;
                bool reached = false;
                const bool well = survives(trial, act, {}, faulty,
                                           QStringLiteral("%1 %2").arg(QLatin1String(name)).arg(number),
                                           reached, [plan] { return plan->failed; });
                if (!reached)
                    break;
                ++toll.tried;
                toll.fell += well ? 0 : 1;
            }
    }
    munmap(plan, sizeof(FilePlan));
    return toll;
}

Toll cutLines(const RunOptions& options, const QString& which) {
    Toll toll;
    RunOptions wire = options;
    wire.wire = true;
    for (const Act& act : acts()) {
        if (!act.name.contains(which))
            continue;
        Trial trial(wire, act);
        for (int number = 1; number <= kStatements; ++number) {
            bool reached = false;
            const bool well =
                survives(trial, act, {QStringLiteral("answer yes yes"), QStringLiteral("cut %1").arg(number)},
                         trial.options(), QStringLiteral("cut at statement %1").arg(number), reached, {});
            if (!reached)
                break;
            ++toll.tried;
            toll.fell += well ? 0 : 1;
        }
    }
    return toll;
}

}  // namespace play
