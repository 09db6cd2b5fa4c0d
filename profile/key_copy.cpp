#include "profile/key_copy.h"

#include "core/messages.h"

#include <vector>

namespace ostrand {

namespace {

bool CopyBlock(const VProfileKey& from, VProfileKey& to, const char16_t* name)
{
    unsigned size = 0;
    if (!from.ReadBinary(name, nullptr, &size))
        return false;
    std::vector<uint8_t> block(size + 1); // never without memory behind it
    size = static_cast<unsigned>(block.size());
    return from.ReadBinary(name, block.data(), &size) && to.WriteBinary(name, block.data(), size);
}

bool CopyValue(const VProfileKey& from, VProfileKey& to, const char16_t* name, VProfileValueType type)
{
    unsigned number = 0;
    VUnicodeString text;
    VStringArray list;
    switch (type) {
    case VProfileValueType::Dword:
        return from.ReadDword(name, &number) && to.WriteDword(name, number);
    case VProfileValueType::String:
        return from.ReadString(name, text) && to.WriteString(name, text.c_str());
    case VProfileValueType::Binary:
        return CopyBlock(from, to, name);
    case VProfileValueType::MultiSz:
        return from.ReadMultiSz(name, list) && to.WriteMultiSz(name, list);
    case VProfileValueType::Subkey:
    case VProfileValueType::Other:
        break;
    }
    return false;
}

bool CopyValues(const VProfileKey& from, VProfileKey& to, IReportMessageParams& report)
{
    VProfileKeyIterator values(&from, true);
    VUnicodeString name;
    int type = 0;
    while (values.NextValue(name, &type))
        if (!CopyValue(from, to, name.c_str(), static_cast<VProfileValueType>(type)))
            return Fail(report, kValueNotCopied, name);
    return true;
}

} // namespace

bool CopyKey(const VProfileKey& from, VProfileKey& to, IReportMessageParams& report)
{
    if (!CopyValues(from, to, report) || !to.Flush(report))
        return false;
    VProfileKeyIterator keys(&from, false);
    VUnicodeString name;
    while (keys.Next(name)) {
        const VProfileKey below(&from, name.c_str());
        VProfileKey copy(&to, name.c_str());
        if (!CopyKey(below, copy, report))
            return false;
    }
    return true;
}

} // namespace ostrand
