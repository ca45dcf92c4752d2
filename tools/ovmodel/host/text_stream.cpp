#include "ovmodel/host/text_stream.h"

#include <array>
#include <iostream>
#include <istream>
#include <iterator>
#include <ostream>

#include "platform/automation/errors.h"
#include "platform/automation/member.h"

namespace ovmodel {

using ov::Text;

const ov::InterfaceInfo& ITextStream::Members() {
    static constexpr std::array kMembers = {
        ov::member<&ITextStream::Write>("Write"),
        ov::member<&ITextStream::WriteLine>("WriteLine"),
        ov::member<&ITextStream::ReadLine>("ReadLine"),
        ov::member<&ITextStream::ReadAll>("ReadAll"),
        ov::get_member<&ITextStream::AtEndOfStream>("AtEndOfStream"),
    };
    static const ov::InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

namespace {

constexpr std::int32_t kBadFileMode = 54;
constexpr std::int32_t kPastEnd = 62;

[[noreturn]] void Fail(std::int32_t number) {
    throw ov::RuntimeError(number, Text(), ov::ErrorText(number));
}

class InputStream final : public ov::Object<InputStream, ov::Facet<ITextStream>> {
public:
    static constexpr const char* kClassName = "TextStream";

    explicit InputStream(std::istream& stream) : mStream(stream) {}
    void Write(const Text&) override { Fail(kBadFileMode); }
    void WriteLine(const std::optional<Text>&) override { Fail(kBadFileMode); }
    Text ReadLine() override {
        std::string line;
        if (!std::getline(mStream, line)) Fail(kPastEnd);
        if (line.ends_with('\r')) line.pop_back();
        return Text::FromUtf8(line);
    }
    Text ReadAll() override {
        if (AtEndOfStream()) Fail(kPastEnd);
        return Text::FromUtf8(std::string(std::istreambuf_iterator<char>(mStream), {}));
    }
    bool AtEndOfStream() override { return mStream.peek() == std::istream::traits_type::eof(); }

private:
    std::istream& mStream;
};

class OutputStream final : public ov::Object<OutputStream, ov::Facet<ITextStream>> {
public:
    static constexpr const char* kClassName = "TextStream";

    explicit OutputStream(std::ostream& stream) : mStream(stream) {}
    void Write(const Text& text) override { Put(text.ToUtf8()); }
    void WriteLine(const std::optional<Text>& text) override { Put(text.value_or(Text()).ToUtf8() + '\n'); }
    Text ReadLine() override { Fail(kBadFileMode); }
    Text ReadAll() override { Fail(kBadFileMode); }
    bool AtEndOfStream() override { Fail(kBadFileMode); }

private:
    // Each text leaves the process at once: it is there whatever ends the process later. Nobody hears a script whose
    // standard output is gone.
    void Put(const std::string& text) {
        mStream << text << std::flush;
        if (!mStream && &mStream == &std::cout) throw ScriptQuit(2);
    }

    std::ostream& mStream;
};

}  // namespace

ov::Ref<ITextStream> MakeInputStream(std::istream& stream) {
    return ov::MakeObject<InputStream>(stream);
}
ov::Ref<ITextStream> MakeOutputStream(std::ostream& stream) {
    return ov::MakeObject<OutputStream>(stream);
}

}  // namespace ovmodel
