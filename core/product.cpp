#include "core/product.h"

#include "core/fold.h"
#include "core/messages.h"
#include "core/native_path.h"
#include "core/paths/path_text.h"
#include "core/prompts.h"
#include "core/report.h"
#include "core/tokenize.h"
#include "platform/error_codes.h"
#include "platform/platform.h"

#include <algorithm>
#include <iterator>

namespace ostrand {

namespace {

struct Product {
    int id;
    std::u16string_view name;
    std::u16string_view executable;
    unsigned minimumMajor; // of its version
};

constexpr Product kProducts[] = {
    {kProductQuillo, u"Quillo", u"Quillo.exe", 5},
    {kProductTessaly, u"Tessaly", u"Tessaly.exe", 5},
    {kProductOrvane, u"Orvane", u"Orvane.exe", 3},
};

struct Sibling {
    VUnicodeString path;
    bool isInstalled = false;
};

struct State {
    Sibling siblings[std::size(kProducts)];
    int currentProduct = kProductNone;
    VAppNameFunction appName = nullptr;
};

State& TheState()
{
    // Never destroyed: applications ask for siblings while static objects go.
    static State& state = *new State;
    return state;
}

const Product* FindProduct(int productId)
{
    const auto* const found = std::find_if(std::begin(kProducts), std::end(kProducts),
                                           [productId](const Product& p) { return p.id == productId; });
    return found == std::end(kProducts) ? nullptr : found;
}

Sibling& SiblingOf(int productId) { return TheState().siblings[FindProduct(productId) - kProducts]; }

const char16_t* PathOf(int productId)
{
    const Sibling& sibling = SiblingOf(productId);
    return sibling.isInstalled ? sibling.path.c_str() : u"";
}

bool IsExecutable(std::u16string_view path, unsigned minimumMajor)
{
    std::string native;
    return ToNativePath(path, native) && Platform().processes->IsProductExecutable(native, minimumMajor);
}

Sibling Detect(std::u16string_view folder, const Product& product)
{
    // The name without ".exe" first: so programs are called where that ending has no meaning.
    for (const std::u16string_view name : {product.name, product.executable}) {
        const VUnicodeString path = JoinPath(folder, name);
        if (IsExecutable(path, product.minimumMajor))
            return {path, true};
    }
    return {JoinPath(folder, product.executable), false};
}

std::vector<std::string> SplitArguments(const char16_t* arguments)
{
    static constexpr std::u16string_view kBlank[] = {u" "};
    static constexpr std::u16string_view kQuotes[] = {u"\"\""};
    VStringArray pieces;
    Tokenize(arguments ? arguments : u"", pieces,
             {.separators = kBlank, .quotes = kQuotes, .dropEmpty = true, .stripQuotes = true});
    std::vector<std::string> list;
    for (const VUnicodeString& piece : pieces)
        list.push_back(ToUtf8(piece));
    return list;
}

void Launch(int productId, const char16_t* path, const char16_t* arguments)
{
    std::string native;
    if (*path && ToNativePath(path, native) &&
        Platform().processes->Start(native, SplitArguments(arguments)) == kErrorSuccess)
        return;
    VReportMessageParams report;
    Fail(report, kLaunchFailed, GetProductName(productId), path);
    Prompts().Show(report.GetText(), VPromptIcon::Warning);
}

VUnicodeString NameOfExecutable()
{
    const std::string path = Platform().processes->ExecutablePath();
    VUnicodeString name;
    FromUtf8(BaseName(path), name);
    if (EqualNoCase(name.Right(4), u".exe"))
        name = name.Left(name.GetLength() - 4);
    return name;
}

} // namespace

VUnicodeString GetProductName(int productId)
{
    const Product* const product = FindProduct(productId);
    return product ? product->name : std::u16string_view();
}

VUnicodeString VGetAppName()
{
    const VAppNameFunction function = TheState().appName;
    return function ? function() : NameOfExecutable();
}

void SetAppNameFunction(VAppNameFunction function) { TheState().appName = function; }

int GetProductFromAppName()
{
    const VUnicodeString name = VGetAppName();
    const auto* const found = std::find_if(std::begin(kProducts), std::end(kProducts),
                                           [&name](const Product& p) { return EqualNoCase(name, p.name); });
    return found == std::end(kProducts) ? kProductNone : found->id;
}

void SetCurrentAppProductID(int productId) { TheState().currentProduct = productId; }

int GetCurrentAppProductID() { return TheState().currentProduct; }

bool OstrandUiInitClientApplications(const char16_t* folder)
{
    if (folder)
        for (const Product& product : kProducts)
            SiblingOf(product.id) = Detect(folder, product);
    return true;
}

bool IsQuilloInstalled() { return SiblingOf(kProductQuillo).isInstalled; }

bool IsTessalyInstalled() { return SiblingOf(kProductTessaly).isInstalled; }

bool IsOrvaneInstalled() { return SiblingOf(kProductOrvane).isInstalled; }

bool IsTessalyOrQuilloInstalled() { return IsTessalyInstalled() || IsQuilloInstalled(); }

void SetTessalyInstalled(bool installed) { SiblingOf(kProductTessaly).isInstalled = installed; }

void SetOrvaneInstalled(bool installed) { SiblingOf(kProductOrvane).isInstalled = installed; }

const char16_t* GetQuilloPath() { return PathOf(kProductQuillo); }

const char16_t* GetTessalyPath() { return PathOf(kProductTessaly); }

const char16_t* GetOrvanePath() { return PathOf(kProductOrvane); }

bool CanLaunchTerminalApp() { return IsTessalyInstalled(); }

bool CanLaunchFileTransferApp() { return IsOrvaneInstalled(); }

bool IsIntegrated() { return !IsQuilloInstalled() && IsTessalyInstalled() && IsOrvaneInstalled(); }

bool IsIntegrated(VUnicodeString& other)
{
    if (!IsIntegrated())
        return false;
    other = GetProductName(GetCurrentAppProductID() == kProductOrvane ? kProductTessaly : kProductOrvane);
    return true;
}

void LaunchTerminalApp(const char16_t* arguments)
{
    const int productId = IsTessalyInstalled() ? kProductTessaly : kProductQuillo;
    Launch(productId, PathOf(productId), arguments);
}

void LaunchFileTransferApp(const char16_t* arguments) { Launch(kProductOrvane, PathOf(kProductOrvane), arguments); }

} // namespace ostrand
