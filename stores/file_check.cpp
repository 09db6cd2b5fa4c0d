#include "stores/file_check.h"

#include "core/fold.h"
#include "stores/file_format.h"

#include <algorithm>
#include <map>
#include <optional>

namespace ostrand {

namespace {

struct LessNoCase {
    bool operator()(const std::u16string& a, const std::u16string& b) const
    {
        return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                            [](char16_t x, char16_t y) { return FoldCase(x) < FoldCase(y); });
    }
};

bool IsConflictMark(std::string_view line)
{
    return line == "=======" || line.starts_with("<<<<<<< ") || line.starts_with(">>>>>>> ") ||
           line.starts_with("||||||| ");
}

bool IsSilent(std::string_view line)
{
    const size_t first = line.find_first_not_of(" \t");
    return first == std::string_view::npos || line[first] == ';' || line[first] == '#';
}

/// The fault of one line by itself; `name` is that of its value, also of one whose value is broken.
std::optional<FileFaultKind> CheckLine(std::string_view line, std::u16string& name)
{
    VUnicodeString decoded;
    if (line.find('\0') != std::string_view::npos)
        return FileFaultKind::ZeroByte;
    if (!FromUtf8(line, decoded))
        return FileFaultKind::InvalidUtf8;
    if (IsConflictMark(line))
        return FileFaultKind::ConflictMark;
    ValueParts parts;
    if (IsSilent(line) || (CutLine(line, parts) && DecodeName(parts.name, name) && KindOfValue(parts.value)))
        return std::nullopt;
    return FileFaultKind::Unparseable;
}

} // namespace

std::vector<FileFault> CheckText(std::string_view text)
{
    std::vector<FileFault> faults;
    std::map<std::u16string, size_t, LessNoCase> lines;
    const bool isCut = !text.empty() && !text.ends_with('\n');
    if (text.starts_with("\xEF\xBB\xBF"))
        text.remove_prefix(3);
    size_t number = 0;
    while (!text.empty()) {
        ++number;
        const size_t feed = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, feed);
        text.remove_prefix(std::min(feed + 1, text.size()));
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        std::u16string name;
        ValueParts parts;
        if (const auto kind = CheckLine(line, name))
            faults.push_back({*kind, number, name});
        else if (CutLine(line, parts))
            if (const auto [place, isNew] = lines.try_emplace(name, number); !isNew) {
                faults.push_back({FileFaultKind::DuplicateName, place->second, name});
                place->second = number;
            }
    }
    std::sort(faults.begin(), faults.end(), [](const FileFault& a, const FileFault& b) { return a.line < b.line; });
    if (isCut)
        faults.push_back({FileFaultKind::NoLastLineEnd, std::max<size_t>(number, 1), {}});
    return faults;
}

const char16_t* DescribeFault(FileFaultKind kind)
{
    switch (kind) {
    case FileFaultKind::Unparseable:
        return u"doesn't parse, and reads as missing";
    case FileFaultKind::DuplicateName:
        return u"has a name that a later line repeats; that line counts";
    case FileFaultKind::ZeroByte:
        return u"holds a zero byte";
    case FileFaultKind::InvalidUtf8:
        return u"holds bytes that are no UTF-8";
    case FileFaultKind::ConflictMark:
        return u"is a conflict mark of a merging tool";
    case FileFaultKind::NoLastLineEnd:
        break;
    }
    return u"has no line end, and may have been cut";
}

} // namespace ostrand
