#include "tests/crash/sim_disk.h"

#include <algorithm>

namespace ostrand::test {

namespace {

constexpr size_t kRoot = 1;
constexpr unsigned kOwnerMayWrite = 0200;
constexpr unsigned kModeOfFolders = 0700;
constexpr unsigned kModeOfFiles = 0600;

} // namespace

class SimDisk::File : public IFile {
public:
    File(SimDisk& disk, Id id) : m_disk(disk), m_id(id) { ++Self().handles; }
    ~File() override
    {
        --Self().handles;
        if (Self().lock == this)
            Self().lock = nullptr;
    }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    unsigned Read(void* data, size_t size, size_t& got) override
    {
        return m_disk.Step("Read", [&] {
            got = Self().bytes.copy(static_cast<char*>(data), size, std::min(m_position, Self().bytes.size()));
            m_position += got;
        });
    }
    unsigned Write(const void* data, size_t size) override
    {
        const auto write = [&](size_t count) {
            if (count > 0)
                m_disk.Alter(m_id, {m_position, std::string(static_cast<const char*>(data), count), false});
            m_position += count;
        };
        return m_disk.Step("Write", [&] { write(size); }, [&] { write(size / 2); });
    }
    unsigned Seek(uint64_t position) override
    {
        return m_disk.Step("Seek", [&] { m_position = position; });
    }
    unsigned GetInfo(VFileInfo& info) override
    {
        return m_disk.Step("GetInfo", [&] { info = m_disk.InfoOf(m_id); });
    }
    unsigned SetSize(uint64_t size) override
    {
        return m_disk.Step("SetSize", [&] { m_disk.Alter(m_id, {size, {}, false}); });
    }
    unsigned SetRights(const VFileInfo& like) override
    {
        return m_disk.Step("SetRights", [&] { Self().rights = {like.mode, like.owner, like.group}; });
    }
    unsigned Sync() override
    {
        return m_disk.Step("Sync", [&] { SyncNode(Self()); }, [&] { m_disk.LoseChanges(Self()); });
    }
    unsigned Lock(unsigned) override
    {
        return m_disk.Step("Lock", [&] {
            if (Self().lock && Self().lock != this)
                return kErrorLockViolation;
            Self().lock = this;
            return kErrorSuccess;
        });
    }

private:
    Node& Self() { return m_disk.m_nodes[m_id]; }

    SimDisk& m_disk;
    Id m_id;
    size_t m_position = 0;
};

SimDisk::SimDisk() : m_nodes(kRoot + 1)
{
    m_nodes[kRoot].isFolder = true;
    m_nodes[kRoot].rights = m_nodes[kRoot].syncedRights = {.mode = kModeOfFolders};
}

void SimDisk::Put(std::string_view path, std::string bytes, unsigned mode)
{
    for (size_t bar = path.find('/', 1); bar != std::string_view::npos; bar = path.find('/', bar + 1))
        if (Place place; Find(path.substr(0, bar), place) == kErrorFileNotFound)
            Commit({place.With(Make(true, kModeOfFolders))});
    Place place;
    if (Find(path, place) == kErrorFileNotFound) {
        place.node = Make(false, mode);
        Commit({place.With(place.node)});
    }
    m_nodes[place.node].bytes = std::move(bytes);
    SyncAll();
}

std::optional<std::string> SimDisk::Text(std::string_view path) const
{
    Id id = 0;
    if (FindNode(path, id) != kErrorSuccess || m_nodes[id].isFolder)
        return std::nullopt;
    return m_nodes[id].bytes;
}

unsigned SimDisk::ModeOf(std::string_view path) const
{
    Id id = 0;
    return FindNode(path, id) == kErrorSuccess ? m_nodes[id].rights.mode : 0;
}

unsigned SimDisk::Find(std::string_view path, Place& place) const
{
    place = {};
    place.node = kRoot;
    for (path.remove_prefix(std::min(path.find_first_not_of('/'), path.size())); !path.empty();) {
        const size_t bar = std::min(path.find('/'), path.size());
        if (place.node == 0)
            return kErrorPathNotFound;
        const Node& folder = m_nodes[place.node];
        if (!folder.isFolder)
            return kErrorPathNotFound;
        place.folder = place.node;
        place.name = path.substr(0, bar);
        const auto found = folder.entries.find(place.name);
        place.node = found == folder.entries.end() ? 0 : found->second;
        path.remove_prefix(std::min(bar + 1, path.size()));
    }
    return place.node == 0 ? kErrorFileNotFound : kErrorSuccess;
}

unsigned SimDisk::FindNode(std::string_view path, Id& node) const
{
    Place place;
    const unsigned code = Find(path, place);
    node = place.node;
    return code;
}

VFileInfo SimDisk::InfoOf(Id id) const
{
    const Node& node = m_nodes[id];
    VFileInfo info;
    info.device = 1;
    info.file = node.number;
    info.size = node.bytes.size();
    info.changed = node.changed;
    info.mode = node.rights.mode;
    info.owner = node.rights.owner;
    info.group = node.rights.group;
    info.isFolder = node.isFolder;
    return info;
}

size_t SimDisk::NamesOf(Id id) const
{
    size_t names = 0;
    for (const Node& node : m_nodes)
        for (const auto& [name, entry] : node.entries)
            names += entry == id;
    return names;
}

uint64_t SimDisk::FreeNumber() const
{
    std::vector<bool> isUsed(m_nodes.size() + 1);
    const auto use = [&](Id id) { isUsed[m_nodes[id].number] = true; };
    for (Id id = 0; id < m_nodes.size(); ++id) {
        for (const auto& [name, entry] : m_nodes[id].entries)
            use(entry);
        if (m_nodes[id].handles > 0)
            use(id);
    }
    return static_cast<uint64_t>(std::ranges::find(isUsed.begin() + kRoot + 1, isUsed.end(), false) - isUsed.begin());
}

SimDisk::Id SimDisk::Make(bool isFolder, unsigned mode)
{
    const uint64_t number = FreeNumber();
    Node& node = m_nodes.emplace_back();
    node.number = number;
    node.isFolder = isFolder;
    node.rights = node.syncedRights = {.mode = mode};
    node.changed = ++m_time;
    return m_nodes.size() - 1;
}

std::unique_ptr<IFile> SimDisk::OpenNode(Id id) { return std::make_unique<File>(*this, id); }

unsigned SimDisk::Open(const std::string& path, VFileAccess access, VFileDisposition disposition, unsigned mode,
                       std::unique_ptr<IFile>& file, bool* existed)
{
    return Step("Open", [&] {
        using D = VFileDisposition;
        Place place;
        const unsigned code = Find(path, place);
        const bool isThere = code == kErrorSuccess;
        if (isThere && disposition == D::CreateNew)
            return kErrorAlreadyExists;
        const bool creates = disposition != D::OpenExisting && disposition != D::TruncateExisting;
        if (!isThere && (code != kErrorFileNotFound || !creates))
            return code;
        if (!isThere) {
            place.node = Make(false, mode);
            Commit({place.With(place.node)});
        }
        const Node& node = m_nodes[place.node];
        if (access != VFileAccess::Read && (node.isFolder || (isThere && (node.rights.mode & kOwnerMayWrite) == 0)))
            return kErrorAccessDenied;
        if (isThere && (disposition == D::CreateAlways || disposition == D::TruncateExisting))
            Alter(place.node, {0, {}, false});
        file = OpenNode(place.node);
        if (existed)
            *existed = isThere;
        return kErrorSuccess;
    });
}

unsigned SimDisk::OpenAlone(const std::string& path, std::unique_ptr<IFile>& file, VFileInfo& info)
{
    return Step("OpenAlone", [&] {
        Id id = 0;
        if (const unsigned code = FindNode(path, id); code != kErrorSuccess)
            return code;
        if (m_nodes[id].isFolder || NamesOf(id) != 1)
            return kErrorNotSupported;
        if (m_nodes[id].handles > 0)
            return kErrorSharingViolation;
        file = OpenNode(id);
        info = InfoOf(id);
        return kErrorSuccess;
    });
}

unsigned SimDisk::OpenNameless(const std::string& path, std::unique_ptr<IFile>& file)
{
    return Step("OpenNameless", [&] {
        Place place;
        if (const unsigned code = Find(path, place); code == kErrorPathNotFound)
            return code;
        file = OpenNode(Make(false, kModeOfFiles));
        return kErrorSuccess;
    });
}

unsigned SimDisk::ReadWhole(const std::string& path, size_t limit, std::string& data, VFileInfo& info)
{
    return Step("ReadWhole", [&] {
        Id id = 0;
        if (const unsigned code = FindNode(path, id); code != kErrorSuccess)
            return code;
        const Node& node = m_nodes[id];
        if (node.isFolder)
            return kErrorInvalidParameter;
        if (node.bytes.size() > limit)
            return kErrorMoreData;
        data = node.bytes;
        info = InfoOf(id);
        return kErrorSuccess;
    });
}

unsigned SimDisk::GetInfo(const std::string& path, VFileInfo& info)
{
    return Step("GetInfo", [&] {
        Id id = 0;
        const unsigned code = FindNode(path, id);
        if (code == kErrorSuccess)
            info = InfoOf(id);
        return code;
    });
}

unsigned SimDisk::Rename(const std::string& from, const std::string& to)
{
    return Step("Rename", [&] {
        Place source;
        Place target;
        if (const unsigned code = Find(from, source); code != kErrorSuccess)
            return code;
        if (const unsigned code = Find(to, target); code != kErrorSuccess && code != kErrorFileNotFound)
            return code;
        if (target.node != 0 && (m_nodes[target.node].isFolder || m_nodes[source.node].isFolder))
            return kErrorAccessDenied;
        if (source.node != target.node)
            Commit({source.With(0), target.With(source.node)});
        return kErrorSuccess;
    });
}

unsigned SimDisk::Exchange(const std::string& a, const std::string& b)
{
    return Step("Exchange", [&] {
        Place first;
        Place second;
        if (!hasExchange)
            return kErrorNotSupported;
        if (const unsigned code = Find(a, first); code != kErrorSuccess)
            return code;
        if (const unsigned code = Find(b, second); code != kErrorSuccess)
            return code;
        Commit({first.With(second.node), second.With(first.node)}, true);
        return kErrorSuccess;
    });
}

unsigned SimDisk::Remove(const std::string& path)
{
    return Step("Remove", [&] {
        Place place;
        if (const unsigned code = Find(path, place); code != kErrorSuccess)
            return code;
        if (m_nodes[place.node].isFolder)
            return kErrorAccessDenied;
        Commit({place.With(0)});
        return kErrorSuccess;
    });
}

unsigned SimDisk::CreateFolder(const std::string& path, unsigned mode)
{
    return Step("CreateFolder", [&] {
        Place place;
        const unsigned code = Find(path, place);
        if (code == kErrorFileNotFound)
            Commit({place.With(Make(true, mode))});
        if (code == kErrorSuccess)
            return kErrorAlreadyExists;
        return code == kErrorFileNotFound ? kErrorSuccess : code;
    });
}

unsigned SimDisk::RemoveFolder(const std::string& path)
{
    return Step("RemoveFolder", [&] {
        Place place;
        if (const unsigned code = Find(path, place); code != kErrorSuccess)
            return code;
        if (!m_nodes[place.node].isFolder || !m_nodes[place.node].entries.empty())
            return kErrorAccessDenied;
        Commit({place.With(0)});
        return kErrorSuccess;
    });
}

unsigned SimDisk::SyncFolder(const std::string& path)
{
    return Step("SyncFolder", [&] {
        Id id = 0;
        if (const unsigned code = FindNode(path, id); code != kErrorSuccess)
            return code;
        if (!m_nodes[id].isFolder)
            return kErrorPathNotFound;
        SyncEntries(id);
        return kErrorSuccess;
    });
}

unsigned SimDisk::SyncMedium(const std::string&)
{
    return Step("SyncMedium", [&] { SyncAll(); });
}

unsigned SimDisk::ListFolder(const std::string& path, std::vector<VFolderEntry>& entries)
{
    return Step("ListFolder", [&] {
        entries.clear();
        Id id = 0;
        if (const unsigned code = FindNode(path, id); code != kErrorSuccess)
            return code;
        if (!m_nodes[id].isFolder)
            return kErrorPathNotFound;
        for (const auto& [name, entry] : m_nodes[id].entries)
            entries.push_back({name, m_nodes[entry].isFolder});
        return kErrorSuccess;
    });
}

bool SimDisk::CanWrite(const std::string& path)
{
    return Step("CanWrite", [&] {
               Id id = 0;
               const unsigned code = FindNode(path, id);
               return code != kErrorSuccess || m_nodes[id].rights.mode & kOwnerMayWrite ? code : kErrorAccessDenied;
           }) == kErrorSuccess;
}

unsigned SimDisk::CreateWatch(std::unique_ptr<IFolderWatch>&)
{
    return Step("CreateWatch", [] { return kErrorNotSupported; });
}

} // namespace ostrand::test
