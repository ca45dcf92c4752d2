/// @file
/// The registry of the machine: an INI file whose sections are keys and whose entries are values.
///
/// The file is the one that the environment variable OV_MODEL_REGISTRY names, else /etc/ov_model/registry.ini. A
/// section is "[SOFTWARE\Orvane\Controls]", an entry "Debug=1"; digits alone are a number, anything else is a text
/// (quotes around it are dropped). Keys and names compare without regard to case, and of entries that stand twice the
/// last one counts. Lines that begin with ";" or "#" are remarks; lines that are nothing of all this are passed over.
#pragma once

#include <vector>

#include "platform/automation/text.h"
#include "platform/automation/variant.h"

namespace ov::registry {

/// The value @p name under @p key: a Long, a String, or Empty if there is none. Numbers have 32 bits, the upper half of
/// them is negative; longer digits are a text. An empty name is the key's default value, written "@=...". The file is
/// read anew at each call. Never fails: an unreadable file has no values.
Variant Read(const Text& key, const Text& name);

/// One value to be written.
struct Entry {
    Text key;
    Text name;
    Text value;
};
/// Writes text values, making keys as needed; everything else in the file stays as it is.
/// @throws RuntimeError 70, 75 or 76 if the file cannot be written, 5 if an entry would not be read back: one with a
/// line break, an empty key or "]" in it, a name with "=" in it or the begin of another kind of line; the file is
/// unchanged then.
void Write(const std::vector<Entry>& entries);
/// Removes @p keys and all keys below them; keys that are not there are no error. Remarks right above the next key
/// stay. @throws RuntimeError 70, 75 or 76 as Write.
void RemoveKeys(const std::vector<Text>& keys);

}  // namespace ov::registry
