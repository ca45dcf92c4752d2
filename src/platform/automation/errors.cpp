#include "platform/automation/errors.h"

#include <algorithm>
#include <array>
#include <new>

#include "platform/automation/memory_account.h"

namespace ov {

namespace {

struct Entry {
    std::int32_t number;
    const char16_t* text;
};

// Sorted by number. Up to 1000 the run time's, above 3000 the database engine's.
constexpr std::array kErrors = {
    Entry{3, u"Return without GoSub"},
    Entry{5, u"Invalid procedure call or argument"},
    Entry{6, u"Overflow"},
    Entry{7, u"Out of memory"},
    Entry{9, u"Subscript out of range"},
    Entry{10, u"This array is fixed or temporarily locked"},
    Entry{11, u"Division by zero"},
    Entry{13, u"Type mismatch"},
    Entry{14, u"Out of string space"},
    Entry{17, u"Can't perform requested operation"},
    Entry{28, u"Out of stack space"},
    Entry{35, u"Sub or Function not defined"},
    Entry{48, u"Error in loading DLL"},
    Entry{51, u"Internal error"},
    Entry{52, u"Bad file name or number"},
    Entry{53, u"File not found"},
    Entry{54, u"Bad file mode"},
    Entry{55, u"File already open"},
    Entry{57, u"Device I/O error"},
    Entry{58, u"File already exists"},
    Entry{61, u"Disk full"},
    Entry{62, u"Input past end of file"},
    Entry{67, u"Too many files"},
    Entry{68, u"Device unavailable"},
    Entry{70, u"Permission denied"},
    Entry{71, u"Disk not ready"},
    Entry{74, u"Can't rename with different drive"},
    Entry{75, u"Path/File access error"},
    Entry{76, u"Path not found"},
    Entry{91, u"Object variable or With block variable not set"},
    Entry{92, u"For loop not initialized"},
    Entry{93, u"Invalid pattern string"},
    Entry{94, u"Invalid use of Null"},
    Entry{322, u"Can't create necessary temporary file"},
    Entry{380, u"Invalid property value"},
    Entry{383, u"Property is read-only"},
    Entry{424, u"Object required"},
    Entry{429, u"ActiveX component can't create object"},
    Entry{430, u"Class doesn't support Automation"},
    Entry{432, u"File name or class name not found during Automation operation"},
    Entry{438, u"Object doesn't support this property or method"},
    Entry{440, u"Automation error"},
    Entry{445, u"Object doesn't support this action"},
    Entry{446, u"Object doesn't support named arguments"},
    Entry{447, u"Object doesn't support current locale setting"},
    Entry{448, u"Named argument not found"},
    Entry{449, u"Argument not optional"},
    Entry{450, u"Wrong number of arguments or invalid property assignment"},
    Entry{451, u"Object not a collection"},
    Entry{453, u"Specified DLL function not found"},
    Entry{455, u"Code resource lock error"},
    Entry{457, u"This key is already associated with an element of this collection"},
    Entry{458, u"Variable uses an Automation type not supported in this language"},
    Entry{462, u"The remote server machine does not exist or is unavailable"},
    Entry{481, u"Invalid picture"},
    Entry{500, u"Variable is undefined"},
    Entry{501, u"Illegal assignment"},
    Entry{502, u"Object not safe for scripting"},
    Entry{503, u"Object not safe for initializing"},
    Entry{504, u"Object not safe for creating"},
    Entry{505, u"Invalid or unqualified reference"},
    Entry{506, u"Class not defined"},
    Entry{507, u"An exception occurred"},
    Entry{3001, u"Invalid argument."},
    Entry{3011, u"The database engine could not find the object. It may be damaged."},
    Entry{3015, u"'PrimaryKey' is not an index in this table."},
    Entry{3019, u"Operation invalid without a current index."},
    Entry{3021, u"No current record."},
    Entry{3024, u"Could not find file."},
    Entry{3027, u"Cannot update. Database or object is read-only."},
    Entry{3031, u"Not a valid password."},
    Entry{3050, u"Could not lock file."},
    Entry{3061, u"Too few parameters."},
    Entry{3075, u"Syntax error in query expression."},
    Entry{3078, u"The database engine cannot find the input table or query."},
    Entry{3219, u"Invalid operation."},
    Entry{3251, u"Operation is not supported for this type of object."},
    Entry{3265, u"Item not found in this collection."},
    Entry{3343, u"Unrecognized database format."},
    Entry{3420, u"Object invalid or no longer set."},
    Entry{5016, u"Regular Expression object expected"},
    Entry{5017, u"Syntax error in regular expression"},
    Entry{5018, u"Unexpected quantifier"},
    Entry{5019, u"Expected ']' in regular expression"},
    Entry{5020, u"Expected ')' in regular expression"},
    Entry{5021, u"Invalid range in character set"},
    Entry{32811, u"Element not found"},
};
static_assert(std::ranges::is_sorted(kErrors, {}, &Entry::number));

}  // namespace

Text ErrorText(std::int32_t number) {
    const MemoryAccount::Exemption exemption;  // errors can be told whatever a script holds
    const auto at = std::ranges::lower_bound(kErrors, number, {}, &Entry::number);
    return at != kErrors.end() && at->number == number ? Text(at->text) : Text(u"Unknown runtime error");
}

RuntimeError::RuntimeError(std::int32_t number, Text source, Text description)
    : mNumber(number), mSource(std::move(source)), mDescription(std::move(description)) {}

RuntimeError::RuntimeError(std::int32_t number) : mNumber(number), mIsStandard(true), mDescription(ErrorText(number)) {}

RuntimeError::RuntimeError(ErrorNumber number, Text description)
    : RuntimeError(static_cast<std::int32_t>(number), Text(), std::move(description)) {}

const char* RuntimeError::what() const noexcept {
    if (!mWhat.empty()) return mWhat.c_str();
    const MemoryAccount::Exemption exemption;
    try {
        mWhat = mDescription.ToUtf8();
        if (!mSubject.empty()) mWhat += ": '" + mSubject.ToUtf8() + "'";
    } catch (const std::bad_alloc&) {
        mWhat.clear();
    }
    return mWhat.c_str();
}

void Raise(ErrorNumber number) {
    throw RuntimeError(number);
}

void RaiseAbout(ErrorNumber number, Text subject) {
    RuntimeError error(number);
    error.SetSubject(std::move(subject));
    throw error;
}

RuntimeError CurrentError() noexcept {
    const MemoryAccount::Exemption exemption;
    try {
        throw;
    } catch (const RuntimeError& error) {
        return error;
    } catch (const std::bad_alloc&) {
        return RuntimeError(ErrorNumber::OutOfMemory);
    } catch (const std::exception& error) {
        return RuntimeError(ErrorNumber::InternalError, Text::FromUtf8(error.what()));
    } catch (...) {
        return RuntimeError(ErrorNumber::InternalError);
    }
}

}  // namespace ov
