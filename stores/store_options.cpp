#include "stores/store_options.h"

#include "stores/file_document.h"
#include "stores/store_lock.h"

namespace ostrand {

namespace {

/// Bytes of the largest file that can be meant.
constexpr size_t kLimit = 1u << 16;

void ReadNumber(const FileDocument& file, const char16_t* name, unsigned& number)
{
    if (const FileDocument::Found found = file.FindWhole(name))
        ParseDword(found.value, number);
}

} // namespace

StoreOptions ReadStoreOptions(const std::string& root)
{
    StoreOptions options;
    std::string text;
    VFileInfo info;
    if (Files().ReadWhole(root + '/' + std::string(kStoreOptionsFile), kLimit, text, info) != 0)
        return options;
    const FileDocument file(std::move(text));
    ReadNumber(file, u"History Versions", options.history.versions);
    auto bytes = static_cast<unsigned>(options.history.bytes);
    ReadNumber(file, u"History Bytes", bytes);
    options.history.bytes = bytes;
    return options;
}

} // namespace ostrand
