// The values of each class as JSON, as text for people, and from words of a command line.
#pragma once

#include "profile/schema_entry.h"
#include "profile/value.h"
#include "tools/json_writer.h"

#include <span>
#include <string>

namespace ostrand::tool {

/// The current value: true or false, null for an undetermined tri-state, a number, a string, an array of strings, or an
/// object with the fields of a structured value; blocks have their bytes as "hex" too.
Json ValueToJson(VValueClass type, const VProfileData& value);

/// The same on one line for people: texts in quotes, structured values as the "field=value" words that `set` takes.
std::string ValueToText(const Json& value);

/// The text of a value beside another one of its class: of a structured value only the fields that differ.
std::string DifferenceText(const Json& value, const Json& other);

/// Sets the current value. Structured values take "field=value" words, of which only the named fields change, or all
/// bytes behind "hex:". False for words that the class or the entry's bound doesn't take, and the value is as it was;
/// `problem` then says both: "'MRU Count' takes an int from 0 to 9, not 12".
bool SetFromWords(const VSchemaEntry& entry, VProfileData& value, std::span<const std::string> words,
                  std::string& problem);

} // namespace ostrand::tool
