// Names that a resource file defines, and conditions on them, as far as the C preprocessor knows both.
#pragma once

#include "imports/import_fault.h"

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace ostrand {

class XDefines {
public:
    /// A name may stand for another one, and that for a third, up to this many.
    static constexpr size_t kMaxChain = 64;

    void Define(std::string_view name, std::string_view value) { m_values.insert_or_assign(std::string(name), value); }
    void Undefine(std::string_view name);
    bool IsDefined(std::string_view name) const { return m_values.find(name) != m_values.end(); }

    /// What a text stands for: where it is a defined name, the value of that, and so on; otherwise itself. Lent. False
    /// for names that lead back to themselves, and for a chain that is too long.
    bool Resolve(std::string_view text, std::string_view& value, size_t line, ImportFault& error) const;

    /// A condition of "#if":
    ///
    ///   any     = all { "||" all }
    ///   all     = test { "&&" test }
    ///   test    = operand [ ( "==" | "!=" | "<" | "<=" | ">" | ">=" ) operand ]
    ///   operand = "!" operand | "(" any ")" | "defined" ( name | "(" name ")" ) | name | number
    ///
    /// A name that isn't defined, or stands for no number, is 0; one that stands for nothing is 1. False for anything
    /// else.
    bool Evaluate(std::string_view condition, bool& result, size_t line, ImportFault& error) const;

private:
    std::map<std::string, std::string, std::less<>> m_values;
};

/// The name at the start of a text, which is cut off there; empty if none does.
std::string_view TakeXName(std::string_view& text);

} // namespace ostrand
