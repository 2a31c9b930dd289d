// Progress of a long step, with a way out of it. Nothing is seen of a step that lasts less than half a
// second.
#pragma once

#include <QElapsedTimer>
#include <QString>
#include <memory>

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
    // the operator has given up.
    void advance(qint64 done);

private:
    void show();

    QString m_what;
    qint64 m_total;
    QElapsedTimer m_clock;
    qint64 m_nextLook = 0;
    std::unique_ptr<QProgressDialog> m_dialog;
    QWidget* m_frozen = nullptr;
};

}  // namespace widgets
