// The bytes of a registry value as what their kind says.
#pragma once

#include "imports/registry_export.h"

namespace ostrand {

/// How texts stand among bytes.
enum class RegistryTexts { Narrow, Utf16 };

/// Texts end at their zero, lists at an empty text. Bytes that don't fit their kind stay bytes.
RegistryData TypedRegistryData(uint32_t kind, RegistryBytes bytes, RegistryTexts texts);

} // namespace ostrand
