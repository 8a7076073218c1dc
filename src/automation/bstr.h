// Owner of one BSTR, and conversions between BSTR and std::wstring. A null BSTR is an empty text.
#pragma once

#include <windows.h>
#include <oleauto.h>

#include <limits>
#include <new>
#include <string>
#include <string_view>
#include <utility>

namespace kovrel {

/// The characters of a BSTR, embedded zeros included.
[[nodiscard]] inline std::wstring_view text_of(BSTR text) noexcept {
    return text == nullptr ? std::wstring_view{} : std::wstring_view(text, SysStringLen(text));
}

/// A new BSTR that the caller owns; memory exhaustion is std::bad_alloc.
[[nodiscard]] inline BSTR new_bstr(std::wstring_view text) {
    if (text.size() > std::numeric_limits<UINT>::max() / sizeof(wchar_t)) throw std::bad_alloc();
    BSTR result = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    if (result == nullptr) throw std::bad_alloc();
    return result;
}

class Bstr {
 public:
    Bstr() noexcept = default;
    explicit Bstr(std::wstring_view text) : text_(new_bstr(text)) {}
    Bstr(Bstr&& other) noexcept : text_(std::exchange(other.text_, nullptr)) {}
    Bstr& operator=(Bstr other) noexcept {
        std::swap(text_, other.text_);
        return *this;
    }
    ~Bstr() {
        if (text_ != nullptr) SysFreeString(text_);
    }

    [[nodiscard]] BSTR get() const noexcept { return text_; }
    [[nodiscard]] BSTR* put() noexcept {
        *this = Bstr();
        return &text_;
    }
    [[nodiscard]] BSTR detach() noexcept { return std::exchange(text_, nullptr); }
    [[nodiscard]] std::wstring_view view() const noexcept { return text_of(text_); }

 private:
    BSTR text_ = nullptr;
};

}  // namespace kovrel
