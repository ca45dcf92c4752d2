/// @file
/// What the checks of a descriptor have in common: what they look at, and where they put what they find.
#pragma once

#include <string>
#include <vector>

#include "ovmodel/descriptor/descriptor_tables.h"

namespace ovmodel {

enum class Severity { Warning, Error };

/// One defect and where it is.
struct Finding {
    std::string table;
    std::size_t row = 0;  ///< number of the row in its table; 0 for the table itself
    std::string key;
    std::string column;
    Severity severity = Severity::Error;
    std::string text;  ///< a sentence without capital and full stop
};

/// A descriptor under inspection.
class Inspection {
public:
    explicit Inspection(const Descriptor& inspected) : descriptor(inspected) {}

    const Descriptor& descriptor;
    std::vector<Finding> findings;

    void Add(Severity severity, const Row& row, std::u16string_view column, std::string text);
    void Add(Severity severity, const std::string& table, const std::string& column, std::string text);
    /// True if something is known of this place already.
    bool HasFindingAt(const Row& row, std::u16string_view column) const;

    bool hasPrefixes() const { return descriptor.generation() >= 1; }
};

// The checks, each by a theme. None writes anything but findings.
void CheckTables(Inspection& inspection);
void CheckDoubles(Inspection& inspection);
void CheckReferences(Inspection& inspection);
void CheckRules(Inspection& inspection);
void CheckParameters(Inspection& inspection);
void CheckOrder(Inspection& inspection);
void CheckEnumerations(Inspection& inspection);
/// Loads @p type, opens all that it has in each language, and finds what shows only then.
void CheckLife(Inspection& inspection, const std::string& type);

/// A text in quotes, long ones cut.
std::string Quoted(const ov::Text& text);

}  // namespace ovmodel
