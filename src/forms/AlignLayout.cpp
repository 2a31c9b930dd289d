#include "AlignLayout.h"

#include <QWidget>

namespace forms {

AlignLayout::AlignLayout(QWidget* parent) : QLayout(parent) {
    setContentsMargins(0, 0, 0, 0);
    // The panel keeps the size that its form gives it, whatever it holds.
    setSizeConstraint(QLayout::SetNoConstraint);
}

AlignLayout::~AlignLayout() {
    for (const Entry& entry : m_entries)
        delete entry.item;
}

void AlignLayout::add(QWidget* widget, Align align) {
    addChildWidget(widget);
    m_entries.push_back({new QWidgetItem(widget), align});
}

void AlignLayout::addItem(QLayoutItem* item) {
    m_entries.push_back({item, Align::Client});
}

int AlignLayout::count() const {
    return static_cast<int>(m_entries.size());
}

QLayoutItem* AlignLayout::itemAt(int index) const {
    return index >= 0 && index < count() ? m_entries[index].item : nullptr;
}

QLayoutItem* AlignLayout::takeAt(int index) {
    if (index < 0 || index >= count())
        return nullptr;
    QLayoutItem* item = m_entries[index].item;
    m_entries.erase(m_entries.begin() + index);
    return item;
}

QSize AlignLayout::sizeHint() const {
    return parentWidget() ? parentWidget()->size() : QSize();
}

void AlignLayout::setGeometry(const QRect& rect) {
    QLayout::setGeometry(rect);
    QRect rest = contentsRect();
    const auto place = [&](const Entry& entry) {
        QWidget* widget = entry.item->widget();
        const QSize size = widget->size();
        switch (entry.align) {
            case Align::None:
                break;
            case Align::Top:
                widget->setGeometry(rest.left(), rest.top(), rest.width(), size.height());
                rest.setTop(rest.top() + size.height());
                break;
            case Align::Bottom:
                widget->setGeometry(rest.left(), rest.bottom() + 1 - size.height(), rest.width(),
                                    size.height());
                rest.setBottom(rest.bottom() - size.height());
                break;
            case Align::Left:
                widget->setGeometry(rest.left(), rest.top(), size.width(), rest.height());
                rest.setLeft(rest.left() + size.width());
                break;
            case Align::Right:
                widget->setGeometry(rest.right() + 1 - size.width(), rest.top(), size.width(), rest.height());
                rest.setRight(rest.right() - size.width());
                break;
            case Align::Client:
                widget->setGeometry(rest);
                break;
        }
    };
    // Edges first, in the order given; who fills the rest comes last.
    for (const Align pass : {Align::Top, Align::Bottom, Align::Left, Align::Right, Align::Client})
        for (const Entry& entry : m_entries)
            if (entry.align == pass && !entry.item->widget()->isHidden())
                place(entry);
}

}  // namespace forms
