// Text files of any encoding. First byte: how short the reads are and how long a line may be; the rest is the file.
#include "core/text_file.h"
#include "fuzz/one_file.h"
#include "platform/error_codes.h"

#include <string>
#include <vector>

using namespace ostrand;
using fuzz::Check;

namespace {

using Lines = std::vector<std::u16string>;

Lines ReadLines(VTextFile& file, size_t maximum = VUnicodeString::npos)
{
    Check(file.Open(fuzz::OneFile::kPath, VFileAccess::Read, VFileDisposition::OpenExisting) == kErrorSuccess);
    Lines lines;
    VUnicodeString line;
    do {
        while (file.ReadLine(line, maximum)) {
            Check(line.GetLength() <= maximum && line.View().find_first_of(u"\r\n") == std::u16string_view::npos);
            lines.emplace_back(line.View());
        }
    } while (file.GetError() == kErrorMoreData);
    Check(file.GetError() == kErrorSuccess);
    return lines;
}

bool HasSurrogate(const Lines& lines)
{
    for (const std::u16string& line : lines)
        for (const char16_t c : line)
            if (c >= 0xD800 && c <= 0xDFFF)
                return true;
    return false;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size == 0)
        return 0;
    fuzz::OneFile input(data, size);

    VTextFile file;
    const Lines lines = ReadLines(file);
    const VTextEncoding encoding = file.encoding;
    input.files.mostPerRead = 1 + input.choice % 16;
    Check(ReadLines(file) == lines);
    ReadLines(file, 1 + input.choice % 100);

    // What was read can be written and read again; UTF-8 has no half pairs.
    if (encoding == VTextEncoding::Utf8 && HasSurrogate(lines))
        return 0;
    file.lineEnd = static_cast<VLineEnd>(input.choice % 4);
    Check(file.Open(fuzz::OneFile::kPath, VFileAccess::Write, VFileDisposition::CreateAlways) == kErrorSuccess);
    for (const std::u16string& line : lines)
        Check(file.WriteLine(line) == kErrorSuccess);
    Check(ReadLines(file) == lines && file.encoding == encoding);
    return 0;
}
