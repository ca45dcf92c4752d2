// Texts and files in the module's language, static scripts, and the cache of enumerations.
#include "module/module.h"

#include <array>

#include "descriptor/named_file.h"
#include "descriptor/shared_descriptor.h"
#include "platform/automation/conversions.h"
#include "platform/system/file_system.h"
#include "support/diagnostics.h"
#include "tree/channel.h"

namespace ov {

namespace {

Text ErrorLine(const RuntimeError& error) {
    return u"ONERROR: Error " + Text::FromInteger(error.number()) + u": " + error.description() + u" (" +
           error.source() + u")";
}

// The mark of a script in the older generation of descriptors.
bool HoldsCall(const Text& text) {
    return text.view().find(u"(\"") != std::u16string_view::npos;
}

bool HasPrefix(const Text& text) {
    return text.size() > 2 && (text.view().starts_with(u"#:") || text.view().starts_with(u"!:"));
}

}  // namespace

Text Module::GetTranslatedText(std::int32_t index) {
    if (index == 0) return Text();
    try {
        if (!mTexts || mTextsLanguage != mLanguage) {
            LogEntry(Dispatch(), u"GetTranslatedText(): Rebuild():");
            // An error on the way leaves the rows before it and no language, so that the next read tries again.
            mTextsLanguage = 0;
            mTexts = std::make_shared<TranslationTable>();
            const Ref<Recordset> rows = GetRecordset(u"Texts")->Clone();
            ReadWords(u"Texts", u"TEXT_IDX", *rows, mTexts);
            rows->Close();
            mTextsLanguage = mLanguage;
        }
        if (const Text* text = mTexts->Find(index)) return *text;
        EndWithLog(u"GetTranslatedText(", Text::FromInteger(index) + u"): Eintrag in Tabelle 'Texts' nicht gefunden!");
    } catch (const RuntimeError& error) {
        LogEntry(Dispatch(), u"GetTranslatedText(): " + ErrorLine(error));
    }
    return Text();
}

void Module::ReadWords(const Text& table, const Text& keyColumn, Recordset& rows,
                       std::shared_ptr<const TranslationTable>& words) {
    SharedDescriptor& shared = SharedDescriptor::Of(*mDB);
    const std::int64_t revision = shared.Revision();
    if (const std::shared_ptr<const TranslationTable> known = shared.Texts(table, mLanguage)) {
        words = known;
        return;
    }
    const auto own = std::make_shared<TranslationTable>();
    words = own;
    own->Read(rows, keyColumn, mLanguage);
    SharedDescriptor& now = SharedDescriptor::Of(*mDB);
    if (now.Revision() == revision) now.Texts(table, mLanguage) = own;  // else it may be older than what is shared
}

std::vector<std::int32_t> Module::TextLanguages() {
    constexpr std::u16string_view kPrefix = u"Text_";
    std::vector<std::int32_t> languages;
    const Ref<Recordset> rows = GetRecordset(u"Texts");
    for (std::size_t i = 0; i < rows->Columns()->size(); ++i) {
        const std::u16string_view name = (*rows->Columns())[i];
        if (!EqualNoCase(name.substr(0, kPrefix.size()), kPrefix)) continue;
        const std::u16string_view language = name.substr(kPrefix.size());
        if (IsNumeric(Variant(language))) languages.push_back(ToLong(Variant(language)));
    }
    return languages;
}

bool Module::HasText(std::int32_t index) {
    GetTranslatedText(index);  // reads the table if that is not done
    return mTexts && mTexts->Find(index) != nullptr;
}

Text Module::GetTranslatedFile(std::int32_t index) {
    if (index == 0) return Text();
    if (!mFiles || mFilesLanguage != mLanguage) {
        mFilesLanguage = 0;
        mFiles = std::make_shared<TranslationTable>();
        mFileNames.clear();
        Ref<Recordset> rows;
        try {
            rows = GetRecordset(u"Files")->Clone();
        } catch (const RuntimeError& error) {
            LogEntry(Dispatch(), u"GetTranslatedFile(): " + ErrorLine(error));
            return Text();
        }
        // Unlike those of a text table, rows of files that cannot be read are the caller's affair.
        ReadWords(u"Files", u"FILE_IDX", *rows, mFiles);
        rows->Close();
        mFilesLanguage = mLanguage;
    }
    const auto resolvedBefore = mFileNames.find(index);
    const Text* found = resolvedBefore != mFileNames.end() ? &resolvedBefore->second : mFiles->Find(index);
    if (!found) {
        EndWithLog(u"GetTranslatedFile(", Text::FromInteger(index) + u"): Eintrag in Tabelle 'Files' nicht gefunden!");
        return Text();
    }
    const Text text = *found;
    const bool older = GetModelVersionIndex() < 1;
    if (text.empty() || (older && !HoldsCall(text)) || !LoadChannels()) return text;
    const Ref<Channel> channel = FirstChannel();
    if (!channel) return text;
    try {
        const Text resolved = ToText(older ? channel->EvaluateScript(text) : channel->Evaluate(text, false));
        // Evaluated once for a language: the result takes the entry's place. The script may have changed the language.
        if (mFiles && mFilesLanguage == mLanguage) mFileNames[index] = resolved;
        return resolved;
    } catch (const RuntimeError&) {
        return text;
    }
}

Text Module::GetIndexedFile(std::int32_t index) {
    Text file;
    try {
        file = GetTranslatedFile(index);
        if (!file.empty()) file = PermittedFile(file_system::BuildPath(GetDBPath(), file), GetDBPath());
    } catch (const RuntimeError&) {
        // The text so far is the answer.
    }
    return file;
}

Text Module::ResolveStaticScript(const Text& text) {
    const bool older = GetModelVersionIndex() < 1;
    if (older && !HoldsCall(text)) return text;
    if (!LoadChannels()) return Text();
    const Ref<Channel> channel = FirstChannel();
    if (!channel) {
        if (older || HasPrefix(text)) {
            LogEntry(Dispatch(),
                     u"ResolveStaticScript(" + text + (older ? u")(ModelVersionIndex=0)" : u")(ModelVersionIndex>0)"),
                     u": ERROR: für das Evaluieren von Skripten ist ein Channel notwendig!");
        }
        return older ? Text() : text;
    }
    try {
        return ToText(older ? channel->EvaluateScript(text) : channel->Evaluate(text, false));
    } catch (const RuntimeError&) {
        return Text();
    }
}

void Module::EnumCacheSet(const Text& key, const std::shared_ptr<CEnumCacheItem>& item) {
    try {
        mEnumCache.Set(key, item);
    } catch (const RuntimeError& error) {
        LogEntry(Dispatch(), u"EnumCacheSet(): " + ErrorLine(error));
    }
}

}  // namespace ov
