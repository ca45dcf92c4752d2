#include "ovmodel/shell/line_reader.h"

#include <histedit.h>
#include <unistd.h>

#include <algorithm>
#include <clocale>
#include <cstdlib>
#include <iostream>

namespace ovmodel {

namespace {

class InputReader final : public LineReader {
public:
    std::optional<std::string> Next() override {
        std::string line;
        if (!std::getline(std::cin, line)) return std::nullopt;
        if (line.ends_with('\r')) line.pop_back();
        return line;
    }
};

std::string CommonBegin(const std::vector<std::string>& words) {
    std::string begin = words.front();
    for (const std::string& word : words) {
        begin.resize(static_cast<std::size_t>(std::ranges::mismatch(begin, word).in1 - begin.begin()));
    }
    return begin;
}

class TerminalReader final : public LineReader {
public:
    explicit TerminalReader(Completer completer)
        : mCompleter(std::move(completer)),
          mEditor(el_init("ovmodel", stdin, stdout, stderr), &el_end),
          mHistory(history_init(), &history_end) {
        std::setlocale(LC_CTYPE, "");  // the editor must know what is one character
        el_set(mEditor.get(), EL_CLIENTDATA, this);
        el_set(mEditor.get(), EL_PROMPT, &TerminalReader::Prompt);
        el_set(mEditor.get(), EL_EDITOR, "emacs");
        el_set(mEditor.get(), EL_SIGNAL, 1);
        el_set(mEditor.get(), EL_ADDFN, "complete", "Complete the word before the cursor", &TerminalReader::Complete);
        el_set(mEditor.get(), EL_BIND, "^I", "complete", nullptr);
        HistEvent event;
        history(mHistory.get(), &event, H_SETSIZE, kMostLines);
        history(mHistory.get(), &event, H_SETUNIQUE, 1);
        el_set(mEditor.get(), EL_HIST, history, mHistory.get());
        if (const char* home = std::getenv("HOME")) mHistoryFile = std::string(home) + "/.ovmodel_history";
        if (!mHistoryFile.empty()) history(mHistory.get(), &event, H_LOAD, mHistoryFile.c_str());
    }
    TerminalReader(const TerminalReader&) = delete;
    TerminalReader& operator=(const TerminalReader&) = delete;
    ~TerminalReader() override {
        HistEvent event;
        if (!mHistoryFile.empty()) history(mHistory.get(), &event, H_SAVE, mHistoryFile.c_str());
    }

    std::optional<std::string> Next() override {
        int count = 0;
        const char* text = el_gets(mEditor.get(), &count);
        if (!text || count <= 0) {
            std::cout << "\n";
            return std::nullopt;
        }
        std::string line(text, static_cast<std::size_t>(count));
        while (line.ends_with('\n') || line.ends_with('\r'))
            line.pop_back();
        HistEvent event;
        if (!line.empty()) history(mHistory.get(), &event, H_ENTER, line.c_str());
        return line;
    }

private:
    static constexpr int kMostLines = 1000;

    static const char* Prompt(EditLine*) { return "> "; }

    // What the possible words have in common is put in; if that is nothing, they are shown.
    static unsigned char Complete(EditLine* editor, int) {
        TerminalReader* self = nullptr;
        el_get(editor, EL_CLIENTDATA, &self);
        const LineInfo* info = el_line(editor);
        const std::string line(info->buffer, info->cursor);
        const std::string word = line.substr(line.find_last_of(' ') + 1);
        const std::vector<std::string> words = self->mCompleter(line);
        if (words.empty()) return CC_ERROR;
        std::string begin = CommonBegin(words);
        if (words.size() == 1 && !begin.ends_with('/')) begin += ' ';
        if (begin.size() > word.size()) {
            el_insertstr(editor, begin.substr(word.size()).c_str());
            return CC_REFRESH;
        }
        std::cout << "\n";
        for (const std::string& each : words) {
            std::cout << each << "  ";
        }
        std::cout << std::endl;
        return CC_REDISPLAY;
    }

    Completer mCompleter;
    std::unique_ptr<EditLine, decltype(&el_end)> mEditor;
    std::unique_ptr<History, decltype(&history_end)> mHistory;
    std::string mHistoryFile;
};

}  // namespace

bool IsInteractive() {
    return isatty(STDIN_FILENO) != 0;
}

std::unique_ptr<LineReader> MakeLineReader(Completer completer) {
    if (IsInteractive()) return std::make_unique<TerminalReader>(std::move(completer));
    return std::make_unique<InputReader>();
}

}  // namespace ovmodel
