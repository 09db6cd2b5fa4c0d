#include "tools/standard_input.h"

#include "tools/output.h"

#include <array>
#include <cstdio>

namespace ostrand::tool {

namespace {

constexpr size_t kLargestInput = size_t{1} << 20;

bool ReadAll(std::string& bytes)
{
    std::array<char, 4096> block;
    size_t count = 0;
    while (bytes.size() <= kLargestInput && (count = std::fread(block.data(), 1, block.size(), stdin)) > 0)
        bytes.append(block.data(), count);
    return std::ferror(stdin) == 0;
}

void CutLineEnd(std::string& text)
{
    if (text.ends_with('\n'))
        text.pop_back();
    if (text.ends_with('\r'))
        text.pop_back();
}

} // namespace

Exit ReadInput(VUnicodeString& text)
{
    std::string bytes;
    if (!ReadAll(bytes))
        return Fail(Exit::Failed, "standard input can't be read");
    if (bytes.size() > kLargestInput)
        return Fail(Exit::Failed, "standard input is longer than 1 MiB");
    CutLineEnd(bytes);
    return FromUtf8(bytes, text) ? Exit::Done : Fail(Exit::Failed, "standard input is no UTF-8 text");
}

Exit TakeSecretWord(const std::string& field, const std::string& how, std::string& word)
{
    if (word.empty())
        return Exit::Done;
    if (word != "-")
        return Fail(Exit::Usage, Cited(field) + " is a secret: write '" + Plain(how) +
                                     "' and put it on standard input, where nobody sees it");
    VUnicodeString text;
    if (const Exit read = ReadInput(text); read != Exit::Done)
        return read;
    word = Lossless(text);
    return Exit::Done;
}

} // namespace ostrand::tool
