#pragma once

#include <QString>

namespace tally {

/// How the program counts and writes marks. No screen formats a number by itself. Numbers from 1e15 on, which
/// no mark or total reaches, are left as they are and written with an exponent.
///
/// What is written counts a half as people read it, in 15 significant digits: 70.015 is a half of a hundredth
/// although its binary form lies a hair below. What is computed takes the number as it is: the ranks of years
/// ago come out the same again.

/// Rounds to `digits` decimals (0 to 15), a half to the even neighbour. The scaled number decides: 109 of 200
/// is 54.50000000000001 percent and becomes 55.
double Round(double value, int digits);
/// A mark as a whole number, a half to the even neighbour; the nearest that an int holds.
int ToWhole(double value);
/// "0": no decimals, a half away from zero.
QString Format0(double value);
/// "0.00": two decimals, a half away from zero.
QString Format2(double value);
/// The number that Format2 writes.
double AsFormat2(double value);
/// The sum of marks or totals, which come with two decimals. It is counted in whole hundredths: added up over
/// a class, the noise of the binary forms would reach the digits that decide a half.
class ExactSum
{
public:
    void Add(double value);
    double Value() const { return hundredths_ / 100; }

private:
    double hundredths_ = 0; ///< whole, so that nothing is lost up to 9e13
};

/// The number that a text begins with, blanks skipped; 0 when it begins with none. Reads what is written
/// here.
double Val(const QString& text);
/// Up to 15 significant digits, no trailing zeros: 251, 0.5, 33.3333333333333.
QString PlainNumber(double value);
/// The decimals that marks are shown with: 2 where the office enters fractions and does not round them, else
/// 0.
int MarkDecimals(bool fractionMarks, bool roundedMarks);
/// A mark as lists and cards show it: rounded to `decimals` (0 or 2), a half to the even neighbour.
QString FormatMark(double mark, int decimals);

} // namespace tally
