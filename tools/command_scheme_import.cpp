// scheme import
#include "core/messages.h"
#include "imports/scheme_import.h"
#include "tools/commands.h"
#include "tools/config_folder.h"
#include "tools/global_record.h"
#include "tools/import_file.h"
#include "tools/json_writer.h"
#include "tools/output.h"

namespace ostrand::tool {

namespace {

/// All schemes of all files, or one line on stderr.
Exit ReadFiles(const std::vector<std::string>& files, std::vector<ImportedScheme>& schemes)
{
    for (const std::string& file : files) {
        std::string bytes;
        if (const Exit read = ReadImportFile(file, bytes); read != Exit::Done)
            return read;
        VUnicodeString name;
        FromUtf8(file, name);
        SchemeImport import;
        ImportFault error;
        if (!ImportSchemes({bytes, name}, import, error))
            return Fail(Exit::Failed, FaultText(file, error));
        for (const ImportFault& note : import.notes)
            Warn(FaultText(file, note));
        schemes.insert(schemes.end(), import.schemes.begin(), import.schemes.end());
    }
    return Exit::Done;
}

/// Whether the list had one of the name.
bool PutIn(ProfileColorSchemeList& list, const ImportedScheme& imported)
{
    const size_t place = list.Find(imported.name);
    const bool isThere = place < list.GetCount();
    ProfileColorScheme scheme = isThere ? list.GetAt(place) : ProfileColorScheme(imported.name, imported.scheme);
    scheme = imported.scheme;
    scheme.dirty = true;
    if (isThere)
        list.ReplaceAt(place, scheme);
    else
        list.Add(scheme);
    return isThere;
}

CustomColors AnsiOf(const ImportedScheme& scheme)
{
    CustomColors colors;
    std::copy(scheme.ansi.begin(), scheme.ansi.end(), colors.begin());
    return colors;
}

Exit SaveAnsi(ConfigFolder& folder, const ImportedScheme& scheme)
{
    GlobalConfig& config = folder.Config();
    config.ansiColorRgb = AnsiOf(scheme);
    GlobalRecord record(VUnknownPointer<GlobalConfig>::Share(&config));
    return folder.SaveValues(record, {config.ansiColorRgb.name});
}

Exit CheckAnsi(const std::vector<ImportedScheme>& schemes)
{
    if (schemes.size() != 1)
        return Fail(Exit::Failed,
                    "--ansi takes the colours of one scheme, and there are " + std::to_string(schemes.size()));
    return schemes[0].hasAnsi ? Exit::Done : Fail(Exit::Failed, "the file doesn't tell all sixteen ANSI colours");
}

} // namespace

Exit ImportSchemeFiles(const Request& request)
{
    std::vector<ImportedScheme> schemes;
    if (const Exit read = ReadFiles(request.values, schemes); read != Exit::Done)
        return read;
    if (const Exit checked = request.withAnsi ? CheckAnsi(schemes) : Exit::Done; checked != Exit::Done)
        return checked;
    ConfigFolder folder;
    if (const Exit opened = folder.OpenGlobal(request, Access::Write); opened != Exit::Done)
        return opened;
    ProfileColorSchemeList& list = folder.Config().colorSchemes;
    Json told = Json::array();
    std::string text;
    for (const ImportedScheme& scheme : schemes) {
        const bool isReplaced = PutIn(list, scheme);
        told.push_back({{"name", Lossless(scheme.name)}, {"replaced", isReplaced}, {"hasAnsi", scheme.hasAnsi}});
        text += (isReplaced ? "Replaced " : "Added ") + Cited(Lossless(scheme.name)) + ".\n";
    }
    list.Save(nullptr, false);
    if (list.GetSaveReport().GetCode() != 0)
        return folder.FailSaveBelow(list.GetSaveReport());
    if (request.withAnsi) {
        if (const Exit saved = SaveAnsi(folder, schemes[0]); saved != Exit::Done)
            return saved;
        text += "The sixteen ANSI colours are those of " + Cited(Lossless(schemes[0].name)) + ".\n";
    }
    return Print(request.asJson ? WriteJson({{"schemes", told}, {"ansi", request.withAnsi}}) : text);
}

} // namespace ostrand::tool
