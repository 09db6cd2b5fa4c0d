// What a schema says of one value, apart from the record it belongs to: names, type, default, bound, flags and one
// line of meaning. Documentation, the tool and the dialogs read these; records are built from them (profile/schema.h).
#pragma once

#include "platform/export.h"

#include <cstdint>
#include <string_view>

namespace ostrand {

/// Class of a value, as people and programs outside the library name it.
enum class VValueClass : uint8_t {
    Bool,
    Int,
    UInt,
    ULong,
    TriState,
    String,
    Strings,
    MultiLine,
    Font,
    Placement,
    Margins,
    Colors,
    ColorSchemes,
    ListView,
    ExplorerFrame,
    Time,
    Blob,
    Serial,
    Encoded,
    Encrypted,
    Keymap,
};

/// "bool", "int", "explorer-frame" and so on.
OSTRAND_API const char* ValueClassName(VValueClass type);

/// What happens to a stored number outside its range. Bounds correct the current value only, after reading, so the
/// record counts as modified and the next save writes the corrected value.
struct VBound {
    enum class Kind : uint8_t {
        None,
        Within,  ///< the nearest value from `low` to `high`
        AtLeast, ///< raised to `low`; no upper bound
        Among,   ///< any value outside `low` to `high` becomes the default
    };
    Kind kind = Kind::None;
    int low = 0;
    int high = 0;

    constexpr bool Allows(int64_t value) const
    {
        return kind == Kind::None || (value >= low && (kind == Kind::AtLeast || value <= high));
    }
    constexpr int Corrected(int value, int defaultValue) const
    {
        if (Allows(value))
            return value;
        return kind == Kind::Among ? defaultValue : value < low ? low : high;
    }
};

class VSchemaView;

struct VSchemaEntry {
    const char16_t* name = nullptr;         ///< null for a rule
    const char16_t* nameInOrvane = nullptr; ///< null: the same in both applications
    const char16_t* formerly = nullptr;     ///< an old name that is honoured on reading, never written
    const char16_t* meaning = nullptr;      ///< one line; of a rule, what it does and why
    const char16_t* computed = nullptr;     ///< how the default comes about; null where it is constant
    VValueClass type = VValueClass::Bool;
    VBound bound;
    bool formerlyIsDefault = false; ///< the old value counts as the default; else it is taken over as a change
    bool isMerged = true;
    bool isInTable = true;           ///< false: read and merged, never saved, copied or found by name
    int64_t number = 0;              ///< constant default of a number
    const char16_t* text = nullptr;  ///< constant default of a text
    VSchemaView (*part)() = nullptr; ///< of a part that is a record of its own, its schema

    constexpr bool IsRule() const { return name == nullptr; }
    constexpr const char16_t* NameFor(bool isOrvane) const { return isOrvane && nameInOrvane ? nameInOrvane : name; }
};

/// The entries of any record's schema, for readers that don't know the record.
class VSchemaView {
public:
    VSchemaView(const void* first, size_t stride, size_t count)
        : m_first(static_cast<const unsigned char*>(first)),
          m_stride(stride),
          m_count(count)
    {
    }
    size_t GetCount() const { return m_count; }
    const VSchemaEntry& operator[](size_t index) const
    {
        return *reinterpret_cast<const VSchemaEntry*>(m_first + index * m_stride);
    }

private:
    const unsigned char* m_first;
    size_t m_stride;
    size_t m_count;
};

} // namespace ostrand
