// Text boxes and combo boxes as the automation objects that the library's validators take: what the
// controls of a form designer are by themselves.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

#include "automation.h"

namespace ficha {

/// What all fields have: Text, Tag (the name that the messages give the field) and SetFocus.
class FormControl : public IDispatch {
 public:
    FormControl(HWND window, std::wstring name);
    FormControl(const FormControl&) = delete;
    FormControl& operator=(const FormControl&) = delete;

    [[nodiscard]] HWND window() const noexcept { return window_; }
    [[nodiscard]] const std::wstring& name() const noexcept { return name_; }
    [[nodiscard]] std::wstring text() const;
    void set_text(const std::wstring& text) const;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** result) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags,
                                     DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                     UINT* bad_argument) override;

 protected:
    virtual ~FormControl() = default;

    /// No member of a field takes more than one argument.
    using Action = std::function<Value(const Value& argument)>;
    /// A method, or a property; `put` is left out where it is read-only.
    void add_member(const wchar_t* name, Action call, Action put = {});
    /// The member that the control's own value is read from; Text unless another is named.
    void set_default_member(const wchar_t* name) { default_member_ = id_of(name); }

 private:
    struct Member {
        const wchar_t* name;
        Action call;
        Action put;
    };
    [[nodiscard]] DISPID id_of(const wchar_t* name) const;

    HWND window_;
    std::wstring name_;
    std::vector<Member> members_;
    DISPID default_member_;
    ULONG references_ = 1;
};

class TextBox final : public FormControl {
 public:
    TextBox(HWND window, const std::wstring& name, int max_length);
};

/// Its value is a null while its text is none of the list's.
class ComboBox final : public FormControl {
 public:
    ComboBox(HWND window, const std::wstring& name);

 private:
    [[nodiscard]] bool has_text_of_list() const;
};

}  // namespace ficha
