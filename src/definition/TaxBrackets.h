// The arithmetic of tax brackets. Amounts in rials, percents from 0 to 100. Numbers are taken as the
// decimals that they are shown as, so that 0.1 is a tenth; what is worked out is exact for amounts up to
// 10^15 with two decimals and percents with two, and rounded once, to the nearest number there is. Whole
// hundredths would not do: a tax that no percent with two decimals yields has one with sixteen digits.
#pragma once

namespace definition {

struct Bracket {
    double from = 0;  // the first rial of the bracket
    double to = 0;    // its last
    double percent = 0;
    double tax = 0;  // on all income up to `to`

    bool operator==(const Bracket& other) const = default;
};

// Where the bracket above one that ends at `to` begins.
double boundAbove(double to);

// The tax on all income up to the bracket's upper bound; `below` is that of the brackets under it.
double cumulativeTax(const Bracket& bracket, double below);

// The percent at which the bracket yields its tax: one with two decimals wherever one does. The bracket
// must hold at least one rial.
double taxPercent(const Bracket& bracket, double below);

}  // namespace definition
