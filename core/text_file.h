// VTextFile: a text file read and written by lines, in one of four encodings.
//
//     VTextFile file;
//     if (file.Open(path, VFileAccess::Read, VFileDisposition::OpenExisting) == kErrorSuccess)
//         for (VUnicodeString line; file.ReadLine(line);)
//             ...
#pragma once

#include "core/file.h"
#include "core/text_encoding.h"

#include <array>

namespace ostrand {

/// What WriteLine puts behind a line. The numbers are those by which callers name it.
enum class VLineEnd : int { CrLf = 0, Cr = 1, Lf = 2, CrLfToo = 3 };

class OSTRAND_API VTextFile : public VFile {
public:
    static constexpr size_t kBlockSize = 4096;

    explicit VTextFile(VTextEncoding initialEncoding = VTextEncoding::Unknown, VLineEnd initialLineEnd = VLineEnd::CrLf)
        : encoding(initialEncoding),
          lineEnd(initialLineEnd)
    {
    }

    /// A file made or emptied gets the mark of `encoding`, and an unknown encoding becomes Utf16. A file that was there
    /// decides `encoding` by its mark. To see the mark, VFileAccess::Write opens for reading, too, where it has to.
    [[nodiscard]] unsigned Open(std::u16string_view path, VFileAccess access, VFileDisposition disposition) override;
    void Close() override;

    /// The next line without its end, which is "\r\n", "\r" or "\n"; a last line needs none. False at the end of the
    /// file, after a failed read, and for a line above `maximum` characters, of which no more are then kept in memory;
    /// GetError tells which. A call after one that found too long a line goes on in the midst of it.
    [[nodiscard]] bool ReadLine(VUnicodeString& line, size_t maximum = VUnicodeString::npos);
    /// Why ReadLine was false: 0 for the end, kErrorMoreData for too long a line, else the platform's code.
    unsigned GetError() const { return m_error; }

    /// The text and the line end, in the file's encoding. What was there when the file was opened stays in front.
    [[nodiscard]] unsigned WriteLine(std::u16string_view text);
    /// The text alone.
    [[nodiscard]] unsigned WriteText(std::u16string_view text);

    VTextEncoding encoding;
    VLineEnd lineEnd;

private:
    unsigned WriteMark();
    unsigned ReadFirstBlock();
    /// Fills the buffer from the next block; false at the end and after a failure. The buffer may stay empty.
    bool ReadBlock();
    unsigned ReadBytes(size_t& count);

    // Bytes of one block behind what the block before left of a character.
    std::array<char, kBlockSize + 4> m_bytes{};
    size_t m_held = 0;
    std::u16string m_text;        // of the last block
    size_t m_position = 0;        // in m_text
    bool m_pendingReturn = false; // a "\r" ended the last line, a "\n" right behind belongs to it
    bool m_isReading = false;     // the file's position is behind a block that was read
    unsigned m_error = 0;
};

} // namespace ostrand
