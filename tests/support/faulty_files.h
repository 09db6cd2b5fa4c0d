// The real files behind a counter: each call has a number and a name, and any of them can fail, or be the last that
// the process makes.
#pragma once

#include "platform/error_codes.h"
#include "platform/platform.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace ostrand::test {

/// Stands in Platform().files for its lifetime.
class FaultyFiles : public IFiles {
public:
    static constexpr size_t kNever = static_cast<size_t>(-1);

    FaultyFiles() : m_real(*Platform().files) { Platform().files = this; }

    /// Names of the calls so far.
    std::vector<std::string> calls;
    /// Number of the call, from 0, that fails with `failure`.
    size_t failAt = kNever;
    unsigned failure = kErrorDiskFull;
    /// From this call on none does anything any more: the process was killed before it.
    size_t dieAt = kNever;

    /// Starts counting anew, without a fault.
    void Reset()
    {
        calls.clear();
        failAt = dieAt = kNever;
    }

    unsigned Open(const std::string& path, VFileAccess access, VFileDisposition disposition, unsigned mode,
                  std::unique_ptr<IFile>& file, bool* existed) override
    {
        std::unique_ptr<IFile> opened;
        const unsigned code =
            Step("Open", [&] { return m_real.Open(path, access, disposition, mode, opened, existed); });
        if (code == kErrorSuccess)
            file = std::make_unique<File>(*this, std::move(opened));
        return code;
    }
    unsigned OpenAlone(const std::string& path, std::unique_ptr<IFile>& file, VFileInfo& info) override
    {
        std::unique_ptr<IFile> opened;
        const unsigned code = Step("OpenAlone", [&] { return m_real.OpenAlone(path, opened, info); });
        if (code == kErrorSuccess)
            file = std::make_unique<File>(*this, std::move(opened));
        return code;
    }
    unsigned OpenNameless(const std::string& path, std::unique_ptr<IFile>& file) override
    {
        std::unique_ptr<IFile> opened;
        const unsigned code =
            Step("OpenNameless", [&] { return refusesNameless ? failure : m_real.OpenNameless(path, opened); });
        if (code == kErrorSuccess)
            file = std::make_unique<File>(*this, std::move(opened));
        return code;
    }
    unsigned ReadWhole(const std::string& path, size_t limit, std::string& data, VFileInfo& info) override
    {
        return Step("ReadWhole", [&] { return m_real.ReadWhole(path, limit, data, info); });
    }
    unsigned GetInfo(const std::string& path, VFileInfo& info) override
    {
        return Step("GetInfo", [&] { return m_real.GetInfo(path, info); });
    }
    unsigned Rename(const std::string& from, const std::string& to) override
    {
        return Step("Rename", [&] { return m_real.Rename(from, to); });
    }
    unsigned Exchange(const std::string& a, const std::string& b) override
    {
        return Step("Exchange", [&] { return m_real.Exchange(a, b); });
    }
    unsigned Remove(const std::string& path) override
    {
        return Step("Remove", [&] { return m_real.Remove(path); });
    }
    unsigned CreateFolder(const std::string& path, unsigned mode) override
    {
        return Step("CreateFolder", [&] { return m_real.CreateFolder(path, mode); });
    }
    unsigned RemoveFolder(const std::string& path) override
    {
        return Step("RemoveFolder", [&] { return m_real.RemoveFolder(path); });
    }
    unsigned SyncFolder(const std::string& path) override
    {
        return Step("SyncFolder", [&] { return m_real.SyncFolder(path); });
    }
    unsigned SyncMedium(const std::string& path) override
    {
        return Step("SyncMedium", [&] { return m_real.SyncMedium(path); });
    }
    unsigned ListFolder(const std::string& path, std::vector<VFolderEntry>& entries) override
    {
        return Step("ListFolder", [&] { return m_real.ListFolder(path, entries); });
    }
    bool CanWrite(const std::string& path) override
    {
        return !notWritable && Step("CanWrite", [&] { return m_real.CanWrite(path) ? 0u : kErrorAccessDenied; }) == 0;
    }
    std::string ResolveLinks(const std::string& path) override { return m_real.ResolveLinks(path); }
    unsigned CreateWatch(std::unique_ptr<IFolderWatch>& watch) override
    {
        return Step("CreateWatch", [&] { return m_real.CreateWatch(watch); });
    }

    /// As a folder on a medium that can't be written. Tests may run with all rights, so modes don't do.
    bool notWritable = false;
    /// As a disk that has no room for another file.
    bool refusesNameless = false;

private:
    class File : public IFile {
    public:
        File(FaultyFiles& files, std::unique_ptr<IFile> real) : m_files(files), m_real(std::move(real)) {}
        unsigned Read(void* data, size_t size, size_t& got) override
        {
            return m_files.Step("Read", [&] { return m_real->Read(data, size, got); });
        }
        unsigned Write(const void* data, size_t size) override
        {
            // A write that fails, or is cut by the end of the process, leaves half of its bytes.
            return m_files.Step(
                "Write", [&] { return m_real->Write(data, size); }, [&] { m_real->Write(data, size / 2); });
        }
        unsigned Seek(uint64_t position) override
        {
            return m_files.Step("Seek", [&] { return m_real->Seek(position); });
        }
        unsigned GetInfo(VFileInfo& info) override
        {
            return m_files.Step("GetInfo", [&] { return m_real->GetInfo(info); });
        }
        unsigned SetSize(uint64_t size) override
        {
            return m_files.Step("SetSize", [&] { return m_real->SetSize(size); });
        }
        unsigned SetRights(const VFileInfo& like) override
        {
            return m_files.Step("SetRights", [&] { return m_real->SetRights(like); });
        }
        unsigned Sync() override
        {
            return m_files.Step("Sync", [&] { return m_real->Sync(); });
        }
        unsigned Lock(unsigned milliseconds) override
        {
            return m_files.Step("Lock", [&] { return m_real->Lock(milliseconds); });
        }

    private:
        FaultyFiles& m_files;
        std::unique_ptr<IFile> m_real;
    };

    template <class Call>
    unsigned Step(const char* name, Call call)
    {
        return Step(name, call, [] {});
    }
    template <class Call, class Half>
    unsigned Step(const char* name, Call call, Half half)
    {
        const size_t number = calls.size();
        calls.emplace_back(name);
        if (number == failAt || number == dieAt)
            half();
        if (number >= dieAt)
            return kErrorGeneralFailure;
        return number == failAt ? failure : call();
    }

    VPlatformScope m_scope; // puts the real ones back
    IFiles& m_real;
};

} // namespace ostrand::test
