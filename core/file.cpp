#include "core/file.h"

#include "core/native_path.h"
#include "platform/error_codes.h"
#include "platform/platform.h"

namespace ostrand {

unsigned VFile::Open(std::u16string_view path, VFileAccess access, VFileDisposition disposition)
{
    Close();
    m_path = path;
    m_existed = false;
    std::string native;
    if (!ToNativePath(path, native))
        return kErrorFileNotFound;
    return Platform().files->Open(native, access, disposition, mode, m_file, &m_existed);
}

unsigned VFile::Read(void* data, size_t size, size_t& got)
{
    got = 0;
    if (!m_file)
        return kErrorInvalidParameter;
    const unsigned code = m_file->Read(data, size, got);
    return code == kErrorHandleEof ? kErrorSuccess : code;
}

unsigned VFile::Write(const void* data, size_t size)
{
    return m_file ? m_file->Write(data, size) : kErrorInvalidParameter;
}

unsigned VFile::Seek(uint64_t position) { return m_file ? m_file->Seek(position) : kErrorInvalidParameter; }

unsigned VFile::GetSize(uint64_t& bytes)
{
    VFileInfo info;
    const unsigned code = m_file ? m_file->GetInfo(info) : kErrorInvalidParameter;
    if (code == kErrorSuccess)
        bytes = info.size;
    return code;
}

} // namespace ostrand
