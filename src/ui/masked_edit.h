// A text box that takes what its mask accepts and shows it in groups as it is typed.
#pragma once

#include <windows.h>
#include <oleauto.h>

#include <memory>
#include <string>

#include "automation/com_ptr.h"
#include "ui/mask.h"

namespace kovrel {

/// Works on a text box of one line for as long as that box lives.
class MaskedEdit {
 public:
    class Face;

    MaskedEdit(HWND text_box, Mask mask);
    MaskedEdit(const MaskedEdit&) = delete;
    MaskedEdit& operator=(const MaskedEdit&) = delete;
    ~MaskedEdit();

    /// The bare characters.
    [[nodiscard]] std::wstring text() const;
    void set_text(const std::wstring& text);
    [[nodiscard]] bool complete() const { return text().size() == mask_.size(); }

    /// Selects so many shown characters from the first one on and returns them.
    std::wstring select(std::size_t count);

    /// The field as an automation object: the default member Text (the bare characters), MaxLength,
    /// Tag and SetFocus. It fails once the field is gone.
    [[nodiscard]] ComPtr<IDispatch> automation_object(std::wstring tag);

 private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam,
                                      UINT_PTR id, DWORD_PTR owner);
    LRESULT handle(UINT message, WPARAM wparam, LPARAM lparam);
    [[nodiscard]] std::wstring shown() const;
    void step_over_separator(bool forward);
    void regroup();

    HWND text_box_;
    Mask mask_;
    /// What the automation objects reach the field through; empty once it is gone.
    std::shared_ptr<MaskedEdit*> self_;
};

}  // namespace kovrel
