// The configuration folder that a command works on, with the global record read from it.
#pragma once

#include "config/global/global_config.h"
#include "profile/key.h"
#include "stores/file_store.h"
#include "tools/request.h"
#include "tools/value_record.h"

#include <memory>
#include <string>
#include <vector>

namespace ostrand::tool {

enum class Access { Read, Write };

/// The library goes by the name of the application that the request asks for. One at a time.
class ApplicationScope {
public:
    explicit ApplicationScope(const Request& request);
    ~ApplicationScope();
    ApplicationScope(const ApplicationScope&) = delete;
    ApplicationScope& operator=(const ApplicationScope&) = delete;
};

/// One for the process: the library goes through its factory. What fails says so in one line on stderr and answers the
/// exit code.
class ConfigFolder {
public:
    ConfigFolder() = default;
    ~ConfigFolder();
    ConfigFolder(const ConfigFolder&) = delete;
    ConfigFolder& operator=(const ConfigFolder&) = delete;

    /// Finds the folder and installs its store, touching nothing. A missing folder is made by the first write; for
    /// reading it must be there if it was asked for by name, and else counts as empty.
    Exit Open(const Request& request, Access access);
    /// Opens the folder and reads its global record.
    Exit OpenGlobal(const Request& request, Access access);

    GlobalConfig& Config() const { return *m_config; }
    /// The key Global and the root, to read from.
    const VProfileKey& GlobalKey() const { return *m_globalKey; }
    const VProfileKey& Root() const { return *m_store->GetRootKey(); }
    /// What the store offers besides its keys; for reading.
    IStoreExtras& Extras() const { return m_store->Extras(); }
    const std::string& Path() const { return m_path; }
    /// An existing key to read from, by its path as typed; the root for an empty one.
    Exit OpenKey(const std::string& typedPath, std::unique_ptr<VProfileKey>& key) const;

    /// Whether the key Global can be written; makes it where it is missing.
    Exit CheckWritable() const;
    /// Writes these values of a record, and nothing else.
    Exit SaveValues(ValueRecord& record, const std::vector<VUnicodeString>& names) const;
    /// The store's reason, with the file.
    Exit FailGlobal(IReportMessageParams& report) const;
    /// The same after writes that were refused; doesn't return.
    [[noreturn]] Exit FailSave(IReportMessageParams& report) const;
    /// The same where other keys than Global were written.
    [[noreturn]] Exit FailSaveBelow(IReportMessageParams& report) const;
    /// After a change of sessions: one is gone, or holds what can't be carried over; else the same as above.
    Exit FailChange(IReportMessageParams& report) const;
    /// The file of the key Global.
    std::string GlobalFile() const;

    /// Where a value stands, by the path of its key; null asks for the key's file.
    ValuePlace PlaceIn(const char16_t* key, const char16_t* valueName) const;
    /// What is wrong with the stored form of a value, with file and line; empty for a good or missing one.
    std::string DamageOf(const ValueRecord& record, const NamedValue& value) const;
    /// One warning for each value of the record's key that can't be read, and for each of its broken lines.
    void WarnOfDamage(ValueRecord& record) const;
    /// One warning for each broken line of the key's file, and one for many.
    void WarnOfBrokenLines(const char16_t* key) const;

private:
    std::string m_path;
    std::unique_ptr<ApplicationScope> m_application;
    std::unique_ptr<FileStoreFactory> m_factory;
    std::unique_ptr<VProfileStore> m_store;
    std::unique_ptr<VProfileKey> m_globalKey;
    GlobalConfig* m_config = nullptr; // lent by the library
};

/// "FILE:LINE", or the file alone where there is no line.
std::string PlaceText(const ValuePlace& place);

} // namespace ostrand::tool
