/// @file
/// `CONFCH`, `CONFG` and `CONFM`: the descriptor rows of a channel, a group and a module, as scripts see them.
#pragma once

#include "contract/channel.h"
#include "contract/group.h"
#include "contract/module.h"
#include "platform/automation/object.h"

namespace ov {

/// What differs between the three objects.
template <class Source>
struct RowIdentity;
template <>
struct RowIdentity<IBase_SpecChannel> {
    static constexpr Guid kIid = Guid::Parse("{0F6C2C4E-7B8D-4B0E-9B55-6D2F6C1F4A05}");
    static constexpr const char* kName = "_CBase_ScriptingConfig";
    static constexpr const char* kChildMember = "gvalue";
    static constexpr std::u16string_view kHolder = u"mChannel";  // as log lines call it
};
template <>
struct RowIdentity<IBase_SpecGroup> {
    static constexpr Guid kIid = Guid::Parse("{0F6C2C4E-7B8D-4B0E-9B55-6D2F6C1F4A06}");
    static constexpr const char* kName = "_CBase_ScriptingConfG";
    static constexpr const char* kChildMember = "pvalue";
    static constexpr std::u16string_view kHolder = u"mGroup";
};
template <>
struct RowIdentity<IBase_SpecModule> {
    static constexpr Guid kIid = Guid::Parse("{0F6C2C4E-7B8D-4B0E-9B55-6D2F6C1F4A07}");
    static constexpr const char* kName = "_CBase_ScriptingConfM";
    static constexpr const char* kChildMember = "";
    static constexpr std::u16string_view kHolder = u"mModule";
};

/// The members of one of the three objects.
template <class Source>
class IScriptingRow : public IDispatch {
public:
    static constexpr Guid kIid = RowIdentity<Source>::kIid;
    static constexpr const char* kName = RowIdentity<Source>::kName;
    static const InterfaceInfo& Members();

    /// A field of the row as it stands, or Empty, which is logged, if the row lacks it. The default member.
    virtual Variant value(const Text& name) = 0;
    virtual bool isIn(const Text& name, std::span<const Variant> arguments) = 0;
    virtual Variant sel(const Text& name, std::span<const Variant> arguments) = 0;
    /// `gvalue` of CONFCH, `pvalue` of CONFG: a field of the row of a group or a parameter, which are loaded for it.
    virtual Variant ChildValue(const Text& id, const Text& name) = 0;
};

/// One of the three objects, on the object whose row it shows.
template <class Source>
class ScriptingRow final : public Object<ScriptingRow<Source>, Facet<IScriptingRow<Source>>> {
public:
    static constexpr const char* kClassName = RowIdentity<Source>::kName + 1;

    void Bind(Ref<Source> source) { mSource = std::move(source); }

    Variant value(const Text& name) override;
    bool isIn(const Text& name, std::span<const Variant> arguments) override;
    Variant sel(const Text& name, std::span<const Variant> arguments) override;
    Variant ChildValue(const Text& id, const Text& name) override;

private:
    Variant FieldOf(const Text& name);
    /// The field, or nullopt with a line in the log that begins with @p call.
    std::optional<Variant> Field(std::u16string_view call, const Text& name);
    void LogMissingField(const Text& call);

    Ref<Source> mSource;
};

}  // namespace ov
