// Font and line drawing maps. First byte: how many entries the map has, and how short the reads of the file are; the
// rest is the file. What was read is written as lines and read as the same.
#include "config/session/map_file.h"
#include "fuzz/one_file.h"
#include "platform/error_codes.h"

#include <array>
#include <cstdio>
#include <string>

using namespace ostrand;
using fuzz::Check;

namespace {

std::vector<uint16_t> Read(size_t size)
{
    std::vector<uint16_t> entries(size, 0xDEAD);
    VReportMessageParams report;
    const bool isRead = ReadMapFile(fuzz::OneFile::kPath, entries, report);
    Check(isRead == (report.GetCode() == kErrorSuccess));
    Check(isRead || report.GetArgumentCount() == 1);
    return entries;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size == 0)
        return 0;
    fuzz::OneFile input(data, size);
    const size_t count = input.choice % 2 == 0 ? kFontMapSize : kLineDrawingMapSize;
    const std::vector<uint16_t> entries = Read(count);
    Check(entries.size() == count);
    input.files.mostPerRead = 1 + input.choice / 2 % 16;
    Check(Read(count) == entries);

    std::string lines;
    for (const uint16_t entry : entries) {
        std::array<char, 8> line;
        lines.append(line.data(), static_cast<size_t>(std::snprintf(line.data(), line.size(), "%x\n", entry)));
    }
    input.bytes = lines;
    Check(Read(count) == entries);
    return 0;
}
