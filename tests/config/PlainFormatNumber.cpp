#include "config/PlainFormatNumber.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>

std::string PlainNumberText(double value)
{
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.15G", std::fabs(value));
    std::string digits = buffer;
    if (digits.size() > 1 && digits[0] == '0' && digits[1] == '.') {
        digits = digits.substr(1);
    }
    return (value < 0.0 ? "-" : " ") + digits;
}

std::string PlainFormatNumber(double value, int integerWidth, int decimals)
{
    const int w = std::abs(integerWidth);
    const int d = std::abs(decimals);
    // 1: the plain text
    std::string s = PlainNumberText(value);
    // 2: the nudge
    if (s.find('.') != std::string::npos) {
        int digits = 0;
        for (std::size_t i = s.find('.') + 1; i < s.size() && s[i] != 'E'; ++i) {
            ++digits;
        }
        if (digits > decimals) {
            const double sign = value > 0.0 ? 1.0 : -1.0;
            value = value + sign * 1.0 / std::pow(10.0, d + 1);
            s = PlainNumberText(value);
        }
    }
    // 3: zero loses its blank
    if (value == 0.0) {
        s = s.substr(s.find_first_not_of(' '));
    }
    // 4: small numbers are spelled out
    if (s.find('E') != std::string::npos) {
        const int e = std::atoi(s.substr(s.find('E') + 1).c_str());
        if (e < 0) {
            std::string spelled = "-0.";
            for (int zero = 0; zero < std::abs(e + 1); ++zero) {
                spelled += "0";
            }
            spelled += s.substr(1, 1);
            for (std::size_t i = 3; i < s.find('E'); ++i) {
                spelled += s[i];
            }
            s = spelled;
        }
    }
    // 5: the split
    std::string integerPart = s;
    std::string decimalPart = ".";
    if (s.find('.') != std::string::npos) {
        integerPart = s.substr(0, s.find('.'));
        decimalPart = "." + s.substr(s.find('.') + 1, static_cast<std::size_t>(d));
    }
    // 6, 7: the sign
    if (integerPart == "-") {
        integerPart = "-0";
    }
    if (value > 0.0) {
        integerPart = integerPart.substr(1);
    }
    // 8: the width
    if (integerPart.empty()) {
        integerPart = "0";
    }
    while (static_cast<int>(integerPart.size()) < w) {
        integerPart = (integerWidth > 0 ? " " : "0") + integerPart;
    }
    // 9 to 11: the places
    if (decimals <= 0) {
        while (static_cast<int>(decimalPart.size()) <= d) {
            decimalPart += "0";
        }
    } else if (decimalPart == ".") {
        decimalPart = "";
    }
    if (decimals == 0) {
        decimalPart = "";
    }
    if (decimals > 0) {
        while (!decimalPart.empty() && decimalPart[decimalPart.size() - 1] == '0') {
            decimalPart = decimalPart.substr(0, decimalPart.size() - 1);
        }
        if (decimalPart == ".") {
            decimalPart = "";
        }
    }
    // 12
    return integerPart + decimalPart;
}
