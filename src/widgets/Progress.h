// Progress of a long step, with a way out of it. Nothing is seen of a step that lasts less than half a
// second.
#pragma once

#include <QElapsedTimer>
#include <QPointer>
#include <QString>

class QProgressDialog;
class QWidget;

namespace widgets {

class Progress {
public:
    // `total` is the number of steps, 0 when it is not known.
    Progress(const QString& what, qint64 total);
    ~Progress();

    // So many steps are done. Cheap enough to be called for each. Events run now and then: the caller's
    // data must bear that, and the window below paints nothing meanwhile. Throws data::SilentAbort when
    // the operator has given up, and when the window below has ended.
    void advance(qint64 done);
    // The same where no step more is done yet.
    void look() { advance(m_done); }

    // Whether there is one under way: the connection may be busy with it.
    static bool any() { return newest() != nullptr; }
    // The one begun last; none where none is under way.
    static Progress* newest();
    // Milliseconds before anything is seen of a step; half a second where this is not called.
    static void setPatience(int milliseconds);
    // Gives up all that are under way.
    static void giveUpAll();

private:
    void show();

    QString m_what;
    qint64 m_total, m_done = 0;
    QElapsedTimer m_clock;
    qint64 m_nextLook = 0;
    bool m_givenUp = false;
    QPointer<QProgressDialog> m_dialog;  // goes with the window below it
    QPointer<QWidget> m_frozen;
};

}  // namespace widgets
