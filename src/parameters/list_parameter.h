/// @file
/// What the classes of lists have in common, whatever their values are and wherever their lists come from.
#pragma once

#include "parameters/listed_number.h"
#include "parameters/text_parameter.h"
#include "parameters/value_list.h"

namespace ov {

/// A parameter whose value, a @p T, is chosen from a list. @p Base says what the value is.
template <class T, class Base>
class ListParameter : public Base {
public:
    eEditType editType() override { return eEditType::enumeration; }
    Ref<ICollection> editValues() override { return mList.Texts(); }

protected:
    using typename Parameter::LoadState;
    using typename Parameter::Purpose;
    using typename Parameter::Terms;
    using typename TypedParameter<T>::Content;

    ListParameter() = default;
    ~ListParameter() = default;

    static Text KeyOf(const T& value);
    bool IsListed(const T& value) const { return mList.TextOf(KeyOf(value)) != nullptr; }

    /// A text of the list, or the key of a value in it.
    T ParseText(const Text& text, Purpose purpose) override;
    /// The first entry.
    T DefaultFromLimits() override;
    Text RuleText(const T& value) override { return KeyOf(value); }
    void ReadDisplayFormat() override {}
    void ReadList() override;
    void CheckFurther(bool& passes, const Terms& former) override;

    /// Fills the list from column `subtype`, which is in mSubtype now.
    virtual void ReadNewList(ModuleServices& module) = 0;
    /// Whether values that the list lacks may be held.
    virtual bool MayBeUnlisted() const { return false; }
    /// Adds a row, or logs that it cannot be added.
    void AddRow(const T& value, const Text& text);
    /// The log line about a default that the list lacks.
    Text UnlistedDefault(const Variant& value) const;

    ValueList mList;
    Text mSubtype;        // name of the enumeration, or the statement
    Text mDisplayFormat;  // for values that the list lacks, in the module's language
};

extern template class ListParameter<std::int32_t, ListedNumber>;
extern template class ListParameter<Text, TextParameter>;

}  // namespace ov
