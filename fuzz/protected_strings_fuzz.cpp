// Stored texts of protected strings. First byte: cipher mode; the rest is the text, taken by each class in turn.
// Whatever was decoded is stored again and read as the same.
#include "core/code_page.h"
#include "profile/blowfish_value.h"
#include "profile/capi_string.h"
#include "profile/encoded_string.h"
#include "stores/memory_store.h"
#include "tests/support/fake_platform.h"
#include "tests/support/fake_protection.h"

#include <cstdlib>
#include <string>

using namespace ostrand;

namespace {

constexpr const char16_t* kName = u"Value";

void Check(bool holds)
{
    if (!holds)
        std::abort();
}

VUnicodeString StoredIn(VProfileKey& key)
{
    VUnicodeString stored;
    key.ReadString(kName, stored);
    return stored;
}

template <class V>
void CheckValue(V& value, const VUnicodeString& text, VProfileKey& key)
{
    key.WriteString(kName, text.c_str());
    value.Load(&key, kName, u"");
    Check(!value.IsModified() && !value.IsDirty() && value.IsSensitive());
    const VUnicodeString before = StoredIn(key);
    value.Save(&key, true);
    if (value.IsHeldBack()) {
        Check(StoredIn(key) == before);
        return;
    }
    const VUnicodeString plain = value;
    value.Load(&key, kName, u"");
    Check(value == plain);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size == 0)
        return 0;
    test::FakePlatform platform;
    platform.environment.variables["TEMP"] = "/no/trace/log";
    const test::FakeProtection protection;
    MemoryStoreFactory factory;
    VProfileStore store(&factory);
    VProfileKey& key = *store.GetRootKey();
    // A store gives texts up to the first zero.
    const VUnicodeString text = FromCodePage({reinterpret_cast<const char*>(data) + 1, size - 1}).c_str();

    VProfileEncodedString encoded;
    CheckValue(encoded, text, key);
    VProfileBlowfishString encrypted;
    encrypted.SetCipherMode(data[0]);
    CheckValue(encrypted, text, key);
    VProfileCapiString guarded;
    CheckValue(guarded, text, key);

    key.WriteString(kName, text.c_str());
    encoded.LoadTakingOver(&key, kName);
    encoded.Save(&key, true);
    Check(encoded.IsHeldBack() || !VProfileCapiString::Recognises(StoredIn(key)));
    return 0;
}
