#include "parameters/list_parameter.h"

#include <type_traits>

#include "platform/automation/conversions.h"
#include "support/diagnostics.h"

namespace ov {

template <class T, class Base>
Text ListParameter<T, Base>::KeyOf(const T& value) {
    if constexpr (std::is_same_v<T, Text>) {
        return value;
    } else {
        return Text::FromInteger(value);
    }
}

template <class T, class Base>
T ListParameter<T, Base>::ParseText(const Text& text, Purpose) {
    if (const Variant* value = mList.ValueOf(text)) return ValueType<T>::From(*value);
    const T value = ValueType<T>::From(text);
    if (!IsListed(value)) Raise(ErrorNumber::InvalidProcedureCall);
    if constexpr (std::is_same_v<T, Text>) {
        return mList.Spelling(value);
    } else {
        return value;
    }
}

template <class T, class Base>
T ListParameter<T, Base>::DefaultFromLimits() {
    return mList.ValueCount() > 0 ? ValueType<T>::From(mList.ValueAt(0)) : T{};
}

template <class T, class Base>
void ListParameter<T, Base>::ReadList() {
    const Ref<ModuleServices> module = this->Module();
    const Variant subtype = this->CellOr(RowCell::Subtype, Variant::Null());
    if (!module || subtype.IsNull()) return;
    Text text = ToText(subtype);
    if (!mSubtype.empty() && mSubtype == text) return;
    mSubtype = std::move(text);
    ReadNewList(*module);
}

template <class T, class Base>
void ListParameter<T, Base>::CheckFurther(bool& passes, const Terms& /*former*/) {
    if (MayBeUnlisted() || IsListed(this->mValue)) return;
    passes = false;
    this->mErrorText = u"Value (" + KeyOf(this->mValue) + u") is not in enumeration";
}

template <class T, class Base>
void ListParameter<T, Base>::AddRow(const T& value, const Text& text) {
    if (mList.Add(KeyOf(value), value, text) || !DebugOutput()) return;
    this->Log(u"Id '" + TextForLog(this->mId) + u"': IBase_Internal_Config(): ERROR adding ENUM-item '" + text +
              u"' (value=" + KeyOf(value) + u"): " +
              ErrorText(static_cast<std::int32_t>(ErrorNumber::KeyAlreadyAssociated)));
}

template <class T, class Base>
Text ListParameter<T, Base>::UnlistedDefault(const Variant& value) const {
    return u"SetMyValueToDefault: Default-Value '" + TextForLog(value) + u"' ist ein nicht eingetragener Wert!";
}

template class ListParameter<std::int32_t, ListedNumber>;
template class ListParameter<Text, TextParameter>;

}  // namespace ov
