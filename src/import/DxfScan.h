// DxfScan.h -- first stage of the drawing reader: bytes to groups (a code and its value), ASCII and binary alike.
#pragma once

#include <cstdint>
#include <string_view>

enum class DxfForm : std::uint8_t {
    Ascii,
    BinaryShort, ///< one byte per group code, as the oldest binary drawings have it
    BinaryWide   ///< two bytes per group code
};

/// One group. Text points into the drawing's bytes.
struct DxfGroup {
    int Code = -1;
    bool IsNumber = false; ///< a binary number, in Value; otherwise the value is Text
    double Value = 0.0;
    std::string_view Text;
};

/// The place in the bytes. They must outlive the scanner and every Text it gave.
struct DxfScanner {
    const char* At = nullptr;
    const char* End = nullptr;
    DxfForm Form = DxfForm::Ascii;
};

/// Starts at the first group: finds the form, passes over a byte-order mark or the binary head.
void OpenScanner(DxfScanner& scanner, std::string_view bytes);

/// The next group; comments (999) are passed over, and so is a line that should hold a code and doesn't. False at the
/// end of the bytes or at a binary group whose length nobody knows.
bool NextGroup(DxfScanner& scanner, DxfGroup& group);

/// The value as a number by the plain rule (the leading number, or 0). Not-a-number and infinity, in whatever
/// spelling, come out as not-a-number, so that the entity can be left out.
double GroupNumber(const DxfGroup& group);

/// The same cut to a 32-bit integer, clamped to its range; not-a-number gives 0.
std::int32_t GroupInteger(const DxfGroup& group);

/// The text without blanks at its ends; empty for a binary number.
std::string_view GroupText(const DxfGroup& group);
