// VVariant: the tagged value that settings exchange with an application's automation layer.
#pragma once

#include "core/strings.h"
#include "platform/export.h"

#include <cstdint>
#include <variant>
#include <vector>

namespace ostrand {

struct VVariant;

/// Elements of a one-dimensional array with lower bound 0.
using VVariantArray = std::vector<VVariant>;
/// A borrowed look at another value.
struct VVariantReference {
    const VVariant* target = nullptr;
};

/// Empty, signed 32-bit, unsigned int, unsigned long (32-bit), bool, string, array of values, or a reference to one.
/// The two unsigned kinds differ in their tag alone.
struct VVariant {
    struct UnsignedInt {
        uint32_t value;
        bool operator==(const UnsignedInt&) const = default;
    };
    struct UnsignedLong {
        uint32_t value;
        bool operator==(const UnsignedLong&) const = default;
    };

    std::variant<std::monostate, int32_t, UnsignedInt, UnsignedLong, bool, VUnicodeString, VVariantArray,
                 VVariantReference>
        data;
};

/// Conversions by the rules of automation values, looking through one reference. False, `out` untouched, where there
/// is none: arrays, references to references, numbers that don't fit.
///
///              to a number            to a bool              to a text
///   empty      0                      false                  ""
///   number     itself, if it fits     whether it isn't 0     decimal
///   bool       all bits set, or 0     itself                 "-1" or "0"
///   text       number                 word or number         itself
///
///   number = blanks [ "+" | "-" ] ( digits | "&H" hexadecimal digits ) blanks     between -2^31 and 2^32 - 1
///   word   = "true" | "false" | "#TRUE#" | "#FALSE#", in any case, without blanks
OSTRAND_API bool ConvertVariant(const VVariant& in, uint32_t& out);
OSTRAND_API bool ConvertVariant(const VVariant& in, int32_t& out);
OSTRAND_API bool ConvertVariant(const VVariant& in, bool& out);
OSTRAND_API bool ConvertVariant(const VVariant& in, VUnicodeString& out);

} // namespace ostrand
