#include "parameters/parameter_select.h"

#include "platform/automation/conversions.h"
#include "support/diagnostics.h"

namespace ov {

void ParameterSelect::ReadList() {
    ListParameter::ReadList();
    if (const Ref<ModuleServices> module = Module()) ReadFallback(*module);
}

void ParameterSelect::ReadNewList(ModuleServices& module) {
    mList.Clear();
    CloseLimits();
    mSubtype = FillMarks(mSubtype, module, KeyOf(mValue));  // for good
    ForEachRow(module, [this](std::int32_t value, const Text& text) {
        AddRow(value, text);
        WidenLimits(value);
    });
}

// take(value, text) for every row, up to the first one that cannot be read.
template <class Take>
void ParameterSelect::ForEachRow(ModuleServices& module, Take take) {
    const Ref<Recordset> row = TryOpen(module, mSubtype);
    if (!row) return;
    const Variant column = CellOr(RowCell::DisplayFormat, Variant::Null());
    try {
        // Marks of texts are those of the template: a field's own text with one in it stays as it is.
        const Text format = column.IsNull() ? Text() : ResolveGetText(ToText(column), module, Search::Onward);
        const RowTemplate rowText(format, *row, [&](std::int32_t number) { return module.GetTranslatedText(number); });
        for (; !row->Eof(); row->MoveNext()) {
            const std::int32_t value = ToLong(row->ValueAt(0));
            take(value, column.IsNull() ? KeyOf(value) : rowText.Apply(*row));
        }
    } catch (const RuntimeError&) {
        // The rows before stay.
    }
    row->Close();
}

void ParameterSelect::ReadFallback(ModuleServices& module) {
    try {
        const Ref<Database> db = module.GetDB();
        if (db) mFallbackId = ReadGlobalFallback(*db, mFallbackId);
    } catch (const RuntimeError&) {
        // The former one stays.
    }
    mDisplayFormat = module.GetTranslatedText(mFallbackId);
}

// Texts of the new language are shown from now on, while those of the old one are the ones that can be written.
void ParameterSelect::RefreshUnitForLanguage() {
    const std::int32_t former = mLanguage;
    ListedNumber::RefreshUnitForLanguage();
    const Ref<ModuleServices> module = mLanguage != former ? Module() : nullptr;
    if (!module) return;
    mTrace.NoteChange();
    mList.ClearTexts();
    ForEachRow(*module, [this](std::int32_t value, const Text& text) {
        if (IsInRange(value)) mList.AddText(KeyOf(value), text);
    });
    ReadFallback(*module);
}

void ParameterSelect::CheckFurther(bool& passes, const Terms& former) {
    ListParameter::CheckFurther(passes, former);
    const bool moved = CurrentLimits() != former.limits || CurrentScale() != former.scale;
    const Ref<ModuleServices> module = moved ? Module() : nullptr;
    if (!module) return;
    mList.Clear();
    ForEachRow(*module, [this](std::int32_t value, const Text& text) {
        if (IsInRange(value)) AddRow(value, text);
    });
}

void ParameterSelect::SetMyValueToDefault() {
    const Variant column = CellOr(RowCell::DefaultValue, Variant::Null());
    std::int32_t value = DefaultFromLimits();
    if (!column.IsNull()) {
        try {
            value = Owner()->GetLongFromScript(ToText(column), mId);
        } catch (const RuntimeError&) {
            if (DebugOutput()) {
                LogWithId(u"SetMyValueToDefault(): DefaultValue (" + TextForLog(column) + u") has wrong format!");
            }
        }
    }
    Hold({value});
    if (!IsListed(value) && DebugOutput()) Log(UnlistedDefault(column));
}

void ParameterSelect::WriteByEngine(const Variant& value) {
    std::int32_t number = 0;
    try {
        number = ToLong(value);
    } catch (const RuntimeError&) {
        if (DebugOutput()) {
            LogWithId(u"Property Let IBase_SpecParameter_value(" + TextForLog(value) +
                      u"): ERROR: Aktion nicht möglich");
        }
        return;
    }
    ListParameter::WriteByEngine(number);
}

Text ParameterSelect::DisplayText(const std::int32_t& value, Purpose purpose) {
    RefreshUnitForLanguage();
    const Variant format = CellOr(RowCell::DisplayFormat, Variant::Null());
    if (purpose == Purpose::Format && !format.IsNull() && DebugOutput()) {
        LogWithId(u"Get IBase_GuiParameter_FormatValue(): displayFormat is set (" + TextForLog(format) +
                  u") but will be ignored!");
    }
    if (const Variant* listed = mList.TextOf(KeyOf(value))) return ToText(*listed);
    return mDisplayFormat + u" (" + KeyOf(value) + u")";
}

}  // namespace ov
