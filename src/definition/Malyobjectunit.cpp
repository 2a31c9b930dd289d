#include "Malyobjectunit.h"

#include "EventBoundary.h"

QAction* TMalyObject::Add_Item(QMenu& menu, const QString& caption, int image, const QKeySequence& shortcut,
                               std::function<void()> action) {
    QAction* item = menu.addAction(caption);
    item->setData(image);
    item->setShortcut(shortcut);
    // The grid acts on the shortcut itself, after the entry's state has been settled.
    item->setShortcutContext(Qt::WidgetShortcut);
    QObject::connect(item, &QAction::triggered, &menu,
                     [action = std::move(action)] { widgets::EventBoundary::run(action); });
    return item;
}
