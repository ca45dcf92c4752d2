#include "platform/system/registry.h"

#include <gtest/gtest.h>

#include <optional>

#include "platform/automation/errors.h"
#include "platform/system/file_system.h"
#include "support/scoped_settings.h"
#include "support/temporary_folder.h"

namespace ov::registry {
namespace {

class RegistryTest : public ::testing::Test {
protected:
    void Fill(const std::string& bytes) { file_system::WriteFile(mFolder.Of("registry.ini"), bytes, false); }
    std::string Content() { return file_system::ReadFile(mFolder.Of("registry.ini")); }

    ov::testing::TemporaryFolder mFolder;
    ov::testing::ScopedVariable mVariable{"OV_MODEL_REGISTRY", mFolder / "registry.ini"};
};

// A value in one text: "n:1" for a number, "t:..." for a text, "-" for none.
std::string Shown(const Variant& value) {
    if (value.Type() == VarType::Long) return "n:" + std::to_string(value.AsLong());
    return value.IsString() ? "t:" + value.AsText().ToUtf8() : value.IsEmpty() ? "-" : "?";
}

TEST_F(RegistryTest, ReadsNumbersAndTexts) {
    const struct {
        const char *written, *shown;
    } cases[] = {
        {"1", "n:1"},
        {" 007 \t", "n:7"},
        {"2147483648", "n:-2147483648"},
        {"4294967295", "n:-1"},
        {"4294967296", "t:4294967296"},
        {"-1", "t:-1"},
        {"1.5", "t:1.5"},
        {"0x10", "t:0x10"},
        {"", "t:"},
        {"\"1\"", "t:1"},
        {"\"  two words \"", "t:  two words "},
        {"\"", "t:\""},
        {"\"\"", "t:"},
        {"\"a\"b\"", "t:a\"b"},
        {"a=b;c#d", "t:a=b;c#d"},
        {"größe", "t:größe"},
        {"\xFF", "t:\xEF\xBF\xBD"},
    };
    for (const auto& [written, shown] : cases) {
        Fill(std::string("[K]\nName=") + written + "\n");
        EXPECT_EQ(Shown(Read(u"K", u"Name")), shown) << written;
    }
}

TEST_F(RegistryTest, FindsEntriesInEveryKindOfFile) {
    const struct {
        const char *file, *shown;
    } cases[] = {
        {"[SOFTWARE\\Orvane\\Controls]\nDebug=1", "n:1"},
        {"\xEF\xBB\xBF[software\\ORVANE\\controls]\r\ndebug = 1\r\n", "n:1"},
        {"  [ SOFTWARE\\Orvane\\Controls ]  ; remark\n\t Debug\t=\t1\t\n", "n:1"},
        {"[SOFTWARE\\Orvane\\Controls]\nDebug=1\n[SOFTWARE\\Orvane]\nDebug=2\n", "n:1"},
        {"[SOFTWARE\\Orvane\\Controls]\nDebug=1\n[X]\n[SOFTWARE\\Orvane\\Controls]\nDebug=3\n", "n:3"},
        {"[SOFTWARE\\Orvane\\Controls]\nDebug=1\nDebug=2\n", "n:2"},
        {"[SOFTWARE\\Orvane\\Controls]\n;Debug=1\n #Debug=2\nDebug\n=5\n", "-"},
        {"[SOFTWARE\\Orvane\\Controls]\nDebug2=1\n", "-"},
        {"[SOFTWARE\\Orvane\\Controls\\Sub]\nDebug=1\n", "-"},
        {"[SOFTWARE\\Orvane\\Controls]\n[other\nDebug=1\n", "-"},
        {"[SOFTWARE\\Orvane\\Controls\nDebug=1\n", "-"},
        {"Debug=1\n", "-"},
        {"", "-"},
        {"\n\n\r\n=\n]\n[\n[]\n;", "-"},
    };
    for (const auto& [file, shown] : cases) {
        Fill(file);
        EXPECT_EQ(Shown(Read(u"SOFTWARE\\Orvane\\Controls", u"Debug")), shown) << file;
    }
}

TEST_F(RegistryTest, AnEmptyNameIsTheDefaultValue) {
    Fill("[K]\n@=default\nother=x\n");
    EXPECT_EQ(Shown(Read(u"K", u"")), "t:default");
    EXPECT_EQ(Shown(Read(u"", u"other")), "-");
    Write({{u"K", u"", u"changed"}});
    EXPECT_EQ(Content(), "[K]\n@=changed\nother=x\n");
}

TEST_F(RegistryTest, ReadNeverFails) {
    const std::string folder = mFolder.path();
    for (const std::string& file :
         {mFolder / "missing.ini", folder, mFolder / "registry.ini/below", std::string(1, 'x')}) {
        Fill("[K]\nName=1\n");
        const ov::testing::ScopedVariable variable("OV_MODEL_REGISTRY", file);
        EXPECT_EQ(Shown(Read(u"K", u"Name")), "-") << file;
    }
    Fill(std::string("[K]\nName\0=1\n[K", 14));
    EXPECT_EQ(Shown(Read(u"K", u"Name")), "-");
}

TEST_F(RegistryTest, WritesAndLeavesTheRestAlone) {
    const struct {
        const char* what;
        const char* before;
        Entry entry;
        const char* after;
    } cases[] = {
        {"an empty file", "", {u"A\\B", u"n", u"v"}, "[A\\B]\nn=v\n"},
        {"a change in place",
         "; top\n[a\\b]\n  N = old \nm=1\n",
         {u"A\\B", u"n", u"new"},
         "; top\n[a\\b]\n  N =new\nm=1\n"},
        {"a new entry before the blank lines",
         "[A]\nm=1\n\n; of B\n[B]\n",
         {u"A", u"n", u"v"},
         "[A]\nm=1\n\n; of B\nn=v\n[B]\n"},
        {"a new entry in the middle", "[A]\nm=1\n\n\n[B]\nk=2\n", {u"A", u"n", u"v"}, "[A]\nm=1\nn=v\n\n\n[B]\nk=2\n"},
        {"a new key", "[A]\nm=1", {u"B", u"n", u"v"}, "[A]\nm=1\n\n[B]\nn=v\n"},
        {"Windows line ends", "[A]\r\nm=1\r\n", {u"A", u"n", u"v"}, "[A]\r\nm=1\r\nn=v\r\n"},
        {"a change at an end without a line end", "[A]\nn=", {u"A", u"n", u"v"}, "[A]\nn=v"},
        {"the entry that counts", "[A]\nn=1\nn=2\n[A]\nm=3\n", {u"A", u"n", u"v"}, "[A]\nn=1\nn=v\n[A]\nm=3\n"},
        {"bytes that are no text", "\xFF\xFE\n[A]\n\x80=\x81\n", {u"A", u"n", u"ä"}, "\xFF\xFE\n[A]\n\x80=\x81\nn=ä\n"},
    };
    for (const auto& [what, before, entry, after] : cases) {
        Fill(before);
        Write({entry});
        EXPECT_EQ(Content(), after) << what;
        EXPECT_EQ(Shown(Read(entry.key, entry.name)), "t:" + entry.value.ToUtf8()) << what;
    }
}

TEST_F(RegistryTest, WrittenTextsComeBackAsTheyWere) {
    for (const char16_t* value : {u"", u"1", u" 1", u"text", u" outer blanks ", u"\ttab", u"\"quoted\"", u"\"", u"\"\"",
                                  u"a=b", u"; no remark", u"[no key]", u"größe \U0001F600"}) {
        Write({{u"Key", u"first", value}, {u"Key\\Sub", u"second", value}});
        EXPECT_EQ(Shown(Read(u"Key", u"first")), "t:" + Text(value).ToUtf8());
        EXPECT_EQ(Shown(Read(u"Key\\Sub", u"second")), "t:" + Text(value).ToUtf8());
    }
}

TEST_F(RegistryTest, RefusesWhatCannotBeReadBack) {
    const std::string before = "[K]\nn=1\n";
    Fill(before);
    const Entry entries[] = {
        {u"", u"n", u"v"},     {u"a]b", u"n", u"v"},    {u"a\nb", u"n", u"v"}, {u" a", u"n", u"v"},
        {u"K", u"a=b", u"v"},  {u"K", u";n", u"v"},     {u"K", u"[n", u"v"},   {u"K", u"n ", u"v"},
        {u"K", u"n", u"a\rb"}, {u"K", u"n", u"a\n[X]"},
    };
    for (const Entry& entry : entries) {
        try {
            Write({{u"K", u"good", u"v"}, entry});
            ADD_FAILURE() << entry.key.ToUtf8() << "," << entry.name.ToUtf8() << "," << entry.value.ToUtf8();
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.number(), 5);
        }
        EXPECT_EQ(Content(), before);
    }
}

TEST_F(RegistryTest, RemovesTrees) {
    const struct {
        const char* what;
        const char* before;
        std::vector<Text> keys;
        const char* after;
    } cases[] = {
        {"a key and all below it", "[A]\nn=1\n[A\\B]\nm=2\n[AB]\nk=3\n", {u"a"}, "[AB]\nk=3\n"},
        {"no key of the name", "[A]\nn=1\n", {u"B", u"A\\B", u""}, "[A]\nn=1\n"},
        {"the remarks of the next key",
         "[A]\nn=1\n; own\n\n# of B\n; too\n[B]\nm=2\n",
         {u"A"},
         "# of B\n; too\n[B]\nm=2\n"},
        {"the last key", "; top\n[B]\nm=2\n\n[A]\nn=1\n; end\n", {u"A"}, "; top\n[B]\nm=2\n\n"},
        {"several", "[A]\nn=1\n[B]\n[C]\n[A]\nn=2\n", {u"A", u"C"}, "[B]\n"},
    };
    for (const auto& [what, before, keys, after] : cases) {
        Fill(before);
        RemoveKeys(keys);
        EXPECT_EQ(Content(), after) << what;
    }
}

TEST_F(RegistryTest, CannotBeWrittenWithoutItsFolder) {
    Fill("[K]\n");
    for (const char* file : {"missing/registry.ini", "registry.ini/below"}) {
        const ov::testing::ScopedVariable variable("OV_MODEL_REGISTRY", mFolder / file);
        try {
            Write({{u"K", u"n", u"v"}});
            ADD_FAILURE();
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.number(), 76);
        }
        EXPECT_NO_THROW(RemoveKeys({u"K"})) << "nothing to remove";
    }
    EXPECT_EQ(Content(), "[K]\n");
}

}  // namespace
}  // namespace ov::registry
