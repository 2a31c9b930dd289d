#include "FirstPaint.h"

#include <unistd.h>

#include <QCoreApplication>
#include <QEvent>

namespace {

class Watcher : public QObject {
protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (!m_seen && event->type() == QEvent::Paint && watched->parent() &&
            watched->parent()->inherits("QTableView")) {
            m_seen = true;
            // Comes after the rest of the window has been painted and shown.
            QMetaObject::invokeMethod(
                this, [] { _exit(0); }, Qt::QueuedConnection);
        }
        return false;
    }

private:
    bool m_seen = false;
};

}  // namespace

QObject* FirstPaint::create(const QString&, const QString&) {
    auto* watcher = new Watcher;
    qApp->installEventFilter(watcher);
    return watcher;
}
