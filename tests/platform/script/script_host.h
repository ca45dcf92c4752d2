/// @file
/// What tests publish to scripts.
#pragma once

#include <array>
#include <functional>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/automation/conversions.h"
#include "platform/automation/dictionary.h"
#include "platform/automation/member.h"
#include "platform/automation/object.h"

namespace ov::testing {

/// Published with its members: what scripts print, and the one class that they may create.
class IHost : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{E3A7C9B2-6E6B-4B39-8C59-8E2C5D10A001}");
    static constexpr const char* kName = "IHost";
    static const InterfaceInfo& Members() {
        static constexpr std::array kMembers = {member<&IHost::Echo>("Echo"),
                                                member<&IHost::CreateObject>("CreateObject")};
        static const InterfaceInfo info(kIid, kName, kMembers);
        return info;
    }

    virtual void Echo(std::span<const Variant> values) = 0;
    virtual Ref<IDispatch> CreateObject(const Text& name) = 0;
};

class Host final : public Object<Host, Facet<IHost>> {
public:
    static constexpr const char* kClassName = "Host";

    void Echo(std::span<const Variant> values) override {
        std::string line;
        for (const Variant& value : values) {
            if (!line.empty()) line += ' ';
            line += value.IsNull() ? "Null" : ToText(value).ToUtf8();
        }
        lines.push_back(line);
    }
    Ref<IDispatch> CreateObject(const Text& name) override {
        if (!EqualNoCase(name, u"Scripting.Dictionary")) ov::Raise(ErrorNumber::CannotCreateObject);
        return MakeObject<Dictionary>();
    }

    std::vector<std::string> lines;
};

/// An object with members of each kind.
class IProbe : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{E3A7C9B2-6E6B-4B39-8C59-8E2C5D10A002}");
    static constexpr const char* kName = "IProbe";
    static const InterfaceInfo& Members() {
        static constexpr std::array kMembers = {
            member<&IProbe::Swap>("Swap"),
            member<&IProbe::Count>("Count"),
            member<&IProbe::Describe>("Describe"),
            get_member<&IProbe::get_Name>("Name"),
            let_member<&IProbe::let_Name>("Name"),
            get_member<&IProbe::get_Cell>("Cell").AsDefault(),
            let_member<&IProbe::let_Cell>("Cell").AsDefault(),
            member<&IProbe::Fail>("Fail"),
            member<&IProbe::Run>("Run"),
        };
        static const InterfaceInfo info(kIid, kName, kMembers);
        return info;
    }

    virtual void Swap(Variant& a, Variant& b) = 0;
    virtual std::int32_t Count(std::span<const Variant> values) = 0;
    virtual Text Describe(const Variant& a, const std::optional<Variant>& b, const std::optional<Variant>& c) = 0;
    virtual Text get_Name() = 0;
    virtual void let_Name(const Text& name) = 0;
    virtual Variant get_Cell(std::int32_t index) = 0;
    virtual void let_Cell(std::int32_t index, const Variant& value) = 0;
    virtual void Fail(std::int32_t number, const Text& source, const Text& description) = 0;
    virtual Variant Run(const Variant& argument) = 0;
};

class Probe final : public Object<Probe, Facet<IProbe>> {
public:
    static constexpr const char* kClassName = "Probe";

    void Swap(Variant& a, Variant& b) override { std::swap(a, b); }
    std::int32_t Count(std::span<const Variant> values) override { return static_cast<std::int32_t>(values.size()); }
    Text Describe(const Variant& a, const std::optional<Variant>& b, const std::optional<Variant>& c) override {
        const Text none(u"none");
        return ToText(a) + u"-" + (b ? ToText(*b) : none) + u"-" + (c ? ToText(*c) : none);
    }
    Text get_Name() override { return mName; }
    void let_Name(const Text& name) override { mName = name; }
    Variant get_Cell(std::int32_t index) override { return mCells[index]; }
    void let_Cell(std::int32_t index, const Variant& value) override { mCells[index] = value; }
    void Fail(std::int32_t number, const Text& source, const Text& description) override {
        throw RuntimeError(number, source, description);
    }
    Variant Run(const Variant& argument) override { return action(argument); }

    /// What Run does.
    std::function<Variant(const Variant&)> action;

private:
    Text mName = u"probe";
    std::map<std::int32_t, Variant> mCells;
};

}  // namespace ov::testing
