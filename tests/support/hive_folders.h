// Two empty hives in a folder of their own, with nothing kept of what the process learned before: `HiveFolders hives;`
// has them in place for its lifetime.
#pragma once

#include "profile/policy.h"
#include "stores/hive_files.h"
#include "tests/support/temp_folder.h"

namespace ostrand::test {

class HiveFolders {
public:
    HiveFolders()
    {
        s_root = m_folder.Path();
        SetHiveFolderFunction([](VHive hive) { return s_root + (hive == VHive::LocalMachine ? "/machine" : "/user"); });
        Forget();
    }
    ~HiveFolders()
    {
        SetHiveFolderFunction(nullptr);
        ForgetPolicyAnswers();
    }

    /// What the process keeps of the hives is looked up again.
    void Forget()
    {
        FindRegistryBase();
        ForgetPolicyAnswers();
    }
    /// `file` begins with "user/" or "machine/".
    void Write(std::string_view file, std::string_view text)
    {
        m_folder.Write(file, text);
        Forget();
    }
    const TempFolder& Folder() const { return m_folder; }

private:
    static inline std::string s_root;
    TempFolder m_folder;
};

} // namespace ostrand::test
