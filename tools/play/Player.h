// Plays one scenario: runs its lines in turn, each when the one before has returned or waits in a
// modal loop, and says what failed.
#pragma once

#include <QElapsedTimer>
#include <QTimer>

#include "Actor.h"
#include "Finder.h"
#include "Observer.h"
#include "Script.h"
#include "Stage.h"

namespace play {

// Where a scenario stands, for a watcher in another process.
struct Progress {
    int line = 0;
    int failures = 0;
    int lastFailure = 0;  // the line of it
    int messages = 0;     // that nothing has expected
    int foreign = 0;      // of these, in no Persian words
};

class Player : public QObject {
public:
    Player(const RunOptions& options, Script script, Progress& progress);

    // Plays to the end within the event loop that runs then. Returns when all is said.
    void play();

    // --- for the commands and expectations --------------------------------------------------------
    const RunOptions options;
    Observer observer;  // outlives the stage, whose module still speaks when it is released
    Stage stage;
    Finder finder;
    Actor actor;
    void pause(int milliseconds) { m_pause = milliseconds; }
    // {GRID} in a statement is the table behind the grid.
    QString substituted(const QString& text) const;
    // Stores what stands on the screen as NAME.png in the folder of the run; nothing without such a folder.
    void picture(const QString& name) const;

private:
    void tick();
    bool ready() const;
    int depth() const;
    void perform(const Line& line);
    void fail(const QString& trouble);

    const Script m_script;
    Progress& m_progress;
    QTimer m_tick;
    int m_pause = 0;
    qsizetype m_next = 0;
    // What was open when a line began that has not returned: it is inside a modal loop of its own when
    // there is more now, or something newer.
    struct Beginning {
        int depth = 0;
        int newest = 0;
    };
    QList<Beginning> m_running;
};

}  // namespace play
