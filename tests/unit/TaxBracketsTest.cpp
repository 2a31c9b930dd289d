// The arithmetic of tax brackets against whole numbers and against the decimals on paper.
#include "TaxBrackets.h"

#include <gtest/gtest.h>

#include <random>

using definition::Bracket;
using definition::cumulativeTax;
using definition::taxPercent;

namespace {

// Where binary fractions go astray.
TEST(TaxBrackets, DecimalsAreDecimals) {
    EXPECT_EQ(cumulativeTax({1, 3, 0.1}, 0), 0.003);
    EXPECT_EQ(cumulativeTax({1, 10, 33.33}, 0.1), 3.433);
    EXPECT_EQ(cumulativeTax({0.5, 1.25, 20}, 0), 0.35);
    EXPECT_EQ(cumulativeTax({5, 5, 50}, 0), 0.5);
    EXPECT_EQ(cumulativeTax({1, 1000000000000000, 0.07}, 0), 700000000000);
    EXPECT_EQ(cumulativeTax({1, 1000000000000000, 99.99}, 0), 999900000000000);
    EXPECT_EQ(cumulativeTax({1, 1000000000000000000, 10}, 0), 1e17);
    EXPECT_EQ(taxPercent({1, 3, 0, 1}, 0), 100.0 / 3);
    EXPECT_EQ(definition::boundAbove(1.89), 2.89);
}

// Whole bounds up to 10^15 and percents with two decimals: the tax is a whole number of ten-thousandths,
// worked out here with integers, and stored as the nearest number to it.
TEST(TaxBrackets, ExactUpToTenToTheFifteenth) {
    std::mt19937_64 random(1404);
    const auto upTo = [&](qint64 most) { return std::uniform_int_distribution<qint64>(1, most)(random); };
    for (int round = 0; round < 20000; ++round) {
        const qint64 to = upTo(1000000000000000);
        const qint64 from = upTo(to);
        const qint64 percent = upTo(10000);  // in hundredths
        const qint64 below = upTo(900000000000000);
        const qint64 rials = to - from + 1;
        // rials * percent / 10^4, split so that nothing overflows
        const qint64 whole = rials / 10000 * percent + rials % 10000 * percent / 10000;
        const qint64 rest = rials % 10000 * percent % 10000;
        const double tax =
            QStringLiteral("%1.%2").arg(whole + below).arg(rest, 4, 10, QLatin1Char('0')).toDouble();
        const Bracket bracket{double(from), double(to), percent / 100.0, tax};
        ASSERT_EQ(cumulativeTax(bracket, double(below)), tax)
            << from << " to " << to << " at " << percent << " over " << below;
        if (rials > 100000) {
            ASSERT_EQ(taxPercent(bracket, double(below)), percent / 100.0)
                << from << " to " << to << " at " << percent << " over " << below;
        }
    }
}

}  // namespace
