// VFile: one file of the platform, named by a 16-bit path.
#pragma once

#include "core/strings.h"
#include "platform/files.h"

#include <memory>

namespace ostrand {

/// Closed by its destructor. Results are codes of platform/error_codes.h, 0 for success; every operation but Open on a
/// file that isn't open gives kErrorInvalidParameter. One thread at a time.
class OSTRAND_API VFile {
public:
    VFile() = default;
    virtual ~VFile() = default;
    VFile(const VFile&) = delete;
    VFile& operator=(const VFile&) = delete;

    /// Closes what was open before. A path that no file can have is kErrorFileNotFound.
    [[nodiscard]] virtual unsigned Open(std::u16string_view path, VFileAccess access, VFileDisposition disposition);
    virtual void Close() { m_file.reset(); }
    bool IsOpen() const { return m_file != nullptr; }
    /// The path of the last Open.
    const VUnicodeString& GetPath() const { return m_path; }

    /// The end of the file is success with 0 bytes.
    [[nodiscard]] unsigned Read(void* data, size_t size, size_t& got);
    [[nodiscard]] unsigned Write(const void* data, size_t size);
    [[nodiscard]] unsigned Seek(uint64_t position);
    [[nodiscard]] unsigned GetSize(uint64_t& bytes);

    /// Access mode of a file that Open creates; set before it. Settings and logs may hold what is nobody else's
    /// business.
    unsigned mode = 0600;

protected:
    /// Whether the last Open with OpenAlways found a file.
    bool Existed() const { return m_existed; }

private:
    std::unique_ptr<IFile> m_file;
    VUnicodeString m_path;
    bool m_existed = false;
};

} // namespace ostrand
