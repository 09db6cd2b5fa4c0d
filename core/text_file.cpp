#include "core/text_file.h"

#include "platform/error_codes.h"

#include <algorithm>

namespace ostrand {

namespace {

std::u16string_view TextOf(VLineEnd lineEnd)
{
    switch (lineEnd) {
    case VLineEnd::Cr:
        return u"\r";
    case VLineEnd::Lf:
        return u"\n";
    case VLineEnd::CrLf:
    case VLineEnd::CrLfToo:
        break;
    }
    return u"\r\n";
}

bool IsLineEnd(char16_t c) { return c == u'\r' || c == u'\n'; }

} // namespace

unsigned VTextFile::Open(std::u16string_view path, VFileAccess access, VFileDisposition disposition)
{
    const bool mayExist = disposition == VFileDisposition::OpenExisting || disposition == VFileDisposition::OpenAlways;
    if (mayExist && access == VFileAccess::Write)
        access = VFileAccess::ReadWrite;
    unsigned code = VFile::Open(path, access, disposition);
    if (code != kErrorSuccess)
        return code;
    const bool isThere = disposition == VFileDisposition::OpenExisting || (mayExist && Existed());
    code = isThere ? ReadFirstBlock() : WriteMark();
    if (code != kErrorSuccess)
        Close();
    return code;
}

void VTextFile::Close()
{
    VFile::Close();
    m_held = 0;
    m_text.clear();
    m_position = 0;
    m_pendingReturn = false;
    m_isReading = false;
    m_error = kErrorSuccess;
}

unsigned VTextFile::WriteMark()
{
    if (encoding == VTextEncoding::Unknown)
        encoding = VTextEncoding::Utf16;
    const std::string_view mark = MarkOf(encoding);
    return Write(mark.data(), mark.size());
}

unsigned VTextFile::ReadFirstBlock()
{
    encoding = VTextEncoding::Unknown;
    ReadBlock();
    return m_error;
}

unsigned VTextFile::ReadBytes(size_t& count)
{
    // A block is filled to its end, so that short reads of the platform don't move the borders of blocks.
    count = 0;
    while (count < kBlockSize) {
        size_t got = 0;
        const unsigned code = Read(m_bytes.data() + m_held + count, kBlockSize - count, got);
        if (code != kErrorSuccess)
            return code;
        if (got == 0)
            break;
        count += got;
    }
    return kErrorSuccess;
}

bool VTextFile::ReadBlock()
{
    m_text.clear();
    m_position = 0;
    size_t count = 0;
    m_isReading = true;
    m_error = ReadBytes(count);
    std::string_view bytes(m_bytes.data(), m_held + count);
    if (m_error == kErrorSuccess && encoding == VTextEncoding::Unknown) {
        encoding = DetectEncoding(bytes);
        bytes.remove_prefix(MarkOf(encoding).size());
    }
    if (m_error != kErrorSuccess || count == 0)
        return false;
    bytes.remove_prefix(DecodeText(encoding, bytes, m_text));
    m_held = bytes.copy(m_bytes.data(), bytes.size());
    return true;
}

bool VTextFile::ReadLine(VUnicodeString& line, size_t maximum)
{
    VUnicodeString text;
    m_error = kErrorSuccess;
    for (;;) {
        if (m_position == m_text.size()) {
            if (!ReadBlock())
                break;
            continue;
        }
        if (m_pendingReturn) {
            m_pendingReturn = false;
            if (m_text[m_position] == u'\n') {
                ++m_position;
                continue;
            }
        }
        // Not looked at further than the line may reach, or many a call on one long line would see all of it again.
        const std::u16string_view left = std::u16string_view(m_text).substr(m_position);
        const size_t room = maximum - text.GetLength();
        const auto end =
            std::find_if(left.begin(), left.begin() + static_cast<ptrdiff_t>(std::min(left.size(), room)), IsLineEnd);
        const auto taken = static_cast<size_t>(end - left.begin());
        text += left.substr(0, taken);
        m_position += taken;
        if (taken == left.size())
            continue;
        if (!IsLineEnd(left[taken])) {
            m_error = kErrorMoreData;
            return false;
        }
        m_pendingReturn = left[taken] == u'\r';
        ++m_position;
        line = std::move(text);
        return true;
    }
    // The last line may lack its end.
    if (m_error != kErrorSuccess || text.IsEmpty())
        return false;
    line = std::move(text);
    return true;
}

unsigned VTextFile::WriteText(std::u16string_view text)
{
    if (m_isReading) {
        uint64_t size = 0;
        unsigned code = GetSize(size);
        if (code == kErrorSuccess)
            code = Seek(size);
        if (code != kErrorSuccess)
            return code;
        m_text.clear();
        m_position = m_held = 0;
        m_isReading = false;
    }
    const std::string bytes = EncodeText(encoding, text);
    return Write(bytes.data(), bytes.size());
}

unsigned VTextFile::WriteLine(std::u16string_view text)
{
    std::u16string line(text);
    line += TextOf(lineEnd);
    return WriteText(line);
}

} // namespace ostrand
