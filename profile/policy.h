// What an administrator has decided: numbers in the hives that settings can't override.
#pragma once

#include "platform/export.h"
#include "profile/store_extras.h"

#include <optional>

namespace ostrand {

/// The policy of this name: of the machine, of the user, else among the machine's common values. False, `out`
/// untouched, without one.
OSTRAND_API bool ReadPolicyDword(const char16_t* name, unsigned* out);
struct VPolicyValue {
    unsigned value = 0;
    ValuePlace place; ///< empty where hives are no files
};
/// The same with its place, so that a refusal can say where it comes from.
OSTRAND_API std::optional<VPolicyValue> FindPolicy(const char16_t* name);

/// The machine's value in a subkey of the application's key, for terminals also of their key of former releases. False
/// for a null application or subkey.
OSTRAND_API bool ReadProductDword(const char16_t* name, const char16_t* application, const char16_t* subkey,
                                  unsigned* out);

/// Whether user names, or passwords, may be stored. On purpose: computed at the first call and kept for the process,
/// whatever later calls name. Held by Policy.AnswersAreKeptForTheProcess.
OSTRAND_API bool CanSaveUsernames(const char16_t* application, const char16_t* subkey);
/// False whenever user names may not be stored.
OSTRAND_API bool CanSavePasswords(const char16_t* application, const char16_t* subkey);
/// For tests: the next calls compute anew.
OSTRAND_API void ForgetPolicyAnswers();

} // namespace ostrand
