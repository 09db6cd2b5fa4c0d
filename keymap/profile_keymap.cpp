#include "keymap/profile_keymap.h"

#include "core/trace.h"
#include "keymap/key_block.h"
#include "platform/error_codes.h"

#include <vector>

namespace ostrand {

namespace {

/// Behind this, a value name of older versions ends.
constexpr std::u16string_view kVersionMark = u" v2";

/// False where there is none, or one above the size of a key block.
bool ReadBlock(const VProfileKey& key, const VUnicodeString& name, std::vector<uint8_t>& block)
{
    unsigned size = 0;
    if (!key.ReadBinary(name.c_str(), nullptr, &size) || size > kLargestKeyBlock)
        return false;
    block.resize(size);
    return key.ReadBinary(name.c_str(), block.data(), &size);
}

bool ReadBlockOrOlder(const VProfileKey& key, const VUnicodeString& name, std::vector<uint8_t>& block)
{
    if (ReadBlock(key, name, block))
        return true;
    const size_t mark = name.Find(kVersionMark);
    return mark != VUnicodeString::npos && ReadBlock(key, name.Left(mark), block);
}

} // namespace

ProfileKeymap::ProfileKeymap(const ProfileKeymap& other) : ProfileKeymap(other, WithoutSavedCopy())
{
    if (other.savedCopy)
        savedCopy = std::make_unique<ProfileKeymap>(*other.savedCopy);
}

ProfileKeymap& ProfileKeymap::operator=(const ProfileKeymap& other)
{
    if (this == &other)
        return *this;
    VProfileData::operator=(other);
    Keymap::operator=(other);
    return *this;
}

void ProfileKeymap::KeepAsSaved() { savedCopy.reset(new ProfileKeymap(*this, WithoutSavedCopy())); }

bool ProfileKeymap::Load(const VProfileKey* key, const VUnicodeString& valueName)
{
    SetName(valueName);
    if (!key) {
        KeepAsSaved();
        return true;
    }
    ClearFunctions();
    std::vector<uint8_t> block;
    if (!ReadBlockOrOlder(*key, name, block)) {
        KeepAsSaved();
        return true;
    }
    switch (ReadKeyBlock(block, *this)) {
    case KeyBlockEnd::NoCount:
        return false;
    case KeyBlockEnd::InAnIndex:
        VTrace(u"WARNING: bad keymap profile entry\n");
        return true;
    case KeyBlockEnd::Whole:
        break;
    }
    dirty = false;
    KeepAsSaved();
    return true;
}

bool ProfileKeymap::Write(VProfileKey& key) const
{
    const std::vector<uint8_t> block = WriteKeyBlock(OwnBindings());
    if (block.size() <= kLargestKeyBlock)
        return key.WriteBinary(name.c_str(), block.data(), static_cast<unsigned>(block.size()));
    VTrace(u"WARNING: keymap profile value %1 not written, %2!u! bytes are too many\n", name, block.size());
    return Fail(key.GetStatus(), kErrorInsufficientBuffer, name);
}

void ProfileKeymap::Save(VProfileKey* key, bool force)
{
    if (!key || (!force && !dirty && !IsModified()) || !Write(*key))
        return;
    dirty = false;
    KeepAsSaved();
}

void ProfileKeymap::AcceptChanges()
{
    if (!IsModified())
        return;
    dirty = true;
    KeepAsSaved();
}

void ProfileKeymap::RevertChanges()
{
    if (savedCopy)
        *this = *savedCopy;
}

void ProfileKeymap::CopyValue(const VProfileData& other) { *this = dynamic_cast<const ProfileKeymap&>(other); }

bool ProfileKeymap::LoadFromFile(std::u16string_view, IReportMessageParams&) { return true; }

} // namespace ostrand
