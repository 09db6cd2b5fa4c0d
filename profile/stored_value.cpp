#include "profile/stored_value.h"

namespace ostrand {

namespace {

bool ReadBlock(const VProfileKey& key, const char16_t* name, StoreValue& out)
{
    unsigned size = 0;
    if (!key.ReadBinary(name, nullptr, &size))
        return false;
    StoreBlock block(size + 1); // never without memory behind it
    size = static_cast<unsigned>(block.size());
    if (!key.ReadBinary(name, block.data(), &size))
        return false;
    block.resize(size);
    out = std::move(block);
    return true;
}

struct Writer {
    VProfileKey& key;
    const char16_t* name;

    bool operator()(unsigned number) const { return key.WriteDword(name, number); }
    bool operator()(const VUnicodeString& text) const { return key.WriteString(name, text.c_str()); }
    bool operator()(const StoreBlock& block) const
    {
        static constexpr uint8_t nothing = 0;
        return key.WriteBinary(name, block.empty() ? &nothing : block.data(), static_cast<unsigned>(block.size()));
    }
    bool operator()(const VStringArray& list) const { return key.WriteMultiSz(name, list); }
    bool operator()(const ForeignValue&) const { return false; }
};

} // namespace

bool ReadStoredValue(const VProfileKey& key, const char16_t* name, VProfileValueType type, StoreValue& out)
{
    unsigned number = 0;
    VUnicodeString text;
    VStringArray list;
    switch (type) {
    case VProfileValueType::Dword:
        return key.ReadDword(name, &number) && (out = number, true);
    case VProfileValueType::String:
        return key.ReadString(name, text) && (out = std::move(text), true);
    case VProfileValueType::Binary:
        return ReadBlock(key, name, out);
    case VProfileValueType::MultiSz:
        return key.ReadMultiSz(name, list) && (out = std::move(list), true);
    case VProfileValueType::Subkey:
    case VProfileValueType::Other:
        break;
    }
    return false;
}

bool FindStoredValue(const VProfileKey& key, const char16_t* name, StoreValue& out)
{
    for (const VProfileValueType type :
         {VProfileValueType::Dword, VProfileValueType::String, VProfileValueType::Binary, VProfileValueType::MultiSz})
        if (ReadStoredValue(key, name, type, out))
            return true;
    return false;
}

bool WriteStoredValue(VProfileKey& key, const char16_t* name, const StoreValue& value)
{
    return std::visit(Writer{key, name}, value);
}

} // namespace ostrand
