// Text files in their encodings.

#include "core/text_file.h"
#include "tests/support/temp_folder.h"
#include "tests/vectors/json_text.h"

#include <array>
#include <stdexcept>

namespace ostrand::vectors {

namespace {

void Check(unsigned code)
{
    if (code != 0)
        throw std::runtime_error("the file failed with code " + std::to_string(code));
}

Json Read(const Json& theCase)
{
    const std::vector<uint8_t> bytes = ToBytes(theCase.at("file"));
    const test::TempFolder folder;
    folder.Write("f.txt", std::string(bytes.begin(), bytes.end()));
    VTextFile file;
    Check(file.Open(folder.WidePath("f.txt"), VFileAccess::Read, VFileDisposition::OpenExisting));
    Json lines = Json::array();
    for (VUnicodeString line; file.ReadLine(line);)
        lines.push_back(FromText(line));
    Check(file.GetError());
    return {{"encoding", static_cast<int>(file.encoding)}, {"lines", lines}};
}

Json Write(const Json& theCase)
{
    const test::TempFolder folder;
    VTextFile file(static_cast<VTextEncoding>(theCase.at("encoding").get<int>()),
                   static_cast<VLineEnd>(theCase.at("line_end").get<int>()));
    Check(file.Open(folder.WidePath("f.txt"), VFileAccess::Write, VFileDisposition::CreateAlways));
    for (const Json& line : theCase.at("lines"))
        Check(file.WriteLine(ToText(line)));
    file.Close();
    const std::string bytes = folder.Read("f.txt");
    return {{"encoding", static_cast<int>(file.encoding)},
            {"file", FromBytes({reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size()})}};
}

constexpr std::array kKinds = {Kind{"read", Read}, Kind{"read long", Read}, Kind{"write", Write},
                               Kind{"write long", Write}};

} // namespace

std::span<const Kind> TextFileKinds() { return kKinds; }

} // namespace ostrand::vectors
