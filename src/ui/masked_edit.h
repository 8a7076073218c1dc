// A text box with an input mask: it accepts what the mask does and groups it as it is typed.
#pragma once

#include <windows.h>
#include <oleauto.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "automation/com_ptr.h"
#include "ui/mask.h"

namespace kovrel {

/// Subclasses a text box of one line.
class MaskedEdit {
 public:
    class Face;
    /// The value that a text stands for which is more than the mask takes; nothing if it is none.
    using Reader = std::function<std::optional<std::wstring>(std::wstring_view)>;

    /// `reader` is asked for what is pasted, and for what is typed into a full field, with what the
    /// mask refused before.
    MaskedEdit(HWND text_box, Mask mask, Reader reader = nullptr);
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
    /// True when the text stands for a value, which the field then has.
    bool read(const std::wstring& given);
    bool read_with_refused(wchar_t character);
    void forget_refused() noexcept;

    HWND text_box_;
    Mask mask_;
    Reader reader_;
    std::wstring refused_before_;  ///< what the mask refused while the field was empty
    std::wstring refused_behind_;  ///< what it refused at the end of the full field
    /// Shared with the automation objects; points to null once the field is gone.
    std::shared_ptr<MaskedEdit*> self_;
};

}  // namespace kovrel
