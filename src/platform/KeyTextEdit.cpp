#include "platform/KeyText.h"

namespace
{
/// One change: `Length` characters at `At` give way to `Insert`. Places count in KeyText.Text.
struct Change {
    std::size_t At = 0;
    std::size_t Length = 0;
    std::string Insert;
};

constexpr std::string_view LineEnd = "\r\n";
constexpr std::size_t WideMarkSize = 2;

/// The file after `changes`, which ascend and don't overlap.
std::string Changed(const std::string& bytes, const KeyText& text, const std::vector<Change>& changes)
{
    if (changes.empty()) {
        return bytes;
    }
    const std::size_t width = text.IsWide ? 2 : 1;
    const std::size_t start = text.IsWide ? WideMarkSize : 0;
    std::string result;
    std::size_t done = 0;
    for (const Change& change : changes) {
        const std::size_t at = start + change.At * width;
        result.append(bytes, done, at - done);
        result.append(text.IsWide ? Widened(change.Insert) : change.Insert);
        done = at + change.Length * width;
    }
    // Half a character at the end of a UTF-16 file is left out: what is put behind it would be unreadable.
    return result.append(bytes, done, start + text.Text.size() * width - done);
}

/// What a search for a section and key met.
struct Found {
    bool Section = false;
    bool Key = false;
    KeyTextLine KeyLine;
    KeyTextLine InsertBehind; ///< where a new key goes
};

Found FindLines(const KeyText& text, std::string_view section, std::string_view key)
{
    Found found;
    bool anyKey = false;
    std::string_view rest = text.Text;
    KeyTextLine line;
    while (!found.Key && NextKeyTextLine(rest, line)) {
        if (line.Kind == KeyTextKind::Header) {
            if (found.Section) {
                break;
            }
            found.Section = IsNamed(text, line.Name, section);
            found.InsertBehind = line;
        } else if (found.Section && line.Kind == KeyTextKind::Key) {
            found.Key = IsNamed(text, line.Name, key);
            found.KeyLine = line;
            found.InsertBehind = line;
            anyKey = true;
        } else if (found.Section && line.Kind == KeyTextKind::Comment && !anyKey) {
            found.InsertBehind = line; // the comments of a header come ahead of the first key
        }
    }
    return found;
}

std::size_t OffsetOf(const KeyText& text, const KeyTextLine& line)
{
    return static_cast<std::size_t>(line.Whole.data() - text.Text.data());
}

std::string KeyLineText(std::string_view name, std::string_view value)
{
    return std::string(name).append("=").append(value).append(LineEnd);
}

bool EndsItsLastLine(std::string_view text)
{
    return text.empty() || text.back() == '\n' || text.back() == '\r';
}
} // namespace

std::string WithKeySet(const std::string& bytes, std::string_view section, std::string_view key,
                       std::string_view value)
{
    KeyText text;
    DecodeKeyText(bytes, text);
    section = NameArgument(section);
    key = NameArgument(key);
    value = value.substr(0, value.find('\0'));
    const Found found = FindLines(text, section, key);
    Change change;
    if (found.Key) {
        const std::string_view old = found.KeyLine.Value;
        if (found.KeyLine.HasValue && old == value && IsNamed(text, old, value)) {
            return bytes;
        }
        change = {OffsetOf(text, found.KeyLine), found.KeyLine.Whole.size(),
                  KeyLineText(found.KeyLine.Name, value)};
    } else if (found.Section) {
        change.At = OffsetOf(text, found.InsertBehind) + found.InsertBehind.Whole.size();
        change.Insert = found.InsertBehind.Ended ? "" : LineEnd;
        change.Insert += KeyLineText(key, value);
    } else {
        change.At = text.Text.size();
        change.Insert = EndsItsLastLine(text.Text) ? "" : LineEnd;
        change.Insert.append("[").append(section).append("]").append(LineEnd).append(KeyLineText(key, value));
    }
    return Changed(bytes, text, {change});
}

std::string WithoutKey(const std::string& bytes, std::string_view section, std::string_view key)
{
    KeyText text;
    DecodeKeyText(bytes, text);
    const Found found = FindLines(text, NameArgument(section), NameArgument(key));
    std::vector<Change> changes;
    if (found.Key) {
        changes.push_back({OffsetOf(text, found.KeyLine), found.KeyLine.Whole.size(), ""});
    }
    return Changed(bytes, text, changes);
}

std::string WithoutSection(const std::string& bytes, std::string_view section)
{
    KeyText text;
    DecodeKeyText(bytes, text);
    section = NameArgument(section);
    std::vector<Change> changes;
    std::string_view rest = text.Text;
    KeyTextLine line;
    bool inSection = false;
    while (NextKeyTextLine(rest, line)) {
        const bool header = line.Kind == KeyTextKind::Header;
        if (header && inSection) {
            break;
        }
        inSection = inSection || (header && IsNamed(text, line.Name, section));
        if (inSection && (header || line.Kind == KeyTextKind::Key)) {
            changes.push_back({OffsetOf(text, line), line.Whole.size(), ""});
        }
    }
    return Changed(bytes, text, changes);
}
