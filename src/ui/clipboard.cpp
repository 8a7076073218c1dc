#include "ui/clipboard.h"

#include <algorithm>
#include <memory>

#include "runtime/failure.h"

namespace kovrel {
namespace {

struct FreeMemory {
    void operator()(void* memory) const noexcept { GlobalFree(memory); }
};

}  // namespace

void put_on_clipboard(HWND owner, std::wstring_view text) {
    std::unique_ptr<void, FreeMemory> memory(
        GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(wchar_t)));
    auto* const characters = static_cast<wchar_t*>(memory ? GlobalLock(memory.get()) : nullptr);
    if (characters == nullptr) throw Failure(FailureNumber::out_of_memory);
    *std::copy(text.begin(), text.end(), characters) = L'\0';
    GlobalUnlock(memory.get());
    if (OpenClipboard(owner) == FALSE) throw Failure(FailureNumber::clipboard_unavailable);
    EmptyClipboard();
    const bool taken = SetClipboardData(CF_UNICODETEXT, memory.get()) != nullptr;
    CloseClipboard();
    if (!taken) throw Failure(FailureNumber::clipboard_unavailable);
    static_cast<void>(memory.release());  // the clipboard's from now on
}

}  // namespace kovrel
