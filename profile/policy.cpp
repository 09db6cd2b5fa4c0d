#include "profile/policy.h"

#include "core/fold.h"
#include "profile/hives.h"
#include "profile/key.h"

#include <atomic>

namespace ostrand {

namespace {

struct PolicyKey {
    VHive hive;
    const char16_t* path;
};

/// In the order of search.
constexpr PolicyKey kPolicyKeys[] = {
    {VHive::LocalMachine, u"Software\\Policies\\Hollowmere"},
    {VHive::CurrentUser, u"Software\\Policies\\Hollowmere"},
    {VHive::LocalMachine, u"SOFTWARE\\Hollowmere\\Global"},
};

constexpr const char16_t* kSaveUsernames = u"Save Usernames";
constexpr const char16_t* kSavePasswords = u"Save Passwords";
constexpr const char16_t* kDisablePasswords = u"Disable Passwords";
constexpr const char16_t* kOlderTransferProduct = u"Pellucid";

enum class Answer { Unknown, No, Yes };
std::atomic<Answer> g_usernames{Answer::Unknown};
std::atomic<Answer> g_passwords{Answer::Unknown};

bool ReadDword(VHive hive, std::u16string_view path, const char16_t* name, unsigned* out)
{
    VRegistryStoreFactory factory(hive, path);
    const VProfileStore store(true, &factory);
    return store.GetRootKey()->ReadDword(name, out);
}

/// Null for none.
const PolicyKey* KeyOfPolicy(const char16_t* name, unsigned* out)
{
    for (const PolicyKey& key : kPolicyKeys)
        if (ReadDword(key.hive, key.path, name, out))
            return &key;
    return nullptr;
}

bool BeginsWith(const char16_t* application, std::u16string_view name)
{
    return application && EqualNoCase(std::u16string_view(application).substr(0, name.size()), name);
}

/// The policy, else the product's value of the same name, else true.
bool IsAllowed(const char16_t* name, const char16_t* application, const char16_t* subkey)
{
    unsigned value = 1;
    if (!ReadPolicyDword(name, &value))
        ReadProductDword(name, application, subkey, &value);
    return value != 0;
}

/// The file-transfer client had a value of the opposite sense.
bool MayTransferClientSavePasswords(const char16_t* application, const char16_t* subkey)
{
    unsigned value = 0;
    if (ReadPolicyDword(kSavePasswords, &value))
        return value != 0;
    if (!ReadProductDword(kDisablePasswords, application, subkey, &value))
        ReadProductDword(kDisablePasswords, kOlderTransferProduct, subkey, &value);
    return value == 0;
}

template <class Compute>
bool Kept(std::atomic<Answer>& kept, Compute compute)
{
    if (kept == Answer::Unknown)
        kept = compute() ? Answer::Yes : Answer::No;
    return kept == Answer::Yes;
}

} // namespace

bool ReadPolicyDword(const char16_t* name, unsigned* out) { return KeyOfPolicy(name, out) != nullptr; }

std::optional<VPolicyValue> FindPolicy(const char16_t* name)
{
    VPolicyValue policy;
    const PolicyKey* const key = KeyOfPolicy(name, &policy.value);
    if (!key)
        return std::nullopt;
    VRegistryStoreFactory factory(key->hive, key->path);
    VProfileStore(true, &factory).Extras().FindPlace(u"", name, policy.place);
    return policy;
}

bool ReadProductDword(const char16_t* name, const char16_t* application, const char16_t* subkey, unsigned* out)
{
    if (!application || !subkey)
        return false;
    if (ReadDword(VHive::LocalMachine, JoinKeys(BuildProductKeyPath(application), subkey), name, out))
        return true;
    if (!BeginsWith(application, u"Tessaly") && !BeginsWith(application, u"Quillo"))
        return false;
    VUnicodeString former = JoinKeys(kFormerRegistryBase, application);
    former += u" 3.0";
    return ReadDword(VHive::LocalMachine, JoinKeys(former, subkey), name, out);
}

bool CanSaveUsernames(const char16_t* application, const char16_t* subkey)
{
    return Kept(g_usernames, [=] { return IsAllowed(kSaveUsernames, application, subkey); });
}

bool CanSavePasswords(const char16_t* application, const char16_t* subkey)
{
    return CanSaveUsernames(application, subkey) && Kept(g_passwords, [=] {
               return BeginsWith(application, u"Orvane") ? MayTransferClientSavePasswords(application, subkey)
                                                         : IsAllowed(kSavePasswords, application, subkey);
           });
}

void ForgetPolicyAnswers() { g_usernames = g_passwords = Answer::Unknown; }

} // namespace ostrand
