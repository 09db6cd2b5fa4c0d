// Files of colour schemes in any form: an import gives schemes that a list can hold, or a reason; all forms agree on
// that, whatever the content looks like.
#include "imports/registry_export.h"
#include "imports/scheme_import.h"

#include <cstdint>
#include <cstdlib>

using namespace ostrand;

namespace {

void Check(bool holds)
{
    if (!holds)
        std::abort();
}

bool IsColor(uint32_t color) { return color <= 0xFFFFFF; }

void CheckScheme(const ImportedScheme& scheme)
{
    Check(!scheme.name.IsEmpty() && scheme.name.GetLength() <= 200);
    for (const char16_t c : scheme.name.View())
        Check(c >= u' ');
    for (size_t i = 0; i < 8; ++i)
        Check(IsColor(scheme.scheme.foreground[i]) && IsColor(scheme.scheme.background[i]));
    for (const uint32_t color : scheme.ansi)
        Check(IsColor(color) && (scheme.hasAnsi || color == 0));
}

void CheckFault(const ImportFault& fault) { Check(!fault.text.IsEmpty() && fault.text.GetLength() < 8192); }

template <class Read>
void CheckImport(Read read)
{
    SchemeImport import;
    ImportFault error;
    if (read(import, error)) {
        Check(!import.schemes.empty());
        for (const ImportedScheme& scheme : import.schemes)
            CheckScheme(scheme);
        for (const ImportFault& note : import.notes)
            CheckFault(note);
    } else {
        Check(import.schemes.empty());
        CheckFault(error);
    }
}

void CheckExport(std::string_view bytes)
{
    std::vector<RegistryKey> keys;
    ImportFault error;
    if (!ReadRegistryExport(bytes, keys, error))
        CheckFault(error);
    for (const RegistryKey& key : keys)
        Check(!key.path.IsEmpty() && key.line > 0);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const SchemeFile file{{reinterpret_cast<const char*>(data), size}, u"themes/Some theme.xrdb"};
    for (const SchemeForm& form : SchemeForms())
        CheckImport([&](SchemeImport& out, ImportFault& error) { return form.read(file, out, error); });
    CheckImport([&](SchemeImport& out, ImportFault& error) { return ImportSchemes(file, out, error); });
    CheckExport(file.bytes);
    return 0;
}
