#include "ui/masked_edit.h"

#include "automation/declare.h"
#include "automation/floating_point.h"
#include "automation/platform_failure.h"
#include "ui/controls.h"

namespace kovrel {
namespace {

constexpr ClassIdentity identity{
    L"Kovrel",
    L"MaskedEdit",
    {0x321927b6, 0xf853, 0x4851, {0xab, 0x02, 0x4b, 0x24, 0x12, 0x33, 0xe4, 0x6f}},
    {0x38f30039, 0xc3c6, 0x466d, {0xa8, 0xdf, 0x75, 0xe2, 0x87, 0xdd, 0x18, 0xab}},
    1,
};

}  // namespace

/// The field as an automation object, with the members that validators use.
class MaskedEdit::Face {
 public:
    static const ClassInfo class_info;

    [[nodiscard]] std::wstring get_Text() const { return field().text(); }
    [[nodiscard]] std::int32_t get_MaxLength() const {
        return static_cast<std::int32_t>(field().mask_.size());
    }
    [[nodiscard]] std::wstring get_Tag() const {
        (void)field();
        return tag;
    }
    void SetFocus() const {
        // Not SetFocus, so that the frame of the default button is updated too.
        HWND const text_box = field().text_box_;
        SendMessageW(GetAncestor(text_box, GA_ROOT), WM_NEXTDLGCTL,
                     reinterpret_cast<WPARAM>(text_box), TRUE);
    }

    std::shared_ptr<MaskedEdit*> self;
    std::wstring tag;

 private:
    [[nodiscard]] const MaskedEdit& field() const {
        if (*self == nullptr) throw_platform_failure(RPC_E_DISCONNECTED);
        return **self;
    }
};

namespace {

constexpr auto declared =
    declare<MaskedEdit::Face>(identity, L"Campo con máscara.")
        .read_only<&MaskedEdit::Face::get_Text>(L"Text", L"Texto sin separadores.")
        .read_only<&MaskedEdit::Face::get_MaxLength>(L"MaxLength", L"Longitud del dato completo.")
        .read_only<&MaskedEdit::Face::get_Tag>(L"Tag", L"Nombre del dato.")
        .method<&MaskedEdit::Face::SetFocus>(L"SetFocus", L"Lleva el foco al campo.");

}  // namespace

constinit const ClassInfo MaskedEdit::Face::class_info = class_tables<declared>;

MaskedEdit::MaskedEdit(HWND text_box, Mask mask, Reader reader)
    : text_box_(text_box),
      mask_(std::move(mask)),
      reader_(std::move(reader)),
      self_(std::make_shared<MaskedEdit*>(this)) {
    subclass(text_box_, &MaskedEdit::procedure, this);
}

MaskedEdit::~MaskedEdit() {
    *self_ = nullptr;
    end_subclass(text_box_, &MaskedEdit::procedure);
}

std::wstring MaskedEdit::shown() const {
    return text_of(text_box_);
}

std::wstring MaskedEdit::text() const {
    return mask_.bare(shown());
}

void MaskedEdit::set_text(const std::wstring& text) {
    forget_refused();
    SetWindowTextW(text_box_, mask_.shown(text).c_str());
}

bool MaskedEdit::read(const std::wstring& given) {
    const auto value = reader_ ? reader_(given) : std::nullopt;
    if (!value) return false;
    set_text(*value);
    move_caret(shown().size());
    return true;
}

bool MaskedEdit::read_with_refused(wchar_t character) {
    if (text().empty()) refused_before_ += character;
    if (!complete() || selection().first != shown().size()) return false;
    refused_behind_ += character;
    return read(refused_before_ + text() + refused_behind_);
}

void MaskedEdit::forget_refused() noexcept {
    refused_before_.clear();
    refused_behind_.clear();
}

std::wstring MaskedEdit::select(std::size_t count) {
    SendMessageW(text_box_, EM_SETSEL, 0, static_cast<LPARAM>(count));
    return shown().substr(0, count);
}

ComPtr<IDispatch> MaskedEdit::automation_object(std::wstring tag) {
    auto object = create_instance<Face>();
    auto& face = implementation_of<Face>(object.get());
    face.self = self_;
    face.tag = std::move(tag);
    return object;
}

std::pair<DWORD, DWORD> MaskedEdit::selection() const noexcept {
    std::pair<DWORD, DWORD> result;
    SendMessageW(text_box_, EM_GETSEL, reinterpret_cast<WPARAM>(&result.first),
                 reinterpret_cast<LPARAM>(&result.second));
    return result;
}

void MaskedEdit::move_caret(std::size_t position) const noexcept {
    SendMessageW(text_box_, EM_SETSEL, position, static_cast<LPARAM>(position));
}

void MaskedEdit::step_over_separator(bool forward) {
    const auto [begin, end] = selection();
    if (begin != end) return;
    const std::wstring text = shown();
    const std::size_t beside = forward ? begin : begin - std::size_t{1};
    if (beside >= text.size() || text[beside] != mask_.separator()) return;
    move_caret(forward ? beside + 1 : beside);
}

void MaskedEdit::regroup() {
    const std::wstring typed = shown();
    const std::wstring grouped = mask_.shown(typed);
    if (typed == grouped) return;
    const DWORD caret = selection().second;
    const std::size_t before = mask_.bare(std::wstring_view(typed).substr(0, caret)).size();
    SetWindowTextW(text_box_, grouped.c_str());
    move_caret(mask_.shown_position(grouped, before));
}

LRESULT MaskedEdit::handle(UINT message, WPARAM wparam, LPARAM lparam) {
    const auto by_default = [&] {
        return pass_on(&MaskedEdit::procedure, text_box_, message, wparam, lparam);
    };
    switch (message) {
        case WM_GETDLGCODE:
            // Enter moves on to the next control instead of pressing the default button.
            return by_default() | (wparam == VK_RETURN ? DLGC_WANTMESSAGE : 0);
        case WM_CHAR: {
            const auto character = static_cast<wchar_t>(wparam);
            if (character == VK_RETURN) return 0;
            if (character == VK_BACK) step_over_separator(false);
            const auto [begin, end] = selection();
            const bool fits = mask_.accepts(character) && (begin != end || !complete());
            if (character >= L' ' && !fits) {
                // A typed separator is ignored without a beep.
                const bool is_quiet =
                    character == mask_.separator() || read_with_refused(character);
                if (!is_quiet) MessageBeep(MB_OK);
                return 0;
            }
            refused_behind_.clear();
            break;
        }
        case WM_KEYDOWN:
            if (wparam == VK_RETURN) {
                SendMessageW(GetAncestor(text_box_, GA_ROOT), WM_NEXTDLGCTL, FALSE, FALSE);
                return 0;
            }
            if (wparam != VK_DELETE) return by_default();
            step_over_separator(true);
            break;
        case WM_PASTE: {
            const auto [begin, end] = selection();
            const std::size_t kept = shown().size() - (end - begin);
            const LRESULT result = by_default();
            const std::wstring text = shown();
            if (!read(text.substr(begin, text.size() - kept))) regroup();
            return result;
        }
        case WM_KILLFOCUS:
            forget_refused();
            return by_default();
        case WM_CUT:
        case WM_CLEAR:
        case WM_UNDO:
        case EM_UNDO:
            break;
        default:
            return by_default();
    }
    const LRESULT result = by_default();
    regroup();
    if (shown().empty()) forget_refused();
    return result;
}

LRESULT MaskedEdit::procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam,
                              void* owner) {
    const DefaultFloatingPoint floating_point;
    try {
        return static_cast<MaskedEdit*>(owner)->handle(message, wparam, lparam);
    } catch (...) {
        // Out of memory: the text stays as it is.
        return pass_on(&MaskedEdit::procedure, window, WM_NULL, 0, 0);
    }
}

}  // namespace kovrel
