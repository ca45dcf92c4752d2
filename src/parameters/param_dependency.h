/// @file
/// The alternative rows of one parameter.
#pragma once

#include <cstddef>
#include <vector>

#include "contract/internal.h"
#include "platform/automation/collection.h"
#include "platform/automation/object.h"

namespace ov {

/// CBase_ParamDependency: a ring of rows with a cursor. Which row is in force is its owner's affair.
class ParamDependency final : public Object<ParamDependency, Facet<CBase_ParamDependency>> {
public:
    static constexpr const char* kClassName = "CBase_ParamDependency";
    /// Most rows that a ring takes.
    static constexpr std::size_t kCapacity = 20;

    std::int32_t get_idx() override { return Current().idx; }
    Text get_dep() override { return Current().dep; }
    Text get_removeOnDep() override { return Current().removeOnDep ? u"True" : u"False"; }
    Ref<ICollection> get_desc() override { return Current().desc; }
    void MoveFirst() override;
    void MoveNext() override;
    void Add(std::int32_t idxx, const Text& depp, bool removeOnDepp, ICollection* descc) override;

private:
    struct Entry {
        Ref<ICollection> desc;
        Text dep;
        std::int32_t idx;
        bool removeOnDep;
    };

    const Entry& Current();

    std::vector<Entry> mEntries;
    std::size_t mCursor = 0;  // from 1 on; 0 before the first move, while the ring takes rows
};

}  // namespace ov
