// What the file store offers besides its keys, over the files of one tree.
#pragma once

#include "profile/store_extras.h"
#include "stores/file_tree.h"

#include <memory>

namespace ostrand {

class FileExtras : public IStoreExtras {
public:
    explicit FileExtras(std::shared_ptr<FileTree> tree) : m_tree(std::move(tree)) {}

    bool BeginTransaction(IReportMessageParams& report) override;
    bool CommitTransaction(IReportMessageParams& report) override;
    void RollBackTransaction() override;
    bool Poll(std::vector<VUnicodeString>& keys, IReportMessageParams& report) override;
    int PollDescriptor() override;
    bool FindPlace(const char16_t* key, const char16_t* valueName, ValuePlace& place) override;
    bool ListVersions(const char16_t* key, std::vector<StoreVersion>& versions, IReportMessageParams& report) override;
    bool ReadVersion(const char16_t* key, unsigned number, std::string& text, IReportMessageParams& report) override;
    bool RestoreVersion(const char16_t* key, unsigned number, IReportMessageParams& report) override;
    bool ProposeRepair(const char16_t* key, std::string& text, IReportMessageParams& report) override;
    bool RepairKey(const char16_t* key, std::string& aside, IReportMessageParams& report) override;

protected:
    const std::shared_ptr<FileTree> m_tree;

private:
    /// Calls `act` with the key's file as it is; the result of both goes to the report.
    template <class Act>
    bool WithPresent(const char16_t* key, IReportMessageParams& report, Act act);
};

} // namespace ostrand
