// The form of a host: a real window with real fields, each wrapped as the automation object that a
// form designer's controls are (Text, Tag, MaxLength, ListCount, SetFocus, DropDown, ...).
#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/support/scripted_object.h"

namespace kovrel::test {

struct HostControl {
    HWND window = nullptr;
    ComPtr<ScriptedObject> object;

    [[nodiscard]] IDispatch* dispatch() const noexcept { return object.get(); }
    [[nodiscard]] std::wstring text() const;
    void set_text(const std::wstring& text) const;
    [[nodiscard]] bool is_dropped_down() const;
};

class HostForm {
 public:
    explicit HostForm(const std::wstring& title);
    HostForm(const HostForm&) = delete;
    HostForm& operator=(const HostForm&) = delete;
    ~HostForm();

    // Each field stands below the one before, with its name, which is also its Tag, in front.
    // A text box; `max_length` 0 sets no limit. Its default member is Text.
    HostControl add_text(const std::wstring& name, int max_length = 0);
    // A date field with the mask __/__/____ (the mask is its text while it is empty).
    HostControl add_masked_date(const std::wstring& name);
    // A date picker; its default member is Value, a date.
    HostControl add_date_picker(const std::wstring& name);
    // A combo box; its default member, Value, is a null while its text is none of the list's.
    HostControl add_combo(const std::wstring& name, const std::vector<std::wstring>& items);

    [[nodiscard]] HWND window() const noexcept { return window_; }

 private:
    HWND add(const wchar_t* window_class, DWORD style, const std::wstring& name, int height);

    HWND window_ = nullptr;
    int next_top_ = 12;
};

}  // namespace kovrel::test
