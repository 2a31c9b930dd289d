#include "DialogForm.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>

#include "Components.h"
#include "EventBoundary.h"

namespace forms {

DialogForm::DialogForm(const QString& className) : Form(className) {}

DialogForm::DialogForm(const QString& className, const QString& caption)
    : Form(className), m_body(new QVBoxLayout) {
    auto* bar = new widgets::CaptionBar(this);
    bar->setColors(palette().color(QPalette::Highlight), Qt::white);
    bar->setFixedHeight(24);
    auto* close = new widgets::SpeedButton(bar);
    close->setObjectName(QStringLiteral("sb_Closed"));
    close->setGlyph(widgets::SpeedButton::Glyph::Close);
    close->setToolTip(QStringLiteral("بستن فرم"));
    connect(close, &QToolButton::clicked, this, [this] { setModalResult(widgets::mrCancel); });
    auto* barRow = new QHBoxLayout(bar);
    barRow->setContentsMargins(4, 2, 4, 2);
    barRow->addWidget(close);
    barRow->addStretch();

    m_body->setContentsMargins(10, kSpacing, 10, 10);
    m_body->setSpacing(kSpacing);
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(1, 1, 1, 1);
    whole->setSpacing(0);
    whole->addWidget(bar);
    whole->addLayout(m_body, 1);
    setCaption(caption);
}

void DialogForm::buildDialog(const QList<Component>& components) {
    buildComponents(*this, components);
    layout()->setContentsMargins(1, 0, 1, 1);  // the edge of a borderless window
}

QHBoxLayout& DialogForm::addButtonRow() {
    auto* row = new QHBoxLayout;
    row->setSpacing(6);
    m_body->addLayout(row);
    return *row;
}

QPushButton* DialogForm::makeButton(const QString& name, const QString& caption,
                                    std::function<void()> handler) {
    auto* button = new QPushButton(caption, this);
    button->setObjectName(name);
    button->setFont(widgets::formFont());
    connect(button, &QPushButton::clicked, this,
            [handler = std::move(handler)] { widgets::EventBoundary::run(handler); });
    return button;
}

QPushButton* DialogForm::addButton(QBoxLayout& row, const QString& name, const QString& caption,
                                   std::function<void()> handler) {
    QPushButton* button = makeButton(name, caption, std::move(handler));
    constexpr int kRoom = 28;  // pixels beside the caption
    button->setMinimumSize(qMax(80, button->fontMetrics().horizontalAdvance(caption) + kRoom), 28);
    row.addWidget(button);
    return button;
}

void DialogForm::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_Escape && m_body)
        setModalResult(widgets::mrCancel);
    else if (enter && m_default && qobject_cast<QLineEdit*>(focusWidget()))
        m_default->click();
    else
        Form::keyPressEvent(event);
}

void DialogForm::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void DialogForm::resizeEvent(QResizeEvent* event) {
    Form::resizeEvent(event);
    auto* shape = component<widgets::Shape>(QStringLiteral("Close_Shape"));
    if (!shape)
        return;
    shape->move(width() - shape->width() - 10, shape->y());
    component<QWidget>(QStringLiteral("sb_Closed"))->move(shape->x() + 1, shape->y() + 1);
}

}  // namespace forms
