#include "ui/masked_edit.h"

#include <array>

#include "automation/boundary.h"
#include "automation/floating_point.h"
#include "automation/variant.h"
#include "ui/subclass.h"

namespace kovrel {
namespace {

constexpr UINT_PTR subclass_id = 2;

bool reads(WORD flags) noexcept {
    return (flags & (DISPATCH_PROPERTYGET | DISPATCH_METHOD)) != 0;
}

/// By the dialog's own message, so that the default button is framed anew.
void focus_dialog_on(HWND text_box) noexcept {
    SendMessageW(GetAncestor(text_box, GA_ROOT), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(text_box),
                 TRUE);
}

}  // namespace

/// The members that the validators of fields use.
class MaskedEdit::Face final : public IDispatch {
 public:
    Face(std::shared_ptr<MaskedEdit*> field, std::wstring tag)
        : field_(std::move(field)), tag_(std::move(tag)) {}
    virtual ~Face() = default;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) override {
        if (result == nullptr) return E_POINTER;
        *result = nullptr;
        if (id != IID_IUnknown && id != IID_IDispatch) return E_NOINTERFACE;
        *result = static_cast<IDispatch*>(this);
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        if (count == nullptr) return E_POINTER;
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT /*index*/, LCID /*locale*/,
                                          ITypeInfo** /*result*/) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID /*id*/, LPOLESTR* names, UINT count,
                                            LCID /*locale*/, DISPID* ids) override {
        if (count != 1) return DISP_E_UNKNOWNNAME;
        for (DISPID id = 0; id < static_cast<DISPID>(members.size()); ++id) {
            if (lstrcmpiW(names[0], members[static_cast<std::size_t>(id)]) == 0) {
                ids[0] = id;
                return S_OK;
            }
        }
        ids[0] = DISPID_UNKNOWN;
        return DISP_E_UNKNOWNNAME;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID /*id*/, LCID /*locale*/, WORD flags,
                                     DISPPARAMS* parameters, VARIANT* result,
                                     EXCEPINFO* /*exception*/, UINT* /*bad_argument*/) override {
        MaskedEdit* const field = *field_;
        if (field == nullptr) return RPC_E_DISCONNECTED;
        if (parameters->cArgs != 0 || !reads(flags)) return DISP_E_MEMBERNOTFOUND;
        return boundary(nullptr, [&] {
            const Variant value = value_of(member, *field);
            if (result != nullptr) *result = Variant(value).detach();
        });
    }

 private:
    enum Member : DISPID { text, max_length, tag, set_focus };
    static constexpr std::array<const wchar_t*, 4> members{L"Text", L"MaxLength", L"Tag",
                                                           L"SetFocus"};
    static_assert(text == DISPID_VALUE);

    [[nodiscard]] Variant value_of(DISPID member, const MaskedEdit& field) const {
        switch (member) {
            case text:
                return Variant(field.text());
            case max_length:
                return Variant(static_cast<std::int32_t>(field.mask_.size()));
            case tag:
                return Variant(tag_);
            case set_focus:
                focus_dialog_on(field.text_box_);
                return Variant();
            default:
                throw Failure(FailureNumber::member_not_found);
        }
    }

    ULONG references_ = 1;
    std::shared_ptr<MaskedEdit*> field_;
    std::wstring tag_;
};

MaskedEdit::MaskedEdit(HWND text_box, Mask mask)
    : text_box_(text_box), mask_(std::move(mask)), self_(std::make_shared<MaskedEdit*>(this)) {
    SetWindowSubclass(text_box_, &MaskedEdit::procedure, subclass_id,
                      reinterpret_cast<DWORD_PTR>(this));
}

MaskedEdit::~MaskedEdit() {
    *self_ = nullptr;
    RemoveWindowSubclass(text_box_, &MaskedEdit::procedure, subclass_id);
}

std::wstring MaskedEdit::shown() const {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(text_box_)) + 1, L'\0');
    const int length = GetWindowTextW(text_box_, text.data(), static_cast<int>(text.size()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

std::wstring MaskedEdit::text() const {
    return mask_.bare(shown());
}

void MaskedEdit::set_text(const std::wstring& text) {
    SetWindowTextW(text_box_, mask_.shown(text).c_str());
}

std::wstring MaskedEdit::select(std::size_t count) {
    SendMessageW(text_box_, EM_SETSEL, 0, static_cast<LPARAM>(count));
    return shown().substr(0, count);
}

ComPtr<IDispatch> MaskedEdit::automation_object(std::wstring tag) {
    return ComPtr<IDispatch>::attach(new Face(self_, std::move(tag)));
}

void MaskedEdit::step_over_separator(bool forward) {
    DWORD begin = 0;
    DWORD end = 0;
    SendMessageW(text_box_, EM_GETSEL, reinterpret_cast<WPARAM>(&begin),
                 reinterpret_cast<LPARAM>(&end));
    if (begin != end) return;
    const std::wstring text = shown();
    const std::size_t beside = forward ? begin : begin - std::size_t{1};
    if (beside >= text.size() || text[beside] != mask_.separator()) return;
    const std::size_t next = forward ? beside + 1 : beside;
    SendMessageW(text_box_, EM_SETSEL, next, static_cast<LPARAM>(next));
}

void MaskedEdit::regroup() {
    const std::wstring typed = shown();
    const std::wstring grouped = mask_.shown(typed);
    if (typed == grouped) return;
    DWORD caret = 0;
    SendMessageW(text_box_, EM_GETSEL, 0, reinterpret_cast<LPARAM>(&caret));
    const std::size_t before = mask_.bare(std::wstring_view(typed).substr(0, caret)).size();
    SetWindowTextW(text_box_, grouped.c_str());
    const std::size_t position = mask_.shown_position(grouped, before);
    SendMessageW(text_box_, EM_SETSEL, position, static_cast<LPARAM>(position));
}

LRESULT MaskedEdit::handle(UINT message, WPARAM wparam, LPARAM lparam) {
    const auto by_default = [&] {
        return pass_on(&MaskedEdit::procedure, subclass_id, text_box_, message, wparam, lparam);
    };
    switch (message) {
        case WM_GETDLGCODE:
            // Enter is the field's own key: it goes on to the next control.
            return by_default() | (wparam == VK_RETURN ? DLGC_WANTMESSAGE : 0);
        case WM_CHAR: {
            const auto character = static_cast<wchar_t>(wparam);
            if (character == VK_RETURN) return 0;
            if (character == VK_BACK) step_over_separator(false);
            if (character >= L' ') {
                DWORD begin = 0;
                DWORD end = 0;
                SendMessageW(text_box_, EM_GETSEL, reinterpret_cast<WPARAM>(&begin),
                             reinterpret_cast<LPARAM>(&end));
                if (!mask_.accepts(character) || (begin == end && complete())) {
                    // A separator that the user types too is no mistake.
                    if (character != mask_.separator()) MessageBeep(MB_OK);
                    return 0;
                }
            }
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
        case WM_PASTE:
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
    return result;
}

LRESULT CALLBACK MaskedEdit::procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam,
                                       UINT_PTR /*id*/, DWORD_PTR owner) {
    const DefaultFloatingPoint floating_point;
    try {
        return reinterpret_cast<MaskedEdit*>(owner)->handle(message, wparam, lparam);
    } catch (...) {
        // Without memory for the text it stays as the text box has it.
        return DefSubclassProc(window, WM_NULL, 0, 0);
    }
}

}  // namespace kovrel
