#include "config/Korvanta_Utility.h"

#include "platform/Fault.h"
#include "platform/Paths.h"
#include "platform/Screen.h"
#include "state/Numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <limits>
#include <utility>

namespace
{
constexpr int SignificantDigits = 15;

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

std::size_t PastDigits(std::string_view text, std::size_t at)
{
    while (at < text.size() && IsDigit(text[at])) {
        ++at;
    }
    return at;
}

/// What a number text that no double can hold stands for: too small is 0, too large the largest double.
/// `text` is digits, point and exponent without a sign.
double OutOfRangeValue(std::string_view text)
{
    constexpr long long ExponentLimit = 1'000'000'000'000;
    const std::size_t mantissaEnd = std::min(text.find_first_of("Ee"), text.size());
    const std::string_view mantissa = text.substr(0, mantissaEnd);
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const std::size_t first = mantissa.find_first_not_of("0.");
    if (first == std::string_view::npos) {
        return 0.0;
    }
    long long exponent = 0;
    bool negative = false;
    for (const char c : text.substr(mantissaEnd)) {
        negative = negative || c == '-';
        if (IsDigit(c)) {
            exponent = std::min(exponent * 10 + (c - '0'), ExponentLimit);
        }
    }
    const long long magnitude =
        static_cast<long long>(point) - static_cast<long long>(first) + (negative ? -exponent : exponent);
    return magnitude > 0 ? std::numeric_limits<double>::max() : 0.0;
}

void RequireFinite(double value)
{
    if (!std::isfinite(value)) {
        throw RunTimeFault("a number that is not finite can't be written as text");
    }
}

// --- FormatNumber, step by step ---------------------------------------------------------------------------

/// Digits between the point and the end or the exponent; -1 when there is no point.
int DigitsAfterPoint(std::string_view text)
{
    const std::size_t point = text.find('.');
    return point == std::string_view::npos ? -1 : static_cast<int>(PastDigits(text, point + 1) - (point + 1));
}

/// Very small numbers: "-1.5E-05" becomes "-0.000015". The minus sign of a positive number is a place holder that the
/// caller drops. Large numbers keep their exponent.
void SpellOutSmallExponent(std::string& text)
{
    const std::size_t mark = text.find('E');
    if (mark == std::string::npos) {
        return;
    }
    const int exponent = std::atoi(text.c_str() + mark + 1);
    if (exponent >= 0) {
        return;
    }
    std::string spelled = "-0." + std::string(static_cast<std::size_t>(-(exponent + 1)), '0');
    spelled += text[1];
    if (mark > 3) {
        spelled += text.substr(3, mark - 3);
    }
    text = std::move(spelled);
}

/// Steps that bring the digits behind the point to the wanted form.
void FinishDecimals(std::string& part, int decimals, std::size_t places)
{
    if (decimals == 0) {
        part.clear();
        return;
    }
    if (decimals < 0) {
        part.resize(std::max(part.size(), places + 1), '0');
        return;
    }
    while (!part.empty() && part.back() == '0') {
        part.pop_back();
    }
    if (part == ".") {
        part.clear();
    }
}

void AppendStepByStep(std::string& out, double value, int integerWidth, int decimals)
{
    const auto width = static_cast<std::size_t>(std::abs(integerWidth));
    const auto places = static_cast<std::size_t>(std::abs(decimals));
    std::string text = NumberText(value);
    const int digits = DigitsAfterPoint(text);
    if (digits >= 0 && digits > decimals) {
        // One whole unit of the first place cut away: this truncates, but a nine there carries.
        value += (value > 0.0 ? 1.0 : -1.0) / std::pow(10.0, static_cast<double>(places) + 1.0);
        text = NumberText(value);
    }
    if (value == 0.0) {
        text = Trim(text);
    }
    SpellOutSmallExponent(text);

    const std::size_t point = text.find('.');
    std::string whole = text.substr(0, point);
    std::string fraction = ".";
    if (point != std::string::npos) {
        fraction += text.substr(point + 1, places);
    }
    if (whole == "-") {
        whole = "-0";
    }
    if (value > 0.0) {
        whole.erase(0, 1);
    }
    if (whole.empty()) {
        whole = "0";
    }
    if (whole.size() < width) {
        whole.insert(0, width - whole.size(), integerWidth > 0 ? ' ' : '0');
    }
    FinishDecimals(fraction, decimals, places);
    out += whole;
    out += fraction;
}

// --- FormatNumber, the short way ---------------------------------------------------------------------------

constexpr std::size_t ShortWayRows = 4; // up to three places
constexpr std::array<double, ShortWayRows> ScaleOf = {1.0, 10.0, 100.0, 1000.0};
constexpr std::array<double, ShortWayRows> NudgeOf = {0.1, 0.01, 0.001, 0.0001};

/// The 15th digit of a scaled value below the limit is worth at most 5e-6 after rounding, so a fraction
/// this far from both ends gives the same digits with and without the detour through text.
constexpr double ScaledLimit = 1e9;
constexpr double FractionMargin = 1e-5;

/// Most numbers of a program: the nudged value is cut by integer arithmetic. With few enough digits the text would not
/// have been nudged at all, but then the nudge doesn't change what is kept. False when the digits need the whole
/// algorithm; nothing is appended then.
bool AppendShortWay(std::string& out, double value, int integerWidth, int decimals)
{
    const int places = std::abs(decimals);
    const auto row = static_cast<std::size_t>(places);
    if (row >= ScaleOf.size()) {
        return false;
    }
    const double scaled = (std::fabs(value) + NudgeOf[row]) * ScaleOf[row];
    if (!(scaled < ScaledLimit)) {
        return false;
    }
    auto rest = static_cast<std::uint32_t>(scaled);
    const double fraction = scaled - static_cast<double>(rest);
    if (fraction < FractionMargin || fraction > 1.0 - FractionMargin) {
        return false;
    }

    std::array<char, 16> buffer; // at most 10 digits, a point and a sign
    char* const end = buffer.data() + buffer.size();
    char* first = end;
    bool keepZero = decimals < 0;
    for (int place = 0; place < places; ++place) {
        const auto digit = static_cast<char>('0' + rest % 10);
        rest /= 10;
        if (digit != '0' || keepZero) {
            *--first = digit;
            keepZero = true;
        }
    }
    if (first != end) {
        *--first = '.';
    }
    const char* const point = first;
    do {
        *--first = static_cast<char>('0' + rest % 10);
        rest /= 10;
    } while (rest != 0);
    if (value < 0.0) {
        *--first = '-';
    }
    const auto length = static_cast<int>(point - first);
    const int width = std::abs(integerWidth);
    if (length < width) {
        out.append(static_cast<std::size_t>(width - length), integerWidth > 0 ? ' ' : '0');
    }
    out.append(first, end);
    return true;
}

// --- whole numbers -------------------------------------------------------------------------------------------

/// `value` is whole already. The comparison fails for a number that is none, too.
template <typename Integer> Integer WithinWidth(double whole, double value, const char* what)
{
    constexpr auto Low = static_cast<double>(std::numeric_limits<Integer>::min());
    constexpr auto High = static_cast<double>(std::numeric_limits<Integer>::max());
    if (!(whole >= Low && whole <= High)) {
        const std::string shown = std::isfinite(value) ? PlainNumber(value) : "not a finite number";
        throw RunTimeFault(std::string(what) + ": " + shown + " is beyond the range of " +
                           std::to_string(sizeof(Integer) * 8) + " bits");
    }
    return static_cast<Integer>(whole);
}

template <typename Integer> Integer Clamped(double whole)
{
    constexpr auto Low = static_cast<double>(std::numeric_limits<Integer>::min());
    constexpr auto High = static_cast<double>(std::numeric_limits<Integer>::max());
    if (std::isnan(whole)) {
        return 0;
    }
    return static_cast<Integer>(std::clamp(whole, Low, High));
}

/// Where the levels of a folder name begin: the root of its drive, of the native file system, or nothing for the
/// program's own folder. A name from ".\" on starts at the root of drive c.
std::string LevelsRoot(std::string_view path)
{
    if (path.substr(0, 2) == ".\\") {
        return "C:\\";
    }
    if (path.size() >= 2 && path[1] == ':') {
        return std::string(path.substr(0, 2)) + "\\";
    }
    if (!path.empty() && (path[0] == '/' || path[0] == '\\')) {
        return std::string(path.substr(0, 1));
    }
    return "";
}

void MakeLevel(const std::string& folder)
{
    if (!folder.empty() && !FolderExists(folder) && !MakeFolder(folder)) {
        throw RunTimeFault("folder " + NativeNewPath(folder) + " can't be made");
    }
}
constexpr std::size_t LongestTitle = 255;
} // namespace

double TextToNumber(std::string_view text)
{
    std::size_t at = std::min(text.find_first_not_of(" \t"), text.size());
    bool negative = false;
    if (at < text.size() && (text[at] == '-' || text[at] == '+')) {
        negative = text[at] == '-';
        ++at;
    }
    const std::size_t first = at;
    at = PastDigits(text, at);
    std::size_t digits = at - first;
    if (at < text.size() && text[at] == '.') {
        const std::size_t behind = PastDigits(text, at + 1);
        digits += behind - (at + 1);
        at = behind;
    }
    if (digits == 0) {
        return 0.0;
    }
    if (at < text.size() && (text[at] == 'E' || text[at] == 'e')) {
        const std::size_t sign = at + 1;
        const bool hasSign = sign < text.size() && (text[sign] == '-' || text[sign] == '+');
        const std::size_t digitsFrom = sign + (hasSign ? 1 : 0);
        const std::size_t behind = PastDigits(text, digitsFrom);
        if (behind > digitsFrom) {
            at = behind;
        }
    }
    const std::string_view number = text.substr(first, at - first);
    double value = 0.0;
    if (std::from_chars(number.data(), number.data() + number.size(), value).ec != std::errc()) {
        value = OutOfRangeValue(number);
    }
    return value == 0.0 ? 0.0 : (negative ? -value : value);
}

std::string NumberText(double value)
{
    RequireFinite(value);
    std::array<char, 32> buffer; // sign, point, 15 digits, zeros of 1E-04, exponent: 23 at most
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::fabs(value),
                                       std::chars_format::general, SignificantDigits);
    std::string_view digits(buffer.data(), static_cast<std::size_t>(written.ptr - buffer.data()));
    if (digits.substr(0, 2) == "0.") {
        digits.remove_prefix(1);
    }
    std::string text(1, value < 0.0 ? '-' : ' ');
    text += digits;
    std::replace(text.begin(), text.end(), 'e', 'E');
    return text;
}

std::string PlainNumber(double value)
{
    std::string text = NumberText(value);
    if (text[0] == ' ') {
        text.erase(0, 1);
    }
    return text;
}

std::string FormatNumber(double value, std::int16_t integerWidth, std::int16_t decimals)
{
    std::string text;
    AppendNumber(text, value, integerWidth, decimals);
    return text;
}

void AppendNumber(std::string& out, double value, std::int16_t integerWidth, std::int16_t decimals)
{
    if (!AppendShortWay(out, value, integerWidth, decimals)) {
        AppendStepByStep(out, value, integerWidth, decimals);
    }
}

std::int16_t RoundToInt16(double value, const char* what)
{
    return WithinWidth<std::int16_t>(std::round(value), value, what);
}

std::int32_t RoundToInt32(double value, const char* what)
{
    return WithinWidth<std::int32_t>(std::round(value), value, what);
}

std::int16_t CutToInt16(double value, const char* what)
{
    return WithinWidth<std::int16_t>(std::trunc(value), value, what);
}

std::int32_t CutToInt32(double value, const char* what)
{
    return WithinWidth<std::int32_t>(std::trunc(value), value, what);
}

std::int16_t RoundAndClampToInt16(double value)
{
    return Clamped<std::int16_t>(std::round(value));
}

std::int32_t RoundAndClampToInt32(double value)
{
    return Clamped<std::int32_t>(std::round(value));
}

std::int32_t CutAndClampToInt32(double value)
{
    return Clamped<std::int32_t>(std::trunc(value));
}

std::string Trim(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) {
        return "";
    }
    return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

std::string UpperCase(std::string_view text)
{
    std::string result(text);
    for (char& c : result) {
        if (c >= 'a' && c <= 'z') {
            c = static_cast<char>(c - 'a' + 'A');
        }
    }
    return result;
}

std::string LowerCase(std::string_view text)
{
    std::string result(text);
    for (char& c : result) {
        if (c >= 'A' && c <= 'Z') {
            c = static_cast<char>(c - 'A' + 'a');
        }
    }
    return result;
}

bool Contains(std::string_view text, std::string_view part)
{
    return text.find(part) != std::string_view::npos;
}

std::string_view FirstCharacters(std::string_view text, std::size_t count)
{
    constexpr unsigned char FollowMask = 0xC0;
    constexpr unsigned char Follow = 0x80; // bytes behind the first one of a character
    if (text.size() <= count) {
        return text;
    }
    std::size_t at = 0;
    for (; at < text.size(); ++at) {
        const bool starts = (static_cast<unsigned char>(text[at]) & FollowMask) != Follow;
        if (starts && count-- == 0) {
            break;
        }
    }
    return text.substr(0, at);
}

std::string ZeroTerminated(std::string_view text)
{
    return Trim(text.substr(0, text.find('\0')));
}

void NormalisePath(const std::string& path)
{
    if (FolderExists(path)) {
        return;
    }
    std::string folder = LevelsRoot(path);
    MakeLevel(folder);
    std::size_t at = 0;
    while (at < path.size()) {
        const std::size_t end = std::min(path.find_first_of("\\/", at), path.size());
        const std::string part = path.substr(at, end - at);
        at = end + 1;
        if (part.empty() || part == "." || Contains(part, ":")) {
            continue;
        }
        if (!folder.empty() && folder.back() != '\\' && folder.back() != '/') {
            folder += '\\';
        }
        folder += part;
        MakeLevel(folder);
    }
}

std::string BaseName(const std::string& path, const std::string& extension)
{
    const std::size_t folder = path.find_last_of("\\/");
    std::string name = folder == std::string::npos ? path : path.substr(folder + 1);
    if (extension.empty()) {
        return name;
    }
    return name.substr(0, UpperCase(name).find(UpperCase(extension)));
}

double ToRadians(double degrees)
{
    return degrees / 180.0 * Pi;
}

void SwapValues(double& a, double& b)
{
    std::swap(a, b);
}

std::string DashToUnderscore(std::string_view text)
{
    std::string result(text);
    std::replace(result.begin(), result.end(), '-', '_');
    return result;
}

std::intptr_t FindWindowByTitle(std::string_view text)
{
    const std::string wanted = Trim(text);
    for (const TopWindow& window : ListTopWindows()) {
        const std::string_view title = FirstCharacters(window.Title, LongestTitle);
        if (!title.empty() && Contains(title, wanted)) {
            return window.Handle;
        }
    }
    return 0;
}
