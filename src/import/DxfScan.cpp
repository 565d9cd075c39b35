#include "import/DxfScan.h"

#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>

namespace
{

constexpr int CommentCode = 999;
constexpr int MaxCodeDigits = 6;

/// The binary head is 22 bytes; its first word is passed over unread.
constexpr std::size_t BinaryHeadLength = 22;
constexpr std::size_t BinaryMarkStart = 7;
constexpr std::string_view BinaryMark{" Binary DXF\r\n\x1a\0", 15};
constexpr std::string_view ByteOrderMark{"\xEF\xBB\xBF"};

bool IsBlank(char c)
{
    return c == ' ' || c == '\t';
}

/// True when one of the eight bytes is zero; its lowest set bit then stands in the first such byte.
std::uint64_t ZeroByteMask(std::uint64_t word)
{
    return (word - 0x0101010101010101ULL) & ~word & 0x8080808080808080ULL;
}

/// First CR or LF at or after `at`. Eight bytes at a step: the values of real drawings are short, but many.
const char* LineEnd(const char* at, const char* end)
{
    if constexpr (std::endian::native == std::endian::little) {
        while (end - at >= 8) {
            std::uint64_t word = 0;
            std::memcpy(&word, at, sizeof word);
            const std::uint64_t hit =
                ZeroByteMask(word ^ 0x0A0A0A0A0A0A0A0AULL) | ZeroByteMask(word ^ 0x0D0D0D0D0D0D0D0DULL);
            if (hit != 0) {
                return at + (std::countr_zero(hit) >> 3);
            }
            at += 8;
        }
    }
    while (at < end && *at != '\n' && *at != '\r') {
        ++at;
    }
    return at;
}

/// Past one line end: LF, CR, CR LF, and the CR CR LF of a text that was converted twice.
const char* PastLineEnd(const char* at, const char* end)
{
    if (at == end) {
        return at;
    }
    if (*at == '\n') {
        return at + 1;
    }
    if (end - at >= 2 && at[1] == '\n') {
        return at + 2;
    }
    if (end - at >= 3 && at[1] == '\r' && at[2] == '\n') {
        return at + 3;
    }
    return at + 1;
}

/// Reads the line that should hold a code and passes its end. False when it holds something else.
bool ReadCodeLine(DxfScanner& scanner, int& code)
{
    const char* at = scanner.At;
    const char* const end = scanner.End;
    while (at < end && IsBlank(*at)) {
        ++at;
    }
    const bool negative = at < end && *at == '-';
    if (negative) {
        ++at;
    }
    const char* const digits = at;
    int value = 0;
    while (at < end && *at >= '0' && *at <= '9' && at - digits < MaxCodeDigits) {
        value = value * 10 + (*at - '0');
        ++at;
    }
    const bool anyDigit = at != digits;
    while (at < end && IsBlank(*at)) {
        ++at;
    }
    if (anyDigit && (at == end || *at == '\n' || *at == '\r')) {
        scanner.At = PastLineEnd(at, end);
        code = negative ? -value : value;
        return true;
    }
    scanner.At = PastLineEnd(LineEnd(at, end), end);
    return false;
}

bool NextAsciiGroup(DxfScanner& scanner, DxfGroup& group)
{
    while (scanner.At < scanner.End) {
        if (!ReadCodeLine(scanner, group.Code)) {
            continue;
        }
        if (scanner.At == scanner.End) {
            return false;
        }
        const char* const first = scanner.At;
        const char* const last = LineEnd(first, scanner.End);
        scanner.At = PastLineEnd(last, scanner.End);
        if (group.Code != CommentCode) {
            group.Text = std::string_view(first, static_cast<std::size_t>(last - first));
            return true;
        }
    }
    return false;
}

enum class BinaryValue : std::uint8_t { Unknown, Text, Double, Int8, Int16, Int32, Int64, Chunk };

struct BinaryRange {
    int Last; ///< highest code of the range; it starts after the range before
    BinaryValue Value;
};

constexpr BinaryRange BinaryRanges[] = {
    {9, BinaryValue::Text},      {59, BinaryValue::Double},   {79, BinaryValue::Int16},
    {89, BinaryValue::Unknown},  {99, BinaryValue::Int32},    {109, BinaryValue::Text},
    {149, BinaryValue::Double},  {159, BinaryValue::Unknown}, {169, BinaryValue::Int64},
    {179, BinaryValue::Int16},   {209, BinaryValue::Unknown}, {239, BinaryValue::Double},
    {269, BinaryValue::Unknown}, {289, BinaryValue::Int16},   {299, BinaryValue::Int8},
    {309, BinaryValue::Text},    {319, BinaryValue::Chunk},   {369, BinaryValue::Text},
    {389, BinaryValue::Int16},   {399, BinaryValue::Text},    {409, BinaryValue::Int16},
    {419, BinaryValue::Text},    {429, BinaryValue::Int32},   {439, BinaryValue::Text},
    {459, BinaryValue::Int32},   {469, BinaryValue::Double},  {481, BinaryValue::Text},
    {998, BinaryValue::Unknown}, {1003, BinaryValue::Text},   {1004, BinaryValue::Chunk},
    {1009, BinaryValue::Text},   {1059, BinaryValue::Double}, {1070, BinaryValue::Int16},
    {1071, BinaryValue::Int32},
};

BinaryValue BinaryValueOf(int code)
{
    if (code >= 0) {
        for (const BinaryRange& range : BinaryRanges) {
            if (code <= range.Last) {
                return range.Value;
            }
        }
    }
    return BinaryValue::Unknown;
}

/// Takes `count` bytes as a little-endian number. False when they aren't there.
bool TakeBytes(DxfScanner& scanner, int count, std::uint64_t& bits)
{
    if (scanner.End - scanner.At < count) {
        return false;
    }
    bits = 0;
    for (int i = 0; i < count; ++i) {
        bits |= std::uint64_t{static_cast<unsigned char>(scanner.At[i])} << (8 * i);
    }
    scanner.At += count;
    return true;
}

bool TakeInteger(DxfScanner& scanner, int count, DxfGroup& group)
{
    std::uint64_t bits = 0;
    if (!TakeBytes(scanner, count, bits)) {
        return false;
    }
    const int spare = 64 - 8 * count;
    group.Value = static_cast<double>(static_cast<std::int64_t>(bits << spare) >> spare);
    group.IsNumber = true;
    return true;
}

bool TakeText(DxfScanner& scanner, DxfGroup& group)
{
    const auto left = static_cast<std::size_t>(scanner.End - scanner.At);
    const void* const zero = left == 0 ? nullptr : std::memchr(scanner.At, 0, left);
    if (zero == nullptr) {
        return false;
    }
    const auto length = static_cast<std::size_t>(static_cast<const char*>(zero) - scanner.At);
    group.Text = std::string_view(scanner.At, length);
    group.IsNumber = false;
    scanner.At += length + 1;
    return true;
}

bool TakeChunk(DxfScanner& scanner, DxfGroup& group)
{
    std::uint64_t length = 0;
    if (!TakeBytes(scanner, 1, length) || static_cast<std::uint64_t>(scanner.End - scanner.At) < length) {
        return false;
    }
    group.Text = std::string_view(scanner.At, length);
    group.IsNumber = false;
    scanner.At += length;
    return true;
}

bool TakeBinaryCode(DxfScanner& scanner, int& code)
{
    std::uint64_t bits = 0;
    if (scanner.Form == DxfForm::BinaryShort) {
        if (!TakeBytes(scanner, 1, bits)) {
            return false;
        }
        if (bits != 255) { // 255 announces a code of two bytes
            code = static_cast<int>(bits);
            return true;
        }
    }
    if (!TakeBytes(scanner, 2, bits)) {
        return false;
    }
    code = static_cast<int>(bits);
    return true;
}

bool TakeBinaryValue(DxfScanner& scanner, DxfGroup& group)
{
    switch (BinaryValueOf(group.Code)) {
    case BinaryValue::Text:
        return TakeText(scanner, group);
    case BinaryValue::Double: {
        std::uint64_t bits = 0;
        if (!TakeBytes(scanner, 8, bits)) {
            return false;
        }
        group.Value = std::bit_cast<double>(bits);
        group.IsNumber = true;
        return true;
    }
    case BinaryValue::Int8:
        return TakeInteger(scanner, 1, group);
    case BinaryValue::Int16:
        return TakeInteger(scanner, 2, group);
    case BinaryValue::Int32:
        return TakeInteger(scanner, 4, group);
    case BinaryValue::Int64:
        return TakeInteger(scanner, 8, group);
    case BinaryValue::Chunk:
        return TakeChunk(scanner, group);
    case BinaryValue::Unknown:
        break;
    }
    return false;
}

bool NextBinaryGroup(DxfScanner& scanner, DxfGroup& group)
{
    do {
        if (!TakeBinaryCode(scanner, group.Code) || !TakeBinaryValue(scanner, group)) {
            scanner.At = scanner.End; // the rest can't be told apart
            return false;
        }
    } while (group.Code == CommentCode);
    return true;
}

/// Two-byte codes show in the first group, which is "0 SECTION" or a comment.
DxfForm BinaryFormOf(std::string_view bytes)
{
    const std::string_view first = bytes.substr(BinaryHeadLength, 2);
    const bool wide = first == std::string_view("\0\0", 2) || first == std::string_view("\xE7\x03", 2);
    return wide ? DxfForm::BinaryWide : DxfForm::BinaryShort;
}

constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

constexpr double PowersOfTen[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                  1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr int MaxExactPower = 22;
constexpr int MaxExactDigits = 15; ///< as many always fit the 53 bits of a double

/// The rare forms: long digit strings, exponents, what isn't a number at all.
double ParseNumberSlowly(const char* first, const char* last)
{
    const char* at = first;
    const bool negative = at < last && *at == '-';
    if (at < last && (*at == '+' || *at == '-')) {
        ++at;
    }
    if (at == last) {
        return 0.0;
    }
    const bool number = (*at >= '0' && *at <= '9') || *at == '.';
    if (!number) {
        const char lower = static_cast<char>(*at | 0x20);
        return lower == 'n' || lower == 'i' ? NotANumber : 0.0; // "nan", "inf", "infinity"
    }
    double value = 0.0;
    const std::from_chars_result result = std::from_chars(at, last, value);
    if (result.ec == std::errc::result_out_of_range) {
        const std::string_view spelled(at, static_cast<std::size_t>(result.ptr - at));
        const bool tiny = spelled.find("e-") != std::string_view::npos ||
                          spelled.find("E-") != std::string_view::npos || spelled[0] == '0' ||
                          spelled[0] == '.';
        return tiny ? 0.0 : NotANumber;
    }
    if (result.ec != std::errc()) {
        return 0.0;
    }
    if (result.ptr < last && *result.ptr == '#') {
        return NotANumber; // "1.#QNAN", "1.#INF"
    }
    return negative ? -value : value;
}

double ParseNumber(std::string_view text)
{
    const char* first = text.data();
    const char* const last = first + text.size();
    while (first < last && IsBlank(*first)) {
        ++first;
    }
    const char* at = first;
    const bool negative = at < last && *at == '-';
    if (at < last && (*at == '+' || *at == '-')) {
        ++at;
    }
    std::uint64_t mantissa = 0;
    int digits = 0;
    int decimals = 0;
    for (; at < last && *at >= '0' && *at <= '9' && digits <= MaxExactDigits; ++at, ++digits) {
        mantissa = mantissa * 10 + static_cast<std::uint64_t>(*at - '0');
    }
    if (at < last && *at == '.') {
        ++at;
        for (; at < last && *at >= '0' && *at <= '9' && digits <= MaxExactDigits;
             ++at, ++digits, ++decimals) {
            mantissa = mantissa * 10 + static_cast<std::uint64_t>(*at - '0');
        }
    }
    // Exact in two steps: an integer that fits the mantissa, over a power of ten that is exact itself.
    const bool plain = at == last || IsBlank(*at);
    if (plain && digits > 0 && digits <= MaxExactDigits && decimals <= MaxExactPower) {
        const double value = static_cast<double>(mantissa) / PowersOfTen[decimals];
        return negative ? -value : value;
    }
    return ParseNumberSlowly(first, last);
}

} // namespace

void OpenScanner(DxfScanner& scanner, std::string_view bytes)
{
    scanner.Form = DxfForm::Ascii;
    std::size_t start = 0;
    if (bytes.size() >= BinaryHeadLength && bytes.substr(BinaryMarkStart, BinaryMark.size()) == BinaryMark) {
        scanner.Form = BinaryFormOf(bytes);
        start = BinaryHeadLength;
    } else if (bytes.substr(0, ByteOrderMark.size()) == ByteOrderMark) {
        start = ByteOrderMark.size();
    }
    scanner.At = bytes.data() + start;
    scanner.End = bytes.data() + bytes.size();
}

bool NextGroup(DxfScanner& scanner, DxfGroup& group)
{
    return scanner.Form == DxfForm::Ascii ? NextAsciiGroup(scanner, group) : NextBinaryGroup(scanner, group);
}

double GroupNumber(const DxfGroup& group)
{
    if (!group.IsNumber) {
        return ParseNumber(group.Text);
    }
    return std::isfinite(group.Value) ? group.Value : NotANumber;
}

std::int32_t GroupInteger(const DxfGroup& group)
{
    const double value = GroupNumber(group);
    if (std::isnan(value)) {
        return 0;
    }
    if (value >= static_cast<double>(std::numeric_limits<std::int32_t>::max())) {
        return std::numeric_limits<std::int32_t>::max();
    }
    if (value <= static_cast<double>(std::numeric_limits<std::int32_t>::min())) {
        return std::numeric_limits<std::int32_t>::min();
    }
    return static_cast<std::int32_t>(value);
}

std::string_view GroupText(const DxfGroup& group)
{
    if (group.IsNumber) {
        return {};
    }
    std::string_view text = group.Text;
    while (!text.empty() && IsBlank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && IsBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}
