// Files in memory, by path, with reads and writes that can be cut short or fail.
#pragma once

#include "platform/error_codes.h"
#include "platform/platform.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <string>

namespace ostrand::test {

class MemoryFiles : public IFiles {
public:
    std::map<std::string, std::string> contents;
    size_t mostPerRead = static_cast<size_t>(-1);
    unsigned readFailure = kErrorSuccess; ///< what every read answers
    unsigned writeFailure = kErrorSuccess;

    unsigned Open(const std::string& path, VFileAccess, VFileDisposition disposition, unsigned,
                  std::unique_ptr<IFile>& file, bool* existed) override
    {
        const bool isThere = contents.contains(path);
        const bool mayCreate =
            disposition != VFileDisposition::OpenExisting && disposition != VFileDisposition::TruncateExisting;
        if (!isThere && !mayCreate)
            return kErrorFileNotFound;
        if (isThere && disposition == VFileDisposition::CreateNew)
            return kErrorAlreadyExists;
        std::string& bytes = contents[path];
        if (disposition == VFileDisposition::CreateAlways || disposition == VFileDisposition::TruncateExisting)
            bytes.clear();
        file = std::make_unique<File>(*this, bytes);
        if (existed)
            *existed = isThere;
        return kErrorSuccess;
    }
    unsigned OpenAlone(const std::string&, std::unique_ptr<IFile>&, VFileInfo&) override { return kErrorNotSupported; }
    unsigned OpenNameless(const std::string&, std::unique_ptr<IFile>&) override { return kErrorNotSupported; }
    unsigned ReadWhole(const std::string& path, size_t limit, std::string& data, VFileInfo& info) override
    {
        const unsigned code = GetInfo(path, info);
        if (code == kErrorSuccess && info.size > limit)
            return kErrorMoreData;
        if (code == kErrorSuccess)
            data = contents[path];
        return code;
    }
    unsigned GetInfo(const std::string& path, VFileInfo& info) override
    {
        const auto found = contents.find(path);
        if (found == contents.end())
            return kErrorFileNotFound;
        info = VFileInfo();
        info.size = found->second.size();
        return kErrorSuccess;
    }
    unsigned Remove(const std::string& path) override
    {
        return contents.erase(path) ? kErrorSuccess : kErrorFileNotFound;
    }
    unsigned Rename(const std::string& from, const std::string& to) override
    {
        const auto found = contents.find(from);
        if (found == contents.end())
            return kErrorFileNotFound;
        contents[to] = found->second;
        return Remove(from);
    }
    unsigned Exchange(const std::string&, const std::string&) override { return kErrorNotSupported; }
    unsigned CreateFolder(const std::string&, unsigned) override { return kErrorSuccess; }
    unsigned RemoveFolder(const std::string&) override { return kErrorSuccess; }
    unsigned SyncFolder(const std::string&) override { return kErrorSuccess; }
    unsigned SyncMedium(const std::string&) override { return kErrorSuccess; }
    unsigned ListFolder(const std::string&, std::vector<VFolderEntry>& entries) override
    {
        entries.clear();
        return kErrorSuccess;
    }
    bool CanWrite(const std::string&) override { return true; }
    std::string ResolveLinks(const std::string& path) override { return path; }
    unsigned CreateWatch(std::unique_ptr<IFolderWatch>&) override { return kErrorNotSupported; }

private:
    class File : public IFile {
    public:
        File(MemoryFiles& files, std::string& bytes) : m_files(files), m_bytes(bytes) {}
        unsigned Read(void* data, size_t size, size_t& got) override
        {
            got = 0;
            if (m_files.readFailure != kErrorSuccess)
                return m_files.readFailure;
            const size_t left = m_position < m_bytes.size() ? m_bytes.size() - m_position : 0;
            got = std::min({size, left, m_files.mostPerRead});
            std::memcpy(data, m_bytes.data() + m_position, got);
            m_position += got;
            return kErrorSuccess;
        }
        unsigned Write(const void* data, size_t size) override
        {
            if (m_files.writeFailure != kErrorSuccess)
                return m_files.writeFailure;
            m_bytes.resize(std::max(m_bytes.size(), m_position + size));
            m_bytes.replace(m_position, size, static_cast<const char*>(data), size);
            m_position += size;
            return kErrorSuccess;
        }
        unsigned Seek(uint64_t position) override
        {
            m_position = position;
            return kErrorSuccess;
        }
        unsigned GetInfo(VFileInfo& info) override
        {
            info = VFileInfo();
            info.size = m_bytes.size();
            return kErrorSuccess;
        }
        unsigned SetSize(uint64_t size) override
        {
            m_bytes.resize(size);
            return kErrorSuccess;
        }
        unsigned SetRights(const VFileInfo&) override { return kErrorSuccess; }
        unsigned Sync() override { return kErrorSuccess; }
        unsigned Lock(unsigned) override { return kErrorSuccess; }

    private:
        MemoryFiles& m_files;
        std::string& m_bytes;
        size_t m_position = 0;
    };
};

} // namespace ostrand::test
