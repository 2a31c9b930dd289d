#include "AdviceLabel.h"

#include <QHBoxLayout>

#include "EventBoundary.h"

namespace forms {

AdviceLabel::AdviceLabel(widgets::Panel& status) : SpeedButton(&status) {
    setObjectName(QStringLiteral("plAdvice"));
    setFont(status.font());
    setAutoRaise(true);
    setCursor(Qt::PointingHandCursor);
    QPalette colors = palette();
    colors.setColor(QPalette::ButtonText, QColor(0x9C, 0x3A, 0x00));
    setPalette(colors);
    auto* line = new QHBoxLayout(&status);
    line->setContentsMargins(2, 1, 2, 1);
    line->addStretch();
    line->addWidget(this);
    hide();
    connect(this, &QToolButton::clicked, this, [this] {
        if (m_follow)
            widgets::EventBoundary::run(m_follow);
    });
}

void AdviceLabel::advise(const QString& text, std::function<void()> follow) {
    setText(text);
    m_follow = std::move(follow);
    setVisible(!text.isEmpty());
}

}  // namespace forms
