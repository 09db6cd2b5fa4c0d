#include "stores/file_check.h"

#include "core/fold.h"
#include "stores/damage_scan.h"
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

bool IsSilent(std::string_view line)
{
    const size_t first = line.find_first_not_of(" \t");
    return first == std::string_view::npos || line[first] == ';' || line[first] == '#';
}

} // namespace

bool IsDamage(FileFaultKind kind)
{
    return kind == FileFaultKind::ZeroByte || kind == FileFaultKind::InvalidUtf8 ||
           kind == FileFaultKind::ConflictMark || kind == FileFaultKind::CutLine;
}

std::optional<FileFaultKind> CheckLine(std::string_view line, std::u16string& name)
{
    const bool hasEnd = line.ends_with('\n');
    line.remove_suffix(hasEnd);
    line.remove_suffix(line.ends_with('\r'));
    VUnicodeString decoded;
    if (line.find('\0') != std::string_view::npos)
        return FileFaultKind::ZeroByte;
    if (!FromUtf8(line, decoded))
        return FileFaultKind::InvalidUtf8;
    if (IsMergeMark(line))
        return FileFaultKind::ConflictMark;
    ValueParts parts;
    if (IsSilent(line) || (CutLine(line, parts) && DecodeName(parts.name, name) && KindOfValue(parts.value)))
        return std::nullopt;
    return hasEnd ? FileFaultKind::Unparseable : FileFaultKind::CutLine;
}

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
        const std::string_view line = text.substr(0, std::min(text.find('\n'), text.size() - 1) + 1);
        text.remove_prefix(line.size());
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
    if (isCut && (faults.empty() || faults.back().kind != FileFaultKind::CutLine))
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
        return u"has no line end, and may have been cut";
    case FileFaultKind::CutLine:
        break;
    }
    return u"was cut in its midst";
}

} // namespace ostrand
