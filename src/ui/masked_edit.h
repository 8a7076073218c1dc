// A text box with an input mask: it accepts what the mask does and groups it as it is typed.
#pragma once

#include <windows.h>
#include <oleauto.h>

#include <memory>
#include <string>
#include <utility>

#include "automation/com_ptr.h"
#include "ui/mask.h"

namespace kovrel {

/// Subclasses a text box of one line.
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

    /// Selects the first shown characters and returns them.
    std::wstring select(std::size_t count);

    /// The field as an automation object: the default member Text (the bare characters), MaxLength,
    /// Tag and SetFocus. RPC_E_DISCONNECTED once the field is gone.
    [[nodiscard]] ComPtr<IDispatch> automation_object(std::wstring tag);

 private:
    static LRESULT procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam, void* owner);
    LRESULT handle(UINT message, WPARAM wparam, LPARAM lparam);
    [[nodiscard]] std::wstring shown() const;
    /// The first selected character and the one behind the last.
    [[nodiscard]] std::pair<DWORD, DWORD> selection() const noexcept;
    void move_caret(std::size_t position) const noexcept;
    void step_over_separator(bool forward);
    void regroup();

    HWND text_box_;
    Mask mask_;
    /// Shared with the automation objects; points to null once the field is gone.
    std::shared_ptr<MaskedEdit*> self_;
};

}  // namespace kovrel
