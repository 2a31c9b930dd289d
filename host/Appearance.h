// What every program of the suite looks like: right to left, Persian letters, calm colours.
#pragma once

#include <QApplication>

namespace host {

// Before the first widget is made. The look is the same on every desktop.
void applyAppearance(QApplication& application);

}  // namespace host
