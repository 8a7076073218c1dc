// The sample host's customer form, a program of its own, worked with the keyboard alone.
#pragma once

#include <windows.h>

#include <gtest/gtest.h>
#include <string>

#include "examples/ficha/resource.h"
#include "tests/support/box_lines.h"
#include "tests/support/test_folder.h"

namespace kovrel::test {

inline constexpr const wchar_t* dialog_class = L"#32770";

class FichaForm {
 public:
    /// With the program's arguments after its own name.
    FichaForm(const std::wstring& arguments, const std::wstring& title) {
        std::wstring line = L"\"" KOVREL_FICHA L"\" " + arguments;
        STARTUPINFOW start{};
        start.cb = sizeof start;
        EXPECT_TRUE(CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr,
                                   nullptr, &start, &process_));
        form_ = window(dialog_class, title);
        EXPECT_TRUE(bring_to_front(form_));
        EXPECT_TRUE(has_focus(IDC_NAME));
    }
    FichaForm(const FichaForm&) = delete;
    FichaForm& operator=(const FichaForm&) = delete;
    ~FichaForm() {
        end();
        CloseHandle(process_.hThread);
        CloseHandle(process_.hProcess);
    }

    [[nodiscard]] HWND handle() const { return form_; }
    /// Ends the program at once, as a task manager does.
    void end() const {
        TerminateProcess(process_.hProcess, 1);
        WaitForSingleObject(process_.hProcess, INFINITE);
    }
    HWND window(const wchar_t* window_class, const std::wstring& title = L"") {
        HWND const found = wait_for_window({window_class, title, process_.dwProcessId});
        EXPECT_NE(found, nullptr) << narrow(title);
        return found;
    }
    [[nodiscard]] HWND field(int id) const { return GetDlgItem(form_, id); }
    bool has_focus(int id) {
        return wait_until([&] {
            HWND const focus = focus_of(form_);
            return focus == field(id) || GetParent(focus) == field(id);
        });
    }
    void shows(int id, const std::wstring& text) const {
        EXPECT_TRUE(wait_until([&] { return text_of(field(id)) == text; }))
            << id << ": " << narrow(text_of(field(id)));
    }

    /// Types into the field that has the keyboard and waits until it shows what it makes of it.
    void type(int id, const std::wstring& keys, const std::wstring& shown) {
        EXPECT_TRUE(has_focus(id)) << id;
        ask(field(id), EM_SETSEL, 0, -1);
        type_text(keys);
        shows(id, shown);
    }
    void type(int id, const std::wstring& keys) { type(id, keys, keys); }

    /// Leaves the field for the next one, which is fine.
    void leave_to(int next) {
        press_key(VK_TAB);
        EXPECT_TRUE(has_focus(next)) << next;
    }
    /// Leaves the field, which brings a box up; answers it and gives it as a line.
    std::string leave_to_box(const wchar_t* title = L"Clientes") {
        press_key(VK_TAB);
        return answer_box_of(title);
    }
    std::string answer_box_of(const wchar_t* title) {
        HWND const box = window(dialog_class, title);
        std::optional<SeenBox> seen;
        EXPECT_TRUE(wait_until([&] { return (seen = read_box(box)).has_value(); }));
        if (!seen) return {};
        EXPECT_TRUE(answer_box(box, *seen, {0, VK_RETURN}));
        return narrow(as_line(*seen));
    }

    /// A form that can be saved, without a word.
    void fill() {
        type(IDC_NAME, L"Ana Sanz");
        leave_to(IDC_TAX_ID);
        type(IDC_TAX_ID, L"12345678Z");
        press_key('A', Modifier::alt);
        type(IDC_START, L"15/03/2024");
        press_key('D', Modifier::alt);
        type(IDC_PAYMENT, L"Contado");
    }

 private:
    PROCESS_INFORMATION process_{};
    HWND form_ = nullptr;
};

}  // namespace kovrel::test
