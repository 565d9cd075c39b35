// PlainFormatNumber.h -- the number routine by the letter of its steps, slow and plain: the judge of the fast one.
#pragma once

#include <string>

/// The plain text form by the C library's own conversion.
std::string PlainNumberText(double value);

/// FormatNumber in twelve steps, none of them shortened. Needs a finite value.
std::string PlainFormatNumber(double value, int integerWidth, int decimals);
