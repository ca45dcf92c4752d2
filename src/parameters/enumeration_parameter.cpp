#include "parameters/enumeration_parameter.h"

#include "descriptor/row_collection.h"
#include "parameters/icon.h"
#include "platform/automation/conversions.h"
#include "support/diagnostics.h"

namespace ov {

template <class T, class Base>
void EnumerationParameter<T, Base>::ReadDisplayFormat() {
    mIsIcon = IsIconFormat(this->CellText(RowCell::DisplayFormat));
}

template <class T, class Base>
void EnumerationParameter<T, Base>::RefreshUnitForLanguage() {
    const std::int32_t former = this->mLanguage;
    Base::RefreshUnitForLanguage();
    if (this->mLanguage != former) ReloadCollections();
}

template <class T, class Base>
bool EnumerationParameter<T, Base>::StateMayPass() {
    const bool unlisted = this->mValueExt == eParameterValueExt::eParamValueExtNoEnum;
    return Base::StateMayPass() || (unlisted && MayBeUnlisted());
}

template <class T, class Base>
eParameterValueExt EnumerationParameter<T, Base>::StateOf(const T& value) const {
    using enum eParameterValueExt;
    return this->IsListed(value) ? eParamValueExtNormalValue : eParamValueExtNoEnum;
}

template <class T, class Base>
void EnumerationParameter<T, Base>::TakeListedState() {
    using enum eParameterValueExt;
    if (this->mValueExt == eParamValueExtNormalValue || this->mValueExt == eParamValueExtNoEnum) {
        this->mValueExt = StateOf(this->mValue);
        this->mTrace.NoteChange();
    }
}

template <class T, class Base>
typename EnumerationParameter<T, Base>::Content EnumerationParameter<T, Base>::ConvertFromEngine(const Variant& value) {
    Content content = Base::ConvertFromEngine(value);
    if (content.state == eParameterValueExt::eParamValueExtNormalValue) content.state = StateOf(content.value);
    return content;
}

template <class T, class Base>
void EnumerationParameter<T, Base>::SetMyValueToDefault() {
    Variant value;
    T held = this->DefaultFromLimits();
    try {
        value = this->EvaluatedCell(RuleColumn::DefaultValue, ValueType<T>::kType);
        if (!value.IsNull()) {
            held = ValueType<T>::From(value);
        } else if (this->mList.ValueCount() == 0) {
            Raise(ErrorNumber::SubscriptOutOfRange);  // there is no first entry: told like a default of the wrong form
        }
    } catch (const RuntimeError& failure) {
        if (DebugOutput()) this->LogWithId(WrongDefault(value, failure));
    }
    this->Hold({held, StateOf(held)});
    if (!this->IsListed(held) && DebugOutput()) {
        this->LogWithId(this->UnlistedDefault(value) + u" strs<>nums: " +
                        Text::FromInteger(static_cast<std::int64_t>(this->mList.TextCount())) + u"<>" +
                        Text::FromInteger(static_cast<std::int64_t>(this->mList.ValueCount())));
    }
}

template <class T, class Base>
Text EnumerationParameter<T, Base>::DisplayText(const T& value, Purpose purpose) {
    RefreshUnitForLanguage();
    if (const Variant* listed = this->mList.TextOf(this->KeyOf(value))) {
        Text text = ToText(*listed);
        return mIsIcon && !text.empty() ? IconPath(this->Module().get(), text) : text;
    }
    if (purpose == Purpose::Show && this->mDisplayFormat.empty()) {
        return ErrorText(static_cast<std::int32_t>(ErrorNumber::InvalidPropertyValue)) + u" (" + this->KeyOf(value) +
               u")";
    }
    return UnlistedText(value);
}

template <class T, class Base>
void EnumerationParameter<T, Base>::ReloadCollections() {
    this->mTrace.NoteChange();
    this->mList.Clear();
    try {
        const Ref<ParameterOwner> owner = this->Owner();
        const Ref<ModuleServices> module = owner->Module();
        if (!module) Raise(ErrorNumber::ObjectVariableNotSet);
        if (const std::shared_ptr<CEnumCacheItem> item = module->EnumCacheGet(this->mSubtype)) {
            FillFromCache(*item, *owner, *module);
        } else {
            FillFromDatabase(*owner, *module);
        }
    } catch (const RuntimeError& failure) {
        if (DebugOutput()) {
            this->Log(u"ReloadCollections(): ONERROR: Error " + Text::FromInteger(failure.number()) + u": " +
                      failure.description() + u" (" + TextForLog(this->mId) + u")");
        }
    }
}

// A text that two rows have ends the filling here, while the first reading leaves out one row and goes on.
template <class T, class Base>
void EnumerationParameter<T, Base>::FillFromCache(CEnumCacheItem& item, ParameterOwner& owner, ModuleServices& module) {
    if (!ShowLatest(item, module)) {
        const Array keys = item.Items->Keys(), texts = item.Items->Items();
        bool isTheSameToAll = !DebugOutput();
        std::int32_t firstText = 0;
        for (std::size_t at = 0; at < keys.size(); ++at) {
            const T value = ValueType<T>::From(keys.Elements()[at]);
            if (!IsOffered(value)) continue;
            const Variant& stored = texts.Elements()[at];
            const Text text = ShownText(stored, owner, module);
            isTheSameToAll =
                isTheSameToAll && !stored.IsString() && owner.IsLiteral(module.GetTranslatedText(stored.AsLong()));
            if (this->mList.ValueCount() == 0 && isTheSameToAll) firstText = stored.AsLong();
            this->mList.AddUnguarded(this->KeyOf(value), value, text);
        }
        if (isTheSameToAll && firstText != 0) KeepLatest(item, module.GetLanguage(), firstText);
    }
    this->mDisplayFormat = module.GetTranslatedText(item.NullTextId);
}

// The log hears of every text that is missing, so with it each list is made anew.
template <class T, class Base>
bool EnumerationParameter<T, Base>::ShowLatest(const CEnumCacheItem& item, ModuleServices& module) {
    const CEnumCacheItem::List& latest = item.Latest;
    if (!latest || DebugOutput() || latest.language != module.GetLanguage() || latest.limits != OfferedLimits())
        return false;
    if (module.GetTranslatedText(latest.firstText).data() != (*latest.texts)[0].AsText().data()) return false;
    this->mList.Show(latest.texts, latest.values);
    return true;
}

template <class T, class Base>
void EnumerationParameter<T, Base>::KeepLatest(CEnumCacheItem& item, std::int32_t language,
                                               std::int32_t firstText) const {
    item.Latest = {language, firstText, OfferedLimits(), this->mList.TextsAsRow(), this->mList.ValuesAsRow()};
}

template <class T, class Base>
void EnumerationParameter<T, Base>::FillFromDatabase(ParameterOwner& owner, ModuleServices& module) {
    const Rows rows = IsStatement() ? ReadStatement(owner, module) : ReadEnumeration(owner, module);
    if (!rows.hasFallback) {
        const std::int32_t fallback = GlobalFallback(module);
        this->mDisplayFormat = module.GetTranslatedText(fallback);
        if (!rows.item) Raise(ErrorNumber::ObjectVariableNotSet);  // and the next reload tries again
        rows.item->NullTextId = fallback;
    }
    // Under the statement with its marks filled in, so that the next parameter finds it only if there were none.
    module.EnumCacheSet(this->mSubtype, rows.item);
}

template <class T, class Base>
typename EnumerationParameter<T, Base>::Rows EnumerationParameter<T, Base>::ReadEnumeration(ParameterOwner& owner,
                                                                                            ModuleServices& module) {
    const Ref<Recordset> row = TryOpen(module, EnumerationQuery());
    if (!row) return {};
    Rows rows{std::make_shared<CEnumCacheItem>()};
    try {
        for (; !row->Eof(); row->MoveNext()) {
            TakeEnumerationRow(*row, rows, owner, module);
        }
    } catch (const RuntimeError&) {
        // A row that cannot be read, or whose value came before, ends the list.
    }
    row->Close();
    return rows;
}

template <class T, class Base>
void EnumerationParameter<T, Base>::TakeEnumerationRow(Recordset& row, Rows& rows, ParameterOwner& owner,
                                                       ModuleServices& module) {
    const Variant value = FieldValue(row, u"value");
    const std::int32_t id = ToLong(NullToDefault(FieldValue(row, u"valueText"), 0));
    if (!value.IsNull()) {
        const T listed = ValueType<T>::From(value);
        Offer(listed, id, owner, module);
        rows.item->Items->Add(listed, id);
        return;
    }
    this->mDisplayFormat = module.GetTranslatedText(id);
    rows.hasFallback = true;
    rows.item->NullTextId = id;
}

template <class T, class Base>
typename EnumerationParameter<T, Base>::Rows EnumerationParameter<T, Base>::ReadStatement(ParameterOwner& owner,
                                                                                          ModuleServices& module) {
    // For good: later reloads run the statement with the value of the first one.
    this->mSubtype = FillMarks(this->mSubtype, module, this->KeyOf(this->mValue));
    const Ref<Recordset> row = TryOpen(module, this->mSubtype);
    if (!row) return {};
    Rows rows{std::make_shared<CEnumCacheItem>()};
    const Text columnText = this->CellText(RowCell::DisplayFormat);
    try {
        const RowTemplate rowText(columnText, *row, GetTextMark);
        for (; !row->Eof(); row->MoveNext()) {
            const T value = ValueType<T>::From(row->ValueAt(0));
            const Text text = columnText.empty() ? this->KeyOf(value) : rowText.Apply(*row);
            Offer(value, text, owner, module);
            // Unlike an enumeration, the list goes on behind a row whose value came before.
            if (!rows.item->Items->Exists(value)) rows.item->Items->Add(value, text);
        }
    } catch (const RuntimeError&) {
        // A row that cannot be read ends the list.
    }
    row->Close();
    return rows;
}

template <class T, class Base>
void EnumerationParameter<T, Base>::Offer(const T& value, const Variant& stored, ParameterOwner& owner,
                                          ModuleServices& module) {
    if (IsOffered(value)) this->AddRow(value, ShownText(stored, owner, module));
}

template <class T, class Base>
Text EnumerationParameter<T, Base>::ShownText(const Variant& stored, ParameterOwner& owner,
                                              ModuleServices& module) const {
    if (stored.IsString()) return ResolveGetText(stored.AsText(), module, Search::FromTheStart);
    Text text = module.GetTranslatedText(stored.AsLong());
    owner.GetStringValueFromScript(text, this->mId);
    return text;
}

template class EnumerationParameter<std::int32_t, ListedNumber>;
template class EnumerationParameter<Text, TextParameter>;

}  // namespace ov
