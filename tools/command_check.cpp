// store check
#include "platform/error_codes.h"
#include "platform/platform.h"
#include "stores/file_changes.h"
#include "stores/file_check.h"
#include "stores/stray_files.h"
#include "tools/commands.h"
#include "tools/config_folder.h"
#include "tools/json_writer.h"
#include "tools/key_walk.h"
#include "tools/output.h"

#include <algorithm>

namespace ostrand::tool {

namespace {

constexpr size_t kLargestFile = size_t{1} << 26; // bytes; the store reads no larger one
constexpr std::string_view kValuesEnd = ".ini";
constexpr std::string_view kRootValues = "/%root.ini";

/// How each kind of fault is called in JSON.
constexpr const char* kFaultNames[] = {"unparseable",   "duplicate-name", "zero-byte", "invalid-utf8",
                                       "conflict-mark", "no-line-end",    "cut"};

const char* NameOf(FileFaultKind kind) { return kFaultNames[static_cast<size_t>(kind)]; }

/// What a repair does, or did, to a damaged file.
struct Repair {
    size_t dropped = 0;               ///< damaged lines
    std::vector<std::string> putBack; ///< values from the last good version
    std::string aside;                ///< where the damaged file is kept; empty before a repair
};

/// One key's file with its faults. After a repair they are those that are left.
struct CheckedFile {
    std::string file;
    std::vector<FileFault> faults;
    bool isDamaged = false;
    Repair repair;
};

class Check {
public:
    explicit Check(const Request& request) : m_request(request) {}

    Exit Run()
    {
        std::unique_ptr<VProfileKey> key;
        Exit exit = m_folder.Open(m_request, m_request.repair ? Access::Write : Access::Read);
        if (exit == Exit::Done)
            exit = m_folder.OpenKey(m_request.key, key);
        if (exit != Exit::Done)
            return exit;
        VUnicodeString path;
        FromUtf8(m_request.key, path);
        WalkKeys(*key, path, [&](const VProfileKey&, const VUnicodeString& name) {
            if (exit == Exit::Done)
                exit = CheckKey(name.c_str());
        });
        if (exit == Exit::Done)
            exit = FindStrays(m_folder.PlaceIn(path.c_str(), nullptr).file);
        if (exit != Exit::Done)
            return exit;
        exit = Print(m_request.asJson ? JsonText() : PlainText());
        return exit == Exit::Done && HasFaults() ? Exit::Failed : exit;
    }

private:
    Exit CheckKey(const char16_t* key)
    {
        CheckedFile checked;
        checked.file = m_folder.PlaceIn(key, nullptr).file;
        std::string text;
        bool isThere = false;
        if (const Exit read = ReadFile(checked.file, text, isThere); read != Exit::Done || !isThere)
            return read;
        ++m_files;
        checked.faults = CheckText(text);
        VReportMessageParams report;
        std::string proposed;
        if (!m_folder.Extras().ProposeRepair(key, proposed, report))
            return FailFile(checked.file, report);
        checked.isDamaged = proposed != text;
        if (checked.isDamaged) {
            checked.repair.dropped = CountLost(text, proposed);
            for (const ValueChange& change : CompareTexts(text, proposed))
                if (!change.after.empty())
                    checked.repair.putBack.push_back(Lossless(change.name));
            if (m_request.repair)
                if (const Exit repaired = RepairFile(key, checked); repaired != Exit::Done)
                    return repaired;
        }
        if (checked.isDamaged || !checked.faults.empty())
            m_checked.push_back(std::move(checked));
        return Exit::Done;
    }

    Exit RepairFile(const char16_t* key, CheckedFile& checked)
    {
        VReportMessageParams report;
        if (VProfileStore store; !store.Extras().RepairKey(key, checked.repair.aside, report))
            return FailFile(checked.file, report);
        std::string text;
        bool isThere = false;
        const Exit read = ReadFile(checked.file, text, isThere);
        checked.faults = CheckText(text);
        return read;
    }

    static Exit ReadFile(const std::string& file, std::string& text, bool& isThere)
    {
        VFileInfo info;
        const unsigned code = Platform().files->ReadWhole(file, kLargestFile, text, info);
        isThere = code == kErrorSuccess;
        if (isThere || code == kErrorFileNotFound || code == kErrorPathNotFound)
            return Exit::Done;
        VReportMessageParams report(code, LibraryModule());
        return FailFile(file, report);
    }

    static Exit FailFile(const std::string& file, IReportMessageParams& report)
    {
        return Fail(Exit::Store, file + ": " + ReportText(report));
    }

    /// Lines of the text that aren't in the other one.
    static size_t CountLost(std::string_view text, std::string_view other)
    {
        const auto lines = [](std::string_view from) {
            std::vector<std::string_view> cut;
            while (!from.empty()) {
                cut.push_back(from.substr(0, from.find('\n')));
                from.remove_prefix(std::min(cut.back().size() + 1, from.size()));
            }
            std::sort(cut.begin(), cut.end());
            return cut;
        };
        const std::vector<std::string_view> before = lines(text);
        const std::vector<std::string_view> after = lines(other);
        std::vector<std::string_view> lost;
        std::set_difference(before.begin(), before.end(), after.begin(), after.end(), std::back_inserter(lost));
        return lost.size();
    }

    /// In the key's folder; `file` is that of its values.
    Exit FindStrays(std::string file)
    {
        if (file.empty()) // there is no store
            return Exit::Done;
        file.resize(file.size() - (file.ends_with(kRootValues) ? kRootValues.size() : kValuesEnd.size()));
        const unsigned code = FindStrayFiles(file, m_strays);
        VReportMessageParams report(code, LibraryModule());
        return code == kErrorSuccess ? Exit::Done : FailFile(file, report);
    }

    bool HasFaults() const
    {
        return !m_strays.empty() || std::any_of(m_checked.begin(), m_checked.end(), [](const CheckedFile& checked) {
            return !checked.faults.empty() || (checked.isDamaged && checked.repair.aside.empty());
        });
    }

    static std::string RepairText(const CheckedFile& checked)
    {
        const Repair& repair = checked.repair;
        const bool isDone = !repair.aside.empty();
        std::string text = checked.file +
                           (isDone ? ": was damaged; the repair dropped " : ": is damaged; a repair drops ") +
                           std::to_string(repair.dropped) + (repair.dropped == 1 ? " line" : " lines");
        for (size_t i = 0; i < repair.putBack.size(); ++i)
            text += (i > 0 ? ", " : isDone ? " and put back " : " and puts back ") + Cited(repair.putBack[i]);
        return text + (isDone ? "; the damaged file is kept as " + repair.aside : std::string()) + "\n";
    }

    std::string PlainText() const
    {
        std::string text;
        for (const CheckedFile& checked : m_checked) {
            for (const FileFault& fault : checked.faults)
                text += PlaceText({checked.file, fault.line}) + ": " +
                        (fault.name.empty() ? "the line" : Cited(Lossless(fault.name))) + " " +
                        Lossless(DescribeFault(fault.kind)) + "\n";
            if (checked.isDamaged)
                text += RepairText(checked);
        }
        for (const StrayFile& stray : m_strays)
            text += stray.path + ": " + Lossless(DescribeStray(stray.kind)) +
                    (stray.twin.empty() ? "" : " " + stray.twin) + "\n";
        if (!HasFaults())
            text += "No faults in " + std::to_string(m_files) + (m_files == 1 ? " file.\n" : " files.\n");
        return Plain(text);
    }

    static Json JsonOf(const CheckedFile& checked)
    {
        Json faults = Json::array();
        for (const FileFault& fault : checked.faults)
            faults.push_back({{"line", fault.line},
                              {"name", Lossless(fault.name)},
                              {"fault", NameOf(fault.kind)},
                              {"damage", IsDamage(fault.kind)}});
        Json json = {{"file", checked.file}, {"faults", faults}, {"damaged", checked.isDamaged}};
        if (checked.isDamaged) {
            json["dropped"] = checked.repair.dropped;
            json["putBack"] = checked.repair.putBack;
            json["aside"] = checked.repair.aside.empty() ? Json() : Json(checked.repair.aside);
        }
        return json;
    }

    std::string JsonText() const
    {
        Json files = Json::array();
        for (const CheckedFile& checked : m_checked)
            files.push_back(JsonOf(checked));
        Json strays = Json::array();
        for (const StrayFile& stray : m_strays)
            strays.push_back({{"file", stray.path}, {"twin", stray.twin.empty() ? Json() : Json(stray.twin)}});
        return WriteJson({{"checked", m_files}, {"files", files}, {"strays", strays}});
    }

    const Request& m_request;
    ConfigFolder m_folder;
    size_t m_files = 0;
    std::vector<CheckedFile> m_checked; // those with faults
    std::vector<StrayFile> m_strays;
};

} // namespace

Exit CheckStore(const Request& request) { return Check(request).Run(); }

} // namespace ostrand::tool
