// Synchronize tasks. The input says what a key holds, one value a line; whatever it is, tasks that were read are
// written and read as the same, beside the old values as in a new key, and a shorter list brings the longer one back.
//
//   input = [ zone ] { line "\n" }        zone: "Z" and 44 bytes
//   line  = field task entry kind content
//   field = one of kFields        task, entry = a digit's place in the names, other characters count on from it
//   kind, content: fuzz/typed_values.h
#include "config/session/synchronize.h"
#include "core/format.h"
#include "fuzz/typed_values.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string>
#include <string_view>

using namespace ostrand;
using namespace ostrand::fuzz;

namespace {

constexpr std::string_view kFields = "NTMspuSPLOFX";

std::u16string Number(char c) { return VUnicodeString(Format(u"%1!d!", (c - '0') & 0xFF)).c_str(); }

std::u16string NameOf(char field, char task, char entry)
{
    const std::u16string ofTask = u"Task[" + Number(task) + u"].";
    const std::u16string ofSource = ofTask + u"Source[" + Number(entry) + u"].";
    const std::u16string ofTarget = ofTask + u"Target[" + Number(entry) + u"].";
    switch (field) {
    case 'N':
        return ofTask + u"Name";
    case 'T':
        return ofTask + u"Type";
    case 'M':
        return ofTask + u"MasterOverwrites";
    case 's':
        return ofSource + u"Session";
    case 'p':
        return ofSource + u"Path";
    case 'u':
        return ofSource + u"Recurse";
    case 'S':
        return ofTarget + u"Session";
    case 'P':
        return ofTarget + u"Path";
    case 'L':
        return u"Last Sync Time V2";
    case 'O':
        return u"Last Sync Time";
    case 'F':
        return u"Filter";
    default:
        return u"Other";
    }
}

void FillFrom(std::string_view input, MemoryStoreFactory& factory)
{
    while (!input.empty()) {
        const std::string_view line = input.substr(0, input.find('\n'));
        input.remove_prefix(std::min(line.size() + 1, input.size()));
        if (line.size() >= 4 && kFields.find(line[0]) != std::string_view::npos)
            factory.Fill({{u"", NameOf(line[0], line[1], line[2]), ValueOf(line[3], line.substr(4))}});
    }
}

/// Reads the root of a store.
bool Load(SynchronizeProfile& profile, MemoryStoreFactory& factory)
{
    const VProfileStore store(true, &factory);
    return profile.Load(store.GetRootKey(), u"Tasks");
}

void Save(SynchronizeProfile& profile, MemoryStoreFactory& factory)
{
    const VProfileStore store(&factory);
    profile.Save(store.GetRootKey(), true);
}

/// What is stored reads as these, in the same zone: a former time is looked at again where it gave no time before.
void RequireStored(MemoryStoreFactory& factory, const SynchronizeProfile& expected)
{
    SynchronizeProfile read;
    read.timeZone = std::make_unique<VTimeZoneInformation>(*expected.timeZone);
    Check(Load(read, factory) == (read.tasks.GetCount() > 0) && !read.IsModified());
    Check(read.tasks == expected.tasks && read.filter.Value() == expected.filter.Value());
    Check(read.lastSyncTime.ticks == expected.lastSyncTime.ticks);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    SynchronizeProfile profile;
    profile.timeZone = std::make_unique<VTimeZoneInformation>();
    constexpr size_t kZone = VTimeZoneInformation::kStoredSize;
    if (size > kZone && data[0] == 'Z') {
        profile.timeZone->Unpack(std::span<const uint8_t, kZone>(data + 1, kZone));
        data += 1 + kZone;
        size -= 1 + kZone;
    }
    MemoryStoreFactory old;
    FillFrom({reinterpret_cast<const char*>(data), size}, old);
    Check(Load(profile, old) == (profile.tasks.GetCount() > 0) && !profile.IsModified());

    MemoryStoreFactory fresh;
    Save(profile, fresh);
    RequireStored(fresh, profile);

    const size_t count = old.Dump().size();
    Save(profile, old);
    Check(old.Dump().size() >= count);
    RequireStored(old, profile);

    SynchronizeProfile shorter(profile);
    if (!shorter.tasks.IsEmpty())
        shorter.tasks.RemoveAt(shorter.tasks.GetCount() - 1);
    Check(shorter.IsModified() == !profile.tasks.IsEmpty());
    Save(shorter, old);
    RequireStored(old, profile);
    return 0;
}
