#include "core/report.h"

#include "core/code_page.h"
#include "core/messages.h"
#include "core/system_texts.h"
#include "core/trace.h"
#include "platform/error_codes.h"
#include "platform/platform.h"

namespace ostrand {

namespace {

/// Clear in the codes of the platform, set in those of message tables.
constexpr unsigned kOwnTableBit = 1u << 29;

IReportMessageParams* NewMessage(unsigned code, VModuleHandle module) { return new VReportMessageParams(code, module); }

VReportRouterGetter g_routerGetter = nullptr;
VReportFactory g_factory = &NewMessage;
VForeignTextHook g_foreignText = nullptr;

/// The template of a code, from the first source that has one; null if none does.
const char16_t* FindTemplate(unsigned code, VModuleHandle module)
{
    const char16_t* text = code & kOwnTableBit ? nullptr : FindSystemText(code);
    if (!text)
        text = FindMessageText(code);
    if (!text && g_foreignText)
        text = g_foreignText(code, module);
    return text;
}

VUnicodeString NoTemplate(unsigned code, VModuleHandle module, VFormatLines lines)
{
    VUnicodeString moduleName;
    FromUtf8(Platform().processes->ModulePath(module), moduleName);
    if (moduleName.IsEmpty())
        moduleName = u"<Unknown Module>";
    const VFormatArgument arguments[] = {code, moduleName, kErrorMessageNotFound, kErrorMessageNotFound};
    VUnicodeString text;
    FormatMessageText(u"Could not retrieve the error text for error code 0x%1!08x!.\r\n"
                      u"Status codes from FormatMessage were %2:%3!d! and %4!d!.",
                      arguments, lines, text);
    return text;
}

} // namespace

VModuleHandle LibraryModule()
{
    // Any address inside the library does.
    return &g_factory;
}

VReportMessageParams::VReportMessageParams(const VReportMessageParams& other)
    : IReportMessageParams(other),
      m_pointers(other.m_pointers),
      m_arguments(other.m_arguments),
      m_code(other.m_code),
      m_module(other.m_module)
{
}

VReportMessageParams& VReportMessageParams::operator=(const VReportMessageParams& other)
{
    // The strings share their buffers, so the pointers of the other object fit this one too.
    m_arguments = other.m_arguments;
    m_pointers = other.m_pointers;
    m_code = other.m_code;
    m_module = other.m_module;
    m_text.reset();
    return *this;
}

uint32_t VReportMessageParams::AddRef()
{
    return static_cast<uint32_t>(m_references.fetch_add(1, std::memory_order_relaxed) + 1);
}

uint32_t VReportMessageParams::Release()
{
    const int32_t left = m_references.fetch_sub(1, std::memory_order_acq_rel) - 1;
    if (left == 0)
        delete this;
    return static_cast<uint32_t>(left);
}

void VReportMessageParams::SetMessage(unsigned code)
{
    m_code = code;
    m_module = LibraryModule();
    m_arguments.clear();
    m_pointers.clear();
    m_text.reset();
}

void VReportMessageParams::Assign(IReportMessageParams* other)
{
    if (const auto* const params = dynamic_cast<VReportMessageParams*>(other))
        *this = *params;
}

void VReportMessageParams::AddArgument(const char16_t* text)
{
    m_arguments.emplace_back(text);
    m_pointers.push_back(m_arguments.back().c_str());
}

void VReportMessageParams::AddArgumentA(const char* text) { AddArgument(FromCodePage(text ? text : "").c_str()); }

void VReportMessageParams::AddFormattedArgument(const char16_t* format, std::span<const VFormatArgument> values)
{
    AddArgument(FormatList(format, values).c_str());
}

const char16_t* VReportMessageParams::TextOf(bool oneLine)
{
    if (!m_text) {
        const VFormatLines lines = oneLine ? VFormatLines::AsBlanks : VFormatLines::Keep;
        auto text = std::make_unique<VUnicodeString>();
        if (const char16_t* const format = FindTemplate(m_code, m_module)) {
            const std::vector<VFormatArgument> arguments(m_arguments.begin(), m_arguments.end());
            if (FormatMessageText(format, arguments, lines, *text) != kErrorSuccess)
                *text = FormatIgnoringInserts(format, lines);
        } else {
            *text = NoTemplate(m_code, m_module, lines);
        }
        m_text = std::move(text);
    }
    return m_text->c_str();
}

const char16_t* VReportMessageParams::GetText() { return TextOf(false); }

const char16_t* VReportMessageParams::GetTextOneLine() { return TextOf(true); }

unsigned VReportMessageParams::GetTextLength() const { return m_text ? static_cast<unsigned>(m_text->GetLength()) : 0; }

const char16_t* const* VReportMessageParams::GetArguments() { return m_pointers.data(); }

const char16_t* const* VReportMessageParams::GetArguments() const { return m_pointers.data(); }

int VReportMessageParams::GetArgumentCount() const { return static_cast<int>(m_arguments.size()); }

void SetReportRouterGetter(VReportRouterGetter getter) { g_routerGetter = getter; }

void SetReportFactory(VReportFactory factory) { g_factory = factory ? factory : &NewMessage; }

void SetForeignTextHook(VForeignTextHook hook) { g_foreignText = hook; }

void VReportMessage(int reportKind, IReportMessageParams& message)
{
    IReportMessageParams* const copy = g_factory(message.GetCode(), message.GetModule());
    copy->Assign(&message);
    VReportHeapMessage(reportKind, copy);
}

void VReportHeapMessage(int reportKind, IReportMessageParams* message)
{
    message->SetReportKind(reportKind);
    if (VReportMessageRouter* const router = g_routerGetter ? g_routerGetter() : nullptr)
        router->Route(message);
    else
        VTrace(u"VReportMessage: no router exists, error code: %1!d!\n", message->GetCode());
    message->Release();
}

} // namespace ostrand
