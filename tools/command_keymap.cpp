// keymap list, check, convert, diff, explain
#include "config/session/session_paths.h"
#include "core/messages.h"
#include "keymap/default_bindings.h"
#include "keymap/function_names.h"
#include "keymap/keymap_file.h"
#include "keymap/profile_keymap.h"
#include "platform/error_codes.h"
#include "tools/binding_text.h"
#include "tools/commands.h"
#include "tools/config_folder.h"
#include "tools/json_writer.h"
#include "tools/output.h"

#include <filesystem>

namespace ostrand::tool {

namespace {

constexpr const char16_t* kKeymapValue = u"Keymap v2";

std::string CodeText(unsigned code)
{
    VReportMessageParams report(code, LibraryModule());
    return ReportText(report);
}

/// Reads a file into the map, and tells what is wrong with it: each fault on a line of stderr, or in `errors` alone.
Exit ReadFile(const std::string& file, IKeymap& map, size_t errorLimit, std::vector<KeymapFileError>& errors)
{
    VUnicodeString path;
    if (!FromUtf8(file, path))
        return Fail(Exit::Failed, Cited(file));
    KeymapFileReader reader(map, errorLimit);
    if (const unsigned code = reader.Open(path); code != kErrorSuccess)
        return Fail(Exit::Failed, file + ": " + CodeText(code));
    const bool isWhole = reader.Read();
    errors = reader.Errors();
    return isWhole ? Exit::Done : Exit::Failed;
}

std::string FaultText(const std::string& file, const KeymapFileError& error)
{
    return PlaceText({file, error.line}) + ": " + Lossless(error.text);
}

/// A whole file without a fault counts, and one with a few, which are told; else the last fault fails the command.
Exit ReadMap(const std::string& file, IKeymap& map)
{
    std::vector<KeymapFileError> errors;
    const Exit read = ReadFile(file, map, kKeymapErrorLimit, errors);
    if (read != Exit::Done)
        return errors.empty() ? read : Fail(Exit::Failed, FaultText(file, errors.back()) + "; see keymap check");
    for (const KeymapFileError& error : errors)
        Warn(FaultText(file, error));
    return Exit::Done;
}

Exit ReadSessionMap(const Request& request, ConfigFolder& folder, ProfileKeymap& map)
{
    if (const Exit opened = folder.Open(request, Access::Read); opened != Exit::Done)
        return opened;
    VUnicodeString session;
    const bool isUtf8 = FromUtf8(*request.session, session);
    const VUnicodeString path = BuildSessionKeyPath(session);
    if (!isUtf8 || session.IsEmpty() || !folder.Root().KeyExists(path.c_str()))
        return Fail(Exit::Failed, folder.Path() + ": there is no session " + Cited(*request.session));
    const VProfileKey key(&folder.Root(), path.c_str());
    if (!map.Load(&key, VUnicodeString(kKeymapValue)))
        return Fail(Exit::Failed, PlaceText(folder.PlaceIn(path.c_str(), kKeymapValue)) + ": the key map is damaged");
    return Exit::Done;
}

/// The map that a request names: a file, a session's, or the built-in one.
class AskedMap {
public:
    Exit Read(const Request& request)
    {
        if (request.path.empty() + !request.session + !request.defaults != 2)
            return Fail(Exit::Usage, "name one of FILE, --default and --session; see ostrandcfg --help");
        if (request.defaults)
            InstallDefaultKeymap(m_file);
        m_own = &m_file;
        if (!request.path.empty())
            return ReadMap(request.path, m_file);
        if (!request.session)
            return Exit::Done;
        m_own = &m_session;
        return ReadSessionMap(request, m_folder, m_session);
    }
    const Keymap& Own() const { return *m_own; }

private:
    Keymap m_file;
    ProfileKeymap m_session;
    const Keymap* m_own = nullptr;
    ConfigFolder m_folder;
};

Json ToJson(unsigned index, const Binding& binding)
{
    return {{"index", index},
            {"modifiers", ModifiersOf(index)},
            {"key", KeyText(index)},
            {"function", Lossless(FunctionNameOf(binding.function))},
            {"argument", TakesArgument(binding.function) ? Json(Lossless(binding.argument)) : Json()}};
}

/// Both maps hold the same, as far as files tell.
bool AreSame(const Keymap& a, const Keymap& b)
{
    for (unsigned index = 0; index < kKeyCount; ++index)
        if (!(BindingOf(a, index) == BindingOf(b, index)))
            return false;
    return true;
}

Exit WriteChecked(const Keymap& map, const std::filesystem::path& out, bool unicode)
{
    const std::filesystem::path fresh = out.string() + ".new";
    VUnicodeString path;
    if (!FromUtf8(fresh.string(), path))
        return Fail(Exit::Failed, Cited(out.string()));
    const VTextEncoding encoding = unicode ? VTextEncoding::Utf8 : VTextEncoding::CodePage;
    if (const unsigned code = WriteKeymapFile(map.OwnBindings(), path, encoding); code != kErrorSuccess)
        return Fail(Exit::Store, out.string() + ": " + CodeText(code));
    Keymap again;
    std::vector<KeymapFileError> errors;
    const bool isKept = ReadFile(fresh.string(), again, kKeymapErrorLimit, errors) == Exit::Done && errors.empty() &&
                        AreSame(map, again);
    std::error_code failure;
    if (isKept)
        std::filesystem::rename(fresh, out, failure);
    if (isKept && !failure)
        return Exit::Done;
    std::error_code ignored;
    std::filesystem::remove(fresh, ignored);
    if (failure)
        return Fail(Exit::Store, out.string() + ": " + failure.message());
    return Fail(Exit::Failed, "a file in this encoding can't hold all strings of the map" +
                                  std::string(unicode ? "" : "; try --unicode"));
}

/// Keys that a keyboard has twice: on the keypad, and as a key of its own, which counts as extended.
bool IsThereTwice(unsigned index)
{
    const unsigned key = index & kVirtualKeyMask;
    return (index & kExtendedKey) == 0 && ((key >= 0x21 && key <= 0x28) || key == 0x2D || key == 0x2E);
}

struct Explained {
    unsigned index;
    Binding binding;
    Binding hidden; ///< the default that an own binding hides
    const char* source;
};

Explained Explain(const Keymap& own, unsigned index, bool isDefaultMap)
{
    static const Keymap& defaults = [&]() -> Keymap& {
        auto& map = *new Keymap;
        InstallDefaultKeymap(map);
        return map;
    }();
    const Binding usual = BindingOf(defaults, index);
    const Binding mine = isDefaultMap ? Binding() : BindingOf(own, index);
    if (mine.function != kFunctionNone)
        return {index, mine, usual, mine.function == kFunctionDisabled ? "disabled" : "own"};
    return {index, usual, {}, usual.function == kFunctionNone ? "none" : "default"};
}

std::string ExplainedText(const Explained& e)
{
    std::string text = KeyCombinationText(e.index) + ": ";
    const std::string source = e.source;
    if (source == "none")
        return text + "no binding; the terminal sends what the key types\n";
    text += source == "disabled"
                ? "does nothing, disabled by the map's own binding"
                : ActionText(e.binding) + (source == "own" ? ", the map's own binding" : ", by default");
    if (e.hidden.function != kFunctionNone)
        text += e.hidden == e.binding ? "; the default is the same" : "; it hides the default " + ActionText(e.hidden);
    return text + "\n";
}

} // namespace

Exit ListKeymap(const Request& request)
{
    AskedMap map;
    if (const Exit read = map.Read(request); read != Exit::Done)
        return read;
    Json list = Json::array();
    std::vector<std::vector<std::string>> rows = {{"INDEX", "KEY", "ACTION"}};
    ForEachBinding(map.Own(), [&](unsigned index, const Binding& binding) {
        list.push_back(ToJson(index, binding));
        rows.push_back({std::to_string(index), KeyCombinationText(index), ActionText(binding)});
    });
    return Print(request.asJson ? WriteJson(list) : Table(rows));
}

Exit CheckKeymap(const Request& request)
{
    Keymap map;
    std::vector<KeymapFileError> errors;
    const Exit read = ReadFile(request.path, map, kKeymapCheckErrorLimit, errors);
    if (read != Exit::Done && errors.empty())
        return read;
    size_t bindings = 0;
    ForEachBinding(map, [&bindings](unsigned, const Binding&) { ++bindings; });
    Json list = Json::array();
    std::string text;
    for (const KeymapFileError& error : errors) {
        list.push_back({{"line", error.line}, {"text", Lossless(error.text)}});
        text += Plain(FaultText(request.path, error)) + "\n";
    }
    if (errors.empty())
        text = "No faults in " + std::to_string(bindings) + " bindings.\n";
    const Exit printed = Print(request.asJson ? WriteJson({{"bindings", bindings}, {"errors", list}}) : text);
    return errors.empty() ? printed : Exit::Failed;
}

Exit ConvertKeymap(const Request& request)
{
    Keymap map;
    std::vector<KeymapFileError> errors;
    const Exit read = ReadFile(request.path, map, kKeymapErrorLimit, errors);
    if (!errors.empty())
        return Fail(Exit::Failed, FaultText(request.path, errors.front()) + "; nothing is written, see keymap check");
    if (read != Exit::Done)
        return read;
    std::error_code ignored;
    if (!request.force && std::filesystem::exists(request.tail, ignored))
        return Fail(Exit::Failed, request.tail + ": is there already; --force writes over it");
    if (const Exit written = WriteChecked(map, request.tail, request.asUnicode); written != Exit::Done)
        return written;
    size_t bindings = 0;
    ForEachBinding(map, [&bindings](unsigned, const Binding&) { ++bindings; });
    return Print(request.asJson ? WriteJson({{"bindings", bindings}, {"file", request.tail}})
                                : std::to_string(bindings) + " bindings written to " + request.tail + "\n");
}

Exit DiffKeymaps(const Request& request)
{
    Keymap before, after;
    if (const Exit read = ReadMap(request.path, before); read != Exit::Done)
        return read;
    if (const Exit read = ReadMap(request.tail, after); read != Exit::Done)
        return read;
    Json list = Json::array();
    std::vector<std::vector<std::string>> rows;
    for (unsigned index = 0; index < kKeyCount; ++index) {
        const Binding was = BindingOf(before, index);
        const Binding now = BindingOf(after, index);
        if (was == now || (was.function == kFunctionNone && now.function == kFunctionNone))
            continue;
        const bool isAdded = was.function == kFunctionNone;
        const bool isRemoved = now.function == kFunctionNone;
        list.push_back({{"index", index},
                        {"key", KeyCombinationText(index)},
                        {"before", isAdded ? Json() : ToJson(index, was)},
                        {"after", isRemoved ? Json() : ToJson(index, now)}});
        rows.push_back({isAdded     ? "added"
                        : isRemoved ? "removed"
                                    : "changed",
                        KeyCombinationText(index),
                        (isAdded ? "" : ActionText(was)) + (isAdded || isRemoved ? "" : " -> ") +
                            (isRemoved ? "" : ActionText(now))});
    }
    if (request.asJson)
        return Print(WriteJson(list));
    return Print(rows.empty() ? "Both maps are the same.\n" : Table(rows));
}

Exit ExplainKey(const Request& request)
{
    std::string problem;
    const std::optional<unsigned> index = ReadKeyCombination(request.name, problem);
    if (!index)
        return Fail(Exit::Failed, problem);
    AskedMap map;
    Request asked = request;
    asked.defaults = request.path.empty() && !request.session;
    if (const Exit read = map.Read(asked); read != Exit::Done)
        return read;
    Json list = Json::array();
    std::string text;
    for (const unsigned key : IsThereTwice(*index) ? std::vector{*index, *index | kExtendedKey} : std::vector{*index}) {
        const Explained explained = Explain(map.Own(), key, asked.defaults);
        Json entry = ToJson(key, explained.binding);
        entry["source"] = explained.source;
        entry["hides"] = explained.hidden.function == kFunctionNone ? Json() : Json(ActionText(explained.hidden));
        list.push_back(entry);
        text += ExplainedText(explained);
    }
    return Print(request.asJson ? WriteJson(list) : text);
}

} // namespace ostrand::tool
