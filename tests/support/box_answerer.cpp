// Runs a program, answers the message boxes that it shows and writes each to a file, for hosts that
// cannot watch their own boxes:
//
//     box_answerer LOG ANSWERS SECONDS PROGRAM [ARGUMENT...]
//
// LOG gets one UTF-8 line a box, "style|title|text|pressed". ANSWERS has lines of the same form (or
// is "-"); the n-th box is answered by the button that ends the n-th line, further ones by their
// default button. The exit code is the program's, or 124 when it had to be ended after SECONDS.
#include <windows.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <shellapi.h>
#include <string>
#include <vector>

#include "runtime/owned.h"
#include "services/text_encoding.h"
#include "tests/support/message_box.h"

namespace {

using kovrel::test::Milliseconds;

constexpr int timed_out = 124;
constexpr int bad_usage = 2;

std::vector<int> read_answers(const std::wstring& file) {
    std::vector<int> answers;
    if (file == L"-") return answers;
    std::ifstream lines{std::filesystem::path(file)};
    for (std::string line; std::getline(lines, line);) {
        const auto bar = line.rfind('|');
        if (bar != std::string::npos) answers.push_back(std::atoi(line.c_str() + bar + 1));
    }
    return answers;
}

std::wstring command_line(const std::vector<std::wstring>& words) {
    std::wstring line;
    for (const std::wstring& word : words) line += L'"' + word + L"\" ";
    return line;
}

class Answerer {
 public:
    Answerer(const std::wstring& log, std::vector<int> answers)
        : log_(log), answers_(std::move(answers)) {
        std::ofstream{log_, std::ios::trunc};
    }

    void look(DWORD process) {
        for (HWND window : kovrel::test::top_level_windows({L"#32770", {}, process})) {
            auto box = kovrel::test::read_box(window);
            if (!box) continue;
            kovrel::test::BoxAnswer how;
            if (count_ < answers_.size()) how.button = answers_[count_];
            if (GetDlgItem(window, how.button) == nullptr) how.button = 0;
            ++count_;
            box->pressed = how.button != 0 ? how.button : box->default_button;
            // Written and closed before the box closes: the program may read the file right away.
            std::ofstream(log_, std::ios::binary | std::ios::app)
                << kovrel::to_utf8(kovrel::test::as_line(*box)) << '\n';
            kovrel::test::answer_box(window, *box, how);
        }
    }

 private:
    std::filesystem::path log_;
    std::vector<int> answers_;
    std::size_t count_ = 0;
};

}  // namespace

int main() {
    int count = 0;
    LPWSTR* const list = CommandLineToArgvW(GetCommandLineW(), &count);
    const std::vector<std::wstring> words(list, list + count);
    LocalFree(list);
    if (words.size() < 5) {
        std::fputs("usage: box_answerer LOG ANSWERS SECONDS PROGRAM [ARGUMENT...]\n", stderr);
        return bad_usage;
    }
    Answerer answerer(words[1], read_answers(words[2]));
    const Milliseconds limit{1000 * std::stoi(words[3])};

    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION started{};
    std::wstring line = command_line({words.begin() + 4, words.end()});
    if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                        &started)) {
        std::fprintf(stderr, "cannot start %s: error %lu\n", kovrel::to_utf8(words[4]).c_str(),
                     GetLastError());
        return bad_usage;
    }
    const kovrel::Owned<HANDLE, &CloseHandle> process(started.hProcess);
    CloseHandle(started.hThread);
    const bool ended = kovrel::test::wait_until(
        [&] {
            answerer.look(started.dwProcessId);
            return WaitForSingleObject(process.get(), 0) == WAIT_OBJECT_0;
        },
        limit);
    if (!ended) {
        std::fputs("the program did not end in time\n", stderr);
        TerminateProcess(process.get(), timed_out);
        return timed_out;
    }
    DWORD code = 0;
    GetExitCodeProcess(process.get(), &code);
    return static_cast<int>(code);
}
