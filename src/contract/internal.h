/// @file
/// The parameter as its group configures it, and the ring of its alternative rows. For the tree itself: a host reads
/// here at most. What holds for all interfaces stands in forward.h.
#pragma once

#include <optional>

#include "contract/enumerations.h"
#include "contract/forward.h"
#include "platform/automation/dispatch.h"

namespace ov {

/// The parameter as its group sees it.
class IBase_Internal : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{891CC229-5CDE-46A5-AE8C-F0BFBEABCDEC}");
    static constexpr const char* kName = "_IBase_Internal";
    static const InterfaceInfo& Members();

    virtual eParameterConfigState get_configState() = 0;  ///< whether the parameter is in force
    /// Tells OnParameterConfigStateChanged if it changed; the parameter itself does not act on it.
    virtual void let_configState(eParameterConfigState value) = 0;
    /// The mark that a script has read this parameter; rules that read it are run again when it is reconfigured.
    virtual bool get_scriptAccess() = 0;
    virtual void let_scriptAccess(bool value) = 0;
    /// Evaluates gain, offset, limits and the consistency rule anew and answers whether the value passes. Never changes
    /// the device view. Tells OnParameterReconfigured and OnParameterStateChanged as far as anything changed.
    virtual bool CheckConsistency() = 0;
    /// Takes a row of the descriptor: @p parent is the group, @p desc a tBaseDescriptorDB on the row or the row itself
    /// as a keyed collection. A value that was written before stays; else the row's default comes in force. Evaluates
    /// no limits. Tells OnParameterReconfigured, except at the first time.
    /// @returns False, with nothing changed, for other arguments and for a database row that is held already
    virtual bool Config(IDispatch* parent, const Variant& desc) = 0;
    virtual Variant id() = 0;  ///< that of the other facets
    /// The number, unique in the descriptor, of the row in force.
    virtual std::int32_t DBindex() = 0;
    virtual Ref<CBase_ParamDependency> dependencies() = 0;  ///< never Nothing
    /// Drops listeners, row and group.
    virtual void Unload() = 0;
    /// A Boolean: whether gain or offset would come out otherwise now. Changes nothing.
    virtual Variant CheckNeedForReConfig() = 0;
};

/// The rows that one parameter may take, in a ring with a cursor; at most one of them is in force. Twenty fit, a
/// further one is dropped in silence. The four readers give the row under the cursor, the first one before any move.
///
/// @throws RuntimeError 9 from the readers of an empty ring
class CBase_ParamDependency : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{16353967-1FE9-4068-81E7-11A6979EED77}");
    static constexpr const char* kName = "_CBase_ParamDependency";
    static const InterfaceInfo& Members();

    virtual std::int32_t get_idx() = 0;  ///< the row's number, IBase_Internal::DBindex while it is in force
    virtual Text get_dep() = 0;          ///< the rule that puts the row in force; "" is always in force
    /// "True" if the parameter becomes invalid, "False" if it becomes disabled, when no row is in force. A word, not
    /// a Boolean.
    virtual Text get_removeOnDep() = 0;
    virtual Ref<ICollection> get_desc() = 0;  ///< the row itself: column name to value
    /// Ends the filling of the ring and goes to the first row. Does nothing on an empty ring.
    virtual void MoveFirst() = 0;
    virtual void MoveNext() = 0;  ///< goes to the next row, behind the last one to the first
    /// Adds a row at the end. Once MoveFirst was called there is no room: RuntimeError 9.
    virtual void Add(std::int32_t idxx, const Text& depp, bool removeOnDepp, ICollection* descc) = 0;
};

}  // namespace ov
