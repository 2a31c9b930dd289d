#include "Appearance.h"

#include <QPalette>
#include <QProxyStyle>

#include "Components.h"

namespace host {
namespace {

// An underlined letter would stand apart from its word: Persian letters join.
class PersianStyle : public QProxyStyle {
public:
    PersianStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override {
        return hint == SH_UnderlineShortcut ? 0 : QProxyStyle::styleHint(hint, option, widget, returned);
    }
};

}  // namespace

void applyAppearance(QApplication& application) {
    application.setLayoutDirection(Qt::RightToLeft);
    application.setStyle(new PersianStyle);
    application.setFont(widgets::formFont());

    const std::pair<QPalette::ColorRole, QColor> colours[] = {
        {QPalette::Window, 0xF0F0F0},
        {QPalette::WindowText, 0x202020},
        {QPalette::Base, 0xFFFFFF},
        {QPalette::AlternateBase, 0xF5F7FA},
        {QPalette::Text, 0x202020},
        {QPalette::Button, 0xEBEBE9},
        {QPalette::ButtonText, 0x202020},
        {QPalette::Highlight, 0x2F6CA8},
        {QPalette::HighlightedText, 0xFFFFFF},
        {QPalette::ToolTipBase, 0xFFFBD8},
        {QPalette::ToolTipText, 0x202020},
        {QPalette::PlaceholderText, 0x8A8A8A},
    };
    // Not the desktop's: half of a dark one and half of this would be read by nobody.
    QPalette palette = QApplication::style()->standardPalette();
    for (const auto& [role, colour] : colours)
        palette.setColor(role, colour);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(0x9A9A9A));
    application.setPalette(palette);
}

}  // namespace host
