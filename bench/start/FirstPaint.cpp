// A plugin that any Qt program loads when told to by the environment: it ends the program once a table
// has been painted for the first time.
#include <unistd.h>

#include <QCoreApplication>
#include <QEvent>
#include <QGenericPlugin>

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

class FirstPaint : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "FirstPaint.json")

public:
    QObject* create(const QString&, const QString&) override {
        auto* watcher = new Watcher;
        qApp->installEventFilter(watcher);
        return watcher;
    }
};

#include "FirstPaint.moc"
