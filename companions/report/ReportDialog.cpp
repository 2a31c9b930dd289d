#include "ReportDialog.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>

#include "Components.h"
#include "EventBoundary.h"

namespace report {

ReportDialog::ReportDialog(const QString& className, const QString& caption) : Form(className) {
    auto* bar = new widgets::CaptionBar(this);
    bar->setColors(palette().color(QPalette::Highlight), Qt::white);
    bar->setFixedHeight(24);
    auto* close = new widgets::SpeedButton(bar);
    close->setObjectName(QStringLiteral("sb_Closed"));
    close->setGlyph(widgets::SpeedButton::Glyph::Close);
    close->setToolTip(QStringLiteral("بستن فرم"));
    connect(close, &QToolButton::clicked, this, [this] { setModalResult(widgets::mrCancel); });
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(4, 2, 4, 2);
    row->addWidget(close);
    row->addStretch();
    setCaption(QStringLiteral("          ") + caption);
    setWindowTitle(caption);

    m_body = new QVBoxLayout;
    m_body->setContentsMargins(kSpacing, kSpacing, kSpacing, kSpacing);
    m_body->setSpacing(kSpacing);
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(1, 1, 1, 1);
    whole->setSpacing(0);
    whole->addWidget(bar);
    whole->addLayout(m_body, 1);
}

QPushButton* ReportDialog::makeButton(const QString& name, const QString& caption,
                                      std::function<void()> pressed) {
    auto* button = new QPushButton(caption, this);
    button->setObjectName(name);
    connect(button, &QPushButton::clicked, this,
            [pressed = std::move(pressed)] { widgets::EventBoundary::run(pressed); });
    if (!m_default)
        m_default = button;
    return button;
}

void ReportDialog::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_Escape)
        setModalResult(widgets::mrCancel);
    else if (enter && m_default && qobject_cast<QLineEdit*>(focusWidget()))
        m_default->click();
    else
        Form::keyPressEvent(event);
}

void ReportDialog::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

}  // namespace report
