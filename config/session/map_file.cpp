#include "config/session/map_file.h"

#include "core/paths/path_tokens.h"
#include "core/scan.h"
#include "core/text_file.h"
#include "platform/error_codes.h"

#include <algorithm>

namespace ostrand {

namespace {

/// Of one map, blank lines and remarks included: more than a thousand a line. A name that leads to a log, a device or
/// a file of one endless line costs no more than this.
constexpr size_t kMostCharacters = 1'000'000;

/// Fills entries until the lines or the entries run out.
unsigned ReadEntries(VTextFile& file, std::span<uint16_t> entries)
{
    size_t left = kMostCharacters;
    VUnicodeString line;
    for (auto entry = entries.begin(); entry != entries.end();) {
        if (left == 0)
            return kErrorMoreData;
        if (!file.ReadLine(line, left))
            return file.GetError();
        left -= std::min(left, line.GetLength() + 1);
        if (line.IsEmpty())
            continue;
        uint32_t number = 0;
        VScanner(line).Hex(number);
        *entry++ = static_cast<uint16_t>(number);
    }
    return kErrorSuccess;
}

} // namespace

bool ReadMapFile(std::u16string_view path, std::span<uint16_t> entries, IReportMessageParams& report)
{
    std::fill(entries.begin(), entries.end(), uint16_t{0});
    VTextFile file;
    unsigned code = file.Open(path, VFileAccess::Read, VFileDisposition::OpenExisting);
    if (code == kErrorSuccess)
        code = ReadEntries(file, entries);
    return code == kErrorSuccess || Fail(report, code, path);
}

std::vector<uint16_t> LoadMapFile(std::u16string_view nameTemplate, size_t size)
{
    if (nameTemplate.empty())
        return {};
    VReportMessageParams report;
    const VUnicodeString path = ExpandPathTokens(nameTemplate, report);
    std::vector<uint16_t> entries(size);
    if (report.GetCode() != kErrorSuccess || !ReadMapFile(path, entries, report)) {
        VReportMessage(0, report);
        return {};
    }
    return entries;
}

} // namespace ostrand
