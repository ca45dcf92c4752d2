/// @file
/// The typed collections: keyed, ordered lists of children of the tree, one for each element interface and holder.
///
/// They forgive: no operation reports a missing key as an error. Where an object has its children in a Gui and a Spec
/// view, the two collections are views of one list: what is added through one is seen through the other.
#pragma once

#include "platform/automation/dispatch.h"
#include "platform/automation/enumeration.h"

namespace ov {

class IBase_GuiModule;
class IBase_GuiChannel;
class IBase_GuiBlock;
class IBase_GuiGroup;
class IBase_GuiParameter;
class IBase_SpecModule;
class IBase_SpecChannel;
class IBase_SpecGroup;
class IBase_SpecParameter;

/// Identity of the typed collection with elements @p Element: kIid and kName.
template <class Element>
struct CollectionIdentity;

/// A typed collection. Keys are the text forms of the elements' ids and compare without regard to case.
template <class Element>
class TypedCollection : public IDispatch {
public:
    static constexpr Guid kIid = CollectionIdentity<Element>::kIid;
    static constexpr const char* kName = CollectionIdentity<Element>::kName;
    static const InterfaceInfo& Members();

    /// Adds @p obj at the end; an element under the same key goes. @returns @p obj
    virtual Ref<Element> Add(Element* obj, const Text& key) = 0;
    virtual std::int32_t Count() = 0;  ///< number of elements
    /// Does nothing for a missing key.
    virtual void Remove(const Text& key) = 0;
    /// The default member. Nothing for a missing key, and for an object that has no facet @p Element.
    virtual Ref<Element> get_Item(const Text& key) = 0;
    /// The same as Add.
    virtual void set_Item(const Text& key, Element* value) = 0;
    /// Walks the elements in the order in which they were added; the collection may change meanwhile.
    virtual Ref<IEnumVariant> NewEnum() = 0;
    virtual bool Inside(const Text& key) = 0;  ///< True if there is an element under @p key
    virtual void Clear() = 0;                  ///< removes all elements
    /// The first element; Nothing if the collection is empty.
    virtual Ref<Element> get_first() = 0;
};

template <>
struct CollectionIdentity<IBase_GuiModule> {
    static constexpr Guid kIid = Guid::Parse("{7CC7D5A5-0CAB-44E8-B9A7-707FADB126C2}");
    static constexpr const char* kName = "_CBase_GuiModuleCollection";
};
template <>
struct CollectionIdentity<IBase_GuiChannel> {
    static constexpr Guid kIid = Guid::Parse("{BB40AFDF-CBC0-4EA3-92D0-5BE9881D72C4}");
    static constexpr const char* kName = "_CBase_GuiChannelCollection";
};
template <>
struct CollectionIdentity<IBase_GuiBlock> {
    static constexpr Guid kIid = Guid::Parse("{EFB4D676-43B2-4509-A6CB-93DE71854178}");
    static constexpr const char* kName = "_CBase_GuiBlockCollection";
};
template <>
struct CollectionIdentity<IBase_GuiGroup> {
    static constexpr Guid kIid = Guid::Parse("{C50EAA53-0205-49A5-8E22-B1AA6E14D164}");
    static constexpr const char* kName = "_CBase_GuiGroupCollection";
};
template <>
struct CollectionIdentity<IBase_GuiParameter> {
    static constexpr Guid kIid = Guid::Parse("{E886E571-5E83-4789-ADD0-56ADA804B9AD}");
    static constexpr const char* kName = "_CBase_GuiParameterCollection";
};
template <>
struct CollectionIdentity<IBase_SpecModule> {
    static constexpr Guid kIid = Guid::Parse("{59AA7C9E-68E8-4175-8309-C717AB0386B1}");
    static constexpr const char* kName = "_CBase_SpecModuleCollection";
};
template <>
struct CollectionIdentity<IBase_SpecChannel> {
    static constexpr Guid kIid = Guid::Parse("{1C64390C-2290-4B2F-8C0E-32474BBA96AC}");
    static constexpr const char* kName = "_CBase_SpecChannelCollection";
};
template <>
struct CollectionIdentity<IBase_SpecGroup> {
    static constexpr Guid kIid = Guid::Parse("{A6C8F685-7729-47BB-A20B-7214FC361F56}");
    static constexpr const char* kName = "_CBase_SpecGroupCollection";
};
template <>
struct CollectionIdentity<IBase_SpecParameter> {
    static constexpr Guid kIid = Guid::Parse("{C6D3D9B7-89EB-42A1-87F5-902092C926BE}");
    static constexpr const char* kName = "_CBase_SpecParameterCollection";
};

using CBase_GuiModuleCollection = TypedCollection<IBase_GuiModule>;
using CBase_GuiChannelCollection = TypedCollection<IBase_GuiChannel>;
using CBase_GuiBlockCollection = TypedCollection<IBase_GuiBlock>;
using CBase_GuiGroupCollection = TypedCollection<IBase_GuiGroup>;
using CBase_GuiParameterCollection = TypedCollection<IBase_GuiParameter>;
using CBase_SpecModuleCollection = TypedCollection<IBase_SpecModule>;
using CBase_SpecChannelCollection = TypedCollection<IBase_SpecChannel>;
using CBase_SpecGroupCollection = TypedCollection<IBase_SpecGroup>;
using CBase_SpecParameterCollection = TypedCollection<IBase_SpecParameter>;

}  // namespace ov
