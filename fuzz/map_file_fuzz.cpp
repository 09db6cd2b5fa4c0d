// Font and line drawing maps. First byte: how many entries the map has, and how short the reads of the file are; the
// rest is the file. What was read is written as lines and read as the same.
#include "config/session/map_file.h"

#include "platform/error_codes.h"
#include "tests/support/memory_files.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>

using namespace ostrand;

namespace {

void Check(bool holds)
{
    if (!holds)
        std::abort();
}

std::vector<uint16_t> Read(size_t size)
{
    std::vector<uint16_t> entries(size, 0xDEAD);
    VReportMessageParams report;
    const bool isRead = ReadMapFile(u"/map", entries, report);
    Check(isRead == (report.GetCode() == kErrorSuccess));
    Check(isRead || report.GetArgumentCount() == 1);
    return entries;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size == 0)
        return 0;
    const VPlatformScope scope;
    test::MemoryFiles files;
    Platform().files = &files;
    std::string& file = files.contents["/map"];
    file.assign(reinterpret_cast<const char*>(data) + 1, size - 1);
    const size_t count = data[0] % 2 == 0 ? kFontMapSize : kLineDrawingMapSize;
    const std::vector<uint16_t> entries = Read(count);
    Check(entries.size() == count);
    files.mostPerRead = 1 + data[0] / 2 % 16;
    Check(Read(count) == entries);

    std::string lines;
    for (const uint16_t entry : entries) {
        std::array<char, 8> line;
        lines.append(line.data(), static_cast<size_t>(std::snprintf(line.data(), line.size(), "%x\n", entry)));
    }
    file = lines;
    Check(Read(count) == entries);
    return 0;
}
