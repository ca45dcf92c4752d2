/// @file
/// Lists from the enumerations of the descriptor, or from a statement, read once for all parameters of a module.
#pragma once

#include <memory>

#include "descriptor/enum_cache.h"
#include "parameters/list_parameter.h"
#include "parameters/list_rows.h"
#include "parameters/list_text.h"

namespace ov {

/// A list that the module's enumeration cache keeps in a form without language and limits. The text of a value is that
/// of the module's language; a change of the language is noticed at the next read, and nobody is told.
template <class T, class Base>
class EnumerationParameter : public ListParameter<T, Base> {
public:
    eEditType editType() override { return mIsIcon ? eEditType::Icon : eEditType::enumeration; }

protected:
    using typename ListParameter<T, Base>::Content;
    using typename ListParameter<T, Base>::LoadState;
    using typename ListParameter<T, Base>::Purpose;

    EnumerationParameter() = default;
    ~EnumerationParameter() = default;

    void ReadDisplayFormat() override;
    void ReadNewList(ModuleServices&) override { ReloadCollections(); }
    void SetMyValueToDefault() override;
    void KeepWrittenValue() override { TakeListedState(); }
    void RefreshUnitForLanguage() override;
    bool StateMayPass() override;
    bool MayBeUnlisted() const override { return AcceptsUnlisted(this->mDisplayFormat); }
    Content ConvertFromEngine(const Variant& value) override;
    Text DisplayText(const T& value, Purpose purpose) override;

    /// Whether the list comes from a statement in column `subtype`.
    virtual bool IsStatement() const = 0;
    /// The query for the rows of an enumeration.
    virtual Text EnumerationQuery() const = 0;
    /// Whether the list has room for a value of its rows.
    virtual bool IsOffered(const T& /*value*/) const { return true; }
    /// By what IsOffered chooses.
    virtual Text OfferedLimits() const { return {}; }
    virtual Text UnlistedText(const T& value) const = 0;
    /// What is logged of a default that is no T.
    virtual Text WrongDefault(const Variant& value, const RuntimeError& failure) const = 0;

    /// Rebuilds the list, in the objects that hosts hold, from the cache or else from the database. Never raises.
    void ReloadCollections();
    /// Normal or NoEnum, by whether the list has the value. Any other state stays.
    void TakeListedState();

    bool mIsIcon = false;

private:
    struct Rows {
        std::shared_ptr<CEnumCacheItem> item;  // none where the rows could not be asked for
        bool hasFallback = false;
    };

    eParameterValueExt StateOf(const T& value) const;
    bool ShowLatest(const CEnumCacheItem& item, ModuleServices& module);
    void KeepLatest(CEnumCacheItem& item, std::int32_t language, std::int32_t firstText) const;
    void FillFromCache(CEnumCacheItem& item, ParameterOwner& owner, ModuleServices& module);
    void FillFromDatabase(ParameterOwner& owner, ModuleServices& module);
    Rows ReadEnumeration(ParameterOwner& owner, ModuleServices& module);
    Rows ReadStatement(ParameterOwner& owner, ModuleServices& module);
    void TakeEnumerationRow(Recordset& row, Rows& rows, ParameterOwner& owner, ModuleServices& module);
    /// Adds a row to the list if that has room for it.
    void Offer(const T& value, const Variant& stored, ParameterOwner& owner, ModuleServices& module);
    Text ShownText(const Variant& stored, ParameterOwner& owner, ModuleServices& module) const;
};

extern template class EnumerationParameter<std::int32_t, ListedNumber>;
extern template class EnumerationParameter<Text, TextParameter>;

}  // namespace ov
