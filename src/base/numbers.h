// Numbers as the program reads and prints them: leading-number conversion, number pictures and the shortest
// form. Locale never matters here.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace brantlow {

// The number at the front of `text`, 0 where there is none. Leading blanks are passed over; a sign, digits, a
// point and a decimal exponent belong to the number; "inf", "nan" and hexadecimal forms do not. A number too
// large for a double reads as 0.
double LeadingNumber(std::string_view text);

// The number that the whole of `text` (but for blanks around it) is, or nothing.
std::optional<double> WholeNumber(std::string_view text);

// The shortest decimal text that reads back to the same double. Plain digits between 1e-5 and 1e16, an
// exponent outside; 0 for a value that is not finite and for negative zero.
std::string ShortestNumber(double value);
// The same, added to `out`.
void AppendShortestNumber(double value, std::string& out);

// `value` by a picture such as "#####0.000", "######0.###" or "$#.00": 0 is a digit always printed, # a digit
// printed if needed, text before the first of them stands in front of the number (a minus sign before it).
// Rounds half away from zero on the shortest decimal form of the value, so 1.0005 gives "1.001". A picture
// whose decimals are all optional leaves no lone point. A value that is not finite prints as 0.
std::string FormatPicture(std::string_view picture, double value);

// The same for text that may hold a number; text that is no number passes unchanged.
std::string FormatPictureText(std::string_view picture, std::string_view text);

// `value` rounded to `decimals` places as a picture rounds it.
double RoundDecimals(double value, int decimals);

// The number that `value` has once written with fifteen significant digits, the general number form.
double RoundToGeneralForm(double value);

// a / b, or nothing where the division fails: a divisor of 0 or a result that is not finite.
std::optional<double> Divide(double a, double b);

}  // namespace brantlow
