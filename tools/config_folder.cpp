#include "tools/config_folder.h"

#include "core/entry.h"
#include "core/fold.h"
#include "core/messages.h"
#include "core/native_path.h"
#include "core/paths/known_folders.h"
#include "core/product.h"
#include "platform/error_codes.h"
#include "platform/platform.h"
#include "stores/file_check.h"
#include "tools/output.h"

#include <algorithm>
#include <cstdlib>

namespace ostrand::tool {

namespace {

constexpr const char16_t* kGlobalKey = u"Global";
constexpr const char* kGlobalFile = "/Global.ini"; // also of a key that can't be opened
constexpr const char* kFolderBelowConfig = "/hollowmere/Config";

constexpr size_t kWarningsOfOneFile = 5;
constexpr size_t kLargestFile = size_t{1} << 26; // bytes; the store reads no larger one

FileStoreFactory* theFactory = nullptr;
int theProduct = kProductTessaly;

VProfileStoreFactory* TheFactory() { return theFactory; }

/// What the library tells beside its results: another program's change that was overwritten. Failed saves come back as
/// results.
class WarningRouter : public VReportMessageRouter {
public:
    void Route(IReportMessageParams* message) override
    {
        constexpr unsigned kWarning = 0xA;
        if (message->GetCode() >> 28 == kWarning)
            Warn(ReportText(*message));
    }
};

VReportMessageRouter* TheRouter()
{
    static WarningRouter router;
    return &router;
}

int ProductOf(const Request& request)
{
    if (request.IsOrvane())
        return kProductOrvane;
    return request.application == "quillo" ? kProductQuillo : kProductTessaly;
}

/// Empty where the environment names no home.
std::string DefaultFolder()
{
    VUnicodeString config;
    std::string folder;
    if (!GetKnownFolder(VKnownFolder::Config, config) || !ToNativePath(config, folder))
        return {};
    return folder + kFolderBelowConfig;
}

std::string WithoutLastSeparators(std::string path)
{
    while (path.size() > 1 && path.ends_with('/'))
        path.pop_back();
    return path;
}

std::string CodeText(unsigned code)
{
    VReportMessageParams report(code, LibraryModule());
    return ReportText(report);
}

/// Lines that read as missing values. A name that is there twice, or a file without a last line end, is none.
std::vector<FileFault> BrokenLines(const std::string& file)
{
    std::string text;
    VFileInfo info;
    if (Platform().files->ReadWhole(file, kLargestFile, text, info) != kErrorSuccess)
        return {};
    std::vector<FileFault> faults = CheckText(text);
    std::erase_if(faults, [](const FileFault& fault) {
        return fault.kind == FileFaultKind::DuplicateName || fault.kind == FileFaultKind::NoLastLineEnd;
    });
    return faults;
}

/// Why the stored value is none of its class.
std::string UnfitText(const NamedValue& value, const ValuePlace& place)
{
    return PlaceText(place) + ": " + Cited(NameOf(value)) + " holds no value of type " +
           ValueClassName(value.entry.type);
}

bool IsMissing(unsigned code) { return code == kErrorFileNotFound; }

} // namespace

ApplicationScope::ApplicationScope(const Request& request)
{
    theProduct = ProductOf(request);
    SetAppNameFunction([] { return GetProductName(theProduct); });
}

ApplicationScope::~ApplicationScope() { SetAppNameFunction(nullptr); }

ConfigFolder::~ConfigFolder()
{
    ResetGlobalConfig(m_config);
    SetProfileStoreFactoryGetter(nullptr);
    theFactory = nullptr;
}

Exit ConfigFolder::Open(const Request& request, Access access)
{
    m_path = WithoutLastSeparators(request.folder.empty() ? DefaultFolder() : request.folder);
    if (m_path.empty())
        return Fail(Exit::Store, "there is no home folder to look in; name a folder with --config");
    VFileInfo info;
    const unsigned code = Platform().files->GetInfo(m_path, info);
    const bool mayBeMissing = access == Access::Write || request.folder.empty();
    if (code != kErrorSuccess && !(IsMissing(code) && mayBeMissing))
        return Fail(Exit::Store, m_path + ": " + (IsMissing(code) ? "there is no such folder" : CodeText(code)));
    if (code == kErrorSuccess && !info.isFolder)
        return Fail(Exit::Store, m_path + ": not a folder");

    m_factory = std::make_unique<FileStoreFactory>(m_path);
    theFactory = m_factory.get();
    m_application = std::make_unique<ApplicationScope>(request);
    OstrandUiInit(TheRouter);
    OstrandUiInitProfileFactory(TheFactory);
    m_store = std::make_unique<VProfileStore>(true);
    return Exit::Done;
}

Exit ConfigFolder::OpenGlobal(const Request& request, Access access)
{
    if (const Exit opened = Open(request, access); opened != Exit::Done)
        return opened;
    m_globalKey = std::make_unique<VProfileKey>(&Root(), kGlobalKey);
    if (IReportMessageParams& status = m_globalKey->GetStatus(); status.GetCode() != 0 && !IsMissing(status.GetCode()))
        return FailGlobal(status);
    GetGlobalConfig(m_config, theProduct);
    return Exit::Done;
}

Exit ConfigFolder::OpenKey(const std::string& typedPath, std::unique_ptr<VProfileKey>& key) const
{
    VUnicodeString path;
    const bool isUtf8 = FromUtf8(typedPath, path);
    if (path.IsEmpty()) {
        key = std::make_unique<VProfileKey>(*m_store);
        return Exit::Done;
    }
    if (!isUtf8 || !Root().KeyExists(path.c_str()))
        return Fail(Exit::Failed, m_path + ": there is no key " + Cited(typedPath));
    key = std::make_unique<VProfileKey>(&Root(), path.c_str());
    return key->GetStatus().GetCode() == 0
               ? Exit::Done
               : Fail(Exit::Store, m_path + ": key " + Cited(typedPath) + ": " + ReportText(key->GetStatus()));
}

Exit ConfigFolder::CheckWritable() const
{
    VProfileStore store;
    VProfileKey key(store.GetRootKey(), kGlobalKey);
    if (key.IsWritable())
        return Exit::Done;
    VReportMessageParams denied(kErrorAccessDenied, LibraryModule());
    IReportMessageParams& status = key.GetStatus();
    return FailGlobal(status.GetCode() != 0 ? status : denied);
}

Exit ConfigFolder::SaveValues(ValueRecord& record, const std::vector<VUnicodeString>& names) const
{
    VReportMessageParams report;
    if (record.Save(names, report))
        return Exit::Done;
    return record.KeyPath() == kGlobalKey ? FailSave(report) : FailChange(report);
}

Exit ConfigFolder::FailSave(IReportMessageParams& report) const
{
    // On purpose: the process ends here. Keys and store try refused writes once more when they close, and a command
    // that has said that it failed must not write after that. Held by ToolFolders.ALockedStoreIsLeftAsItWas.
    std::_Exit(static_cast<int>(FailGlobal(report)));
}

Exit ConfigFolder::FailSaveBelow(IReportMessageParams& report) const
{
    std::_Exit(static_cast<int>(Fail(Exit::Store, m_path + ": " + ReportText(report)))); // as above
}

Exit ConfigFolder::FailChange(IReportMessageParams& report) const
{
    if (report.GetCode() == kValueNotCopied || report.GetCode() == kNameUnknown)
        return Fail(Exit::Failed, ReportText(report));
    FailSaveBelow(report);
}

Exit ConfigFolder::FailGlobal(IReportMessageParams& report) const
{
    return Fail(Exit::Store, GlobalFile() + ": " + ReportText(report));
}

std::string ConfigFolder::GlobalFile() const { return m_path + kGlobalFile; }

ValuePlace ConfigFolder::PlaceIn(const char16_t* key, const char16_t* valueName) const
{
    ValuePlace place;
    m_store->Extras().FindPlace(key, valueName, place);
    return place;
}

std::string ConfigFolder::DamageOf(const ValueRecord& record, const NamedValue& value) const
{
    const VUnicodeString key = record.KeyPath();
    const ValuePlace place = PlaceIn(key.c_str(), value.value->name.c_str());
    if (place.line > 0)
        return record.IsStored(value) ? "" : UnfitText(value, place);
    for (const FileFault& fault : BrokenLines(place.file))
        if (EqualNoCase(fault.name, value.value->name))
            return PlaceText({place.file, fault.line}) + ": " + Cited(NameOf(value)) + " " +
                   Lossless(DescribeFault(fault.kind));
    return {};
}

void ConfigFolder::WarnOfDamage(ValueRecord& record) const
{
    const VUnicodeString key = record.KeyPath();
    for (const NamedValue& value : record.Values()) {
        const ValuePlace place = PlaceIn(key.c_str(), value.value->name.c_str());
        if (place.line > 0 && !record.IsStored(value))
            Warn(UnfitText(value, place) + "; its default is shown");
    }
    WarnOfBrokenLines(key.c_str());
}

void ConfigFolder::WarnOfBrokenLines(const char16_t* key) const
{
    const std::string file = PlaceIn(key, nullptr).file;
    const std::vector<FileFault> faults = BrokenLines(file);
    const size_t told = std::min(faults.size(), kWarningsOfOneFile);
    for (size_t i = 0; i < told; ++i)
        Warn(PlaceText({file, faults[i].line}) + ": " +
             (faults[i].name.empty() ? "the line" : Cited(Lossless(faults[i].name))) + " " +
             Lossless(DescribeFault(faults[i].kind)));
    if (told < faults.size())
        Warn(file + ": " + std::to_string(faults.size() - told) + " more lines like these");
}

std::string PlaceText(const ValuePlace& place)
{
    return place.line > 0 ? place.file + ":" + std::to_string(place.line) : place.file;
}

} // namespace ostrand::tool
