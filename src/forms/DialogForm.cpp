#include "DialogForm.h"

#include <QKeyEvent>
#include <QPainter>
#include <QPushButton>

#include "Components.h"
#include "EventBoundary.h"

namespace forms {

DialogForm::DialogForm(const QString& className, const QString& caption)
    : Form(className), m_body(new QVBoxLayout) {
    auto* bar = new widgets::CaptionBar(this);
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

    m_body->setContentsMargins(10, 8, 10, 10);
    m_body->setSpacing(8);
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(1, 1, 1, 1);
    whole->setSpacing(0);
    whole->addWidget(bar);
    whole->addLayout(m_body, 1);
    setCaption(caption);
}

QHBoxLayout& DialogForm::addButtonRow() {
    auto* row = new QHBoxLayout;
    row->setSpacing(6);
    m_body->addLayout(row);
    return *row;
}

QPushButton* DialogForm::addButton(QBoxLayout& row, const QString& name, const QString& caption,
                                   std::function<void()> handler) {
    auto* button = new QPushButton(caption, this);
    button->setObjectName(name);
    button->setFont(widgets::formFont());
    button->setMinimumSize(80, 28);
    row.addWidget(button);
    connect(button, &QPushButton::clicked, this,
            [handler = std::move(handler)] { widgets::EventBoundary::run(handler); });
    return button;
}

void DialogForm::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        setModalResult(widgets::mrCancel);
    else
        Form::keyPressEvent(event);
}

void DialogForm::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

}  // namespace forms
