#include "TaxBrackets.h"

#include <QLocale>
#include <QString>
#include <cmath>

namespace definition {
namespace {

// 34 decimal digits: a product of an amount and a percent keeps all of its own.
__extension__ typedef __float128 Wide;

// Numbers are counted in millionths, so that sums and products of decimals are whole.
constexpr int kDecimals = 6;
constexpr Wide kUnit = 1e6;

Wide powerOfTen(int exponent) {
    Wide power = 1;
    for (; exponent > 0; --exponent)
        power *= 10;
    return power;
}

// The decimal that a number is shown as, in millionths.
Wide millionths(double number) {
    const QString shown = QString::number(number, 'e', QLocale::FloatingPointShortest);
    const qsizetype power = shown.indexOf(u'e');
    QString digits = shown.left(power);
    const qsizetype point = digits.indexOf(u'.');
    const int fraction = point < 0 ? 0 : static_cast<int>(digits.size() - point - 1);
    const qint64 whole = digits.remove(u'.').toLongLong();
    const int exponent = shown.mid(power + 1).toInt() - fraction + kDecimals;
    return exponent >= 0 ? whole * powerOfTen(exponent) : whole / powerOfTen(-exponent);
}

// The bracket counts both of its bounds.
Wide width(const Bracket& bracket) {
    return millionths(bracket.to) - millionths(bracket.from) + kUnit;
}

}  // namespace

double boundAbove(double to) {
    return static_cast<double>((millionths(to) + kUnit) / kUnit);
}

double cumulativeTax(const Bracket& bracket, double below) {
    constexpr Wide hundredths = 100 * kUnit;
    const Wide own = width(bracket) * millionths(bracket.percent);
    return static_cast<double>((own + millionths(below) * hundredths) / (hundredths * kUnit));
}

double taxPercent(const Bracket& bracket, double below) {
    const Wide own = millionths(bracket.tax) - millionths(below);
    const double percent = static_cast<double>(own * 100 / width(bracket));
    Bracket rounded = bracket;
    rounded.percent = std::round(percent * 100) / 100;
    // Where the tax itself was rounded, the percent that it came from is the one that is meant.
    return cumulativeTax(rounded, below) == bracket.tax ? rounded.percent : percent;
}

}  // namespace definition
