// Owner of one reference to a COM interface.
#pragma once

#include <windows.h>
#include <unknwn.h>

#include <utility>

namespace kovrel {

template <class Interface>
class ComPtr {
 public:
    ComPtr() noexcept = default;
    ComPtr(std::nullptr_t) noexcept {}
    /// Adds a reference.
    explicit ComPtr(Interface* pointer) noexcept : pointer_(pointer) {
        if (pointer_ != nullptr) pointer_->AddRef();
    }
    ComPtr(const ComPtr& other) noexcept : ComPtr(other.pointer_) {}
    ComPtr(ComPtr&& other) noexcept : pointer_(std::exchange(other.pointer_, nullptr)) {}
    ComPtr& operator=(ComPtr other) noexcept {
        std::swap(pointer_, other.pointer_);
        return *this;
    }
    ~ComPtr() {
        if (pointer_ != nullptr) pointer_->Release();
    }

    /// Takes over an existing reference without AddRef.
    [[nodiscard]] static ComPtr attach(Interface* pointer) noexcept {
        ComPtr result;
        result.pointer_ = pointer;
        return result;
    }
    /// Gives up ownership without Release.
    [[nodiscard]] Interface* detach() noexcept { return std::exchange(pointer_, nullptr); }

    /// The address for an out parameter; the old reference is released first.
    [[nodiscard]] Interface** put() noexcept {
        *this = ComPtr();
        return &pointer_;
    }
    [[nodiscard]] void** put_void() noexcept { return reinterpret_cast<void**>(put()); }

    [[nodiscard]] Interface* get() const noexcept { return pointer_; }
    Interface* operator->() const noexcept { return pointer_; }
    explicit operator bool() const noexcept { return pointer_ != nullptr; }
    bool operator==(const ComPtr&) const noexcept = default;

    /// Another interface of the same object; empty when it has none.
    template <class Other>
    [[nodiscard]] ComPtr<Other> query() const noexcept {
        ComPtr<Other> result;
        if (pointer_ != nullptr) {
            pointer_->QueryInterface(__uuidof(Other), result.put_void());
        }
        return result;
    }

 private:
    Interface* pointer_ = nullptr;
};

}  // namespace kovrel
