// What a page or a window has to say besides the hint of a column: at the far end of the status line, empty
// as a rule; a click follows it up. It never takes the focus.
#pragma once

#include <functional>

#include "Components.h"

namespace forms {

class AdviceLabel : public widgets::SpeedButton {
public:
    explicit AdviceLabel(widgets::Panel& status);

    // Empty for nothing. What follows a click is entered through the event boundary.
    void advise(const QString& text, std::function<void()> follow = {});

private:
    std::function<void()> m_follow;
};

}  // namespace forms
