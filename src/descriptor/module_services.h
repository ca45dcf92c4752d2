/// @file
/// What the objects of a tree ask of their module.
#pragma once

#include <cstdint>
#include <memory>

#include "contract/environment.h"
#include "descriptor/enum_cache.h"
#include "platform/automation/interface_info.h"
#include "platform/store/store.h"
#include "record/rule_record.h"

namespace ov {

/// A facet of the module that stays inside the library: no operation of it can be called by name.
class ModuleServices : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{0F6C2C4E-7B8D-4B0E-9B55-6D2F6C1F4A01}");
    static constexpr const char* kName = "ModuleServices";
    static const InterfaceInfo& Members() {
        static const InterfaceInfo info(kIid, kName, {});
        return info;
    }

    /// The text of a number in the module's language; "" for 0 and for a number that the table lacks. Never raises.
    virtual Text GetTranslatedText(std::int32_t index) = 0;
    /// The file name of a number in the module's language, relative to the database's folder.
    /// @throws RuntimeError of a table that cannot be read
    virtual Text GetTranslatedFile(std::int32_t index) = 0;
    virtual std::int32_t GetLanguage() = 0;
    /// Generation of the descriptor: below 1 the shape of a text tells what is a script, from 1 on prefixes do.
    virtual std::int32_t GetModelVersionIndex() = 0;
    /// The number of the module's type, which statements know as "$module".
    virtual std::int32_t GetModuleTypeIdx() = 0;
    /// The path of the database; files that the descriptor names lie beside it.
    virtual Text GetSourcePath() = 0;
    /// The open database; Nothing for a module that was unloaded.
    virtual Ref<Database> GetDB() = 0;
    virtual Ref<CBase_Environment> Environment() = 0;
    /// The descriptor row, for reading. `desc` gives it to hosts, who may change it.
    virtual Collection* Row() { return nullptr; }
    /// What is known of the rules of the tree that stands; Nothing where nobody keeps it.
    virtual std::shared_ptr<RuleRecord> Record() { return nullptr; }
    virtual std::shared_ptr<CEnumCacheItem> EnumCacheGet(const Text& key) = 0;
    /// The first item under a key stays; a second one is logged.
    virtual void EnumCacheSet(const Text& key, const std::shared_ptr<CEnumCacheItem>& item) = 0;
};

}  // namespace ov
