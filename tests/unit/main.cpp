// All unit tests are one program; it looks as every program of the suite does.
#include <gtest/gtest.h>

#include "Appearance.h"

int main(int count, char** values) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(count, values);
    QApplication::setQuitOnLastWindowClosed(false);
    host::applyAppearance(application);
    testing::InitGoogleTest(&count, values);
    return RUN_ALL_TESTS();
}
