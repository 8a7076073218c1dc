#include "tests/robustness/scarce_memory.h"

#include <windows.h>
#include <oleauto.h>

#include <cstdlib>
#include <mutex>
#include <string>
#include <unordered_set>

#include "tests/support/import_patch.h"

namespace kovrel::test {
namespace {

DWORD refused_thread = 0;
std::size_t requests = 0;
std::size_t first_refused = 0;
bool only_once = false;
std::size_t always_granted = 0;  // bytes

std::mutex blocks_guard;
std::unordered_set<void*> live_blocks;

bool is_refused() {
    if (GetCurrentThreadId() != refused_thread) return false;
    ++requests;
    return only_once ? requests == first_refused : requests >= first_refused;
}

void* remember(void* block) {
    const std::scoped_lock lock(blocks_guard);
    if (block != nullptr) live_blocks.insert(block);
    return block;
}

void forget(void* block) {
    const std::scoped_lock lock(blocks_guard);
    live_blocks.erase(block);
}

void* __cdecl scarce_malloc(std::size_t size) {
    const bool refused = size > always_granted && is_refused();
    return refused ? nullptr : remember(std::malloc(size));
}

// Used only by the compiler's run time, for locks and exceptions, which does not handle failure.
void* __cdecl counting_calloc(std::size_t count, std::size_t size) {
    return remember(std::calloc(count, size));
}

void* __cdecl counting_realloc(void* block, std::size_t size) {
    forget(block);
    return remember(std::realloc(block, size));
}

void __cdecl counting_free(void* block) {
    forget(block);
    std::free(block);
}

BSTR WINAPI scarce_text(const OLECHAR* text) {
    return is_refused() ? nullptr : SysAllocString(text);
}

BSTR WINAPI scarce_text_of(const OLECHAR* text, UINT length) {
    return is_refused() ? nullptr : SysAllocStringLen(text, length);
}

SAFEARRAY* WINAPI scarce_array(VARTYPE type, UINT dimensions, SAFEARRAYBOUND* bounds) {
    return is_refused() ? nullptr : SafeArrayCreate(type, dimensions, bounds);
}

SAFEARRAY* WINAPI scarce_vector(VARTYPE type, LONG first, ULONG count) {
    return is_refused() ? nullptr : SafeArrayCreateVector(type, first, count);
}

HRESULT WINAPI scarce_copy(VARIANTARG* target, const VARIANTARG* source) {
    return is_refused() ? E_OUTOFMEMORY : VariantCopy(target, const_cast<VARIANTARG*>(source));
}

HRESULT WINAPI scarce_copy_followed(VARIANT* target, const VARIANTARG* source) {
    return is_refused() ? E_OUTOFMEMORY : VariantCopyInd(target, const_cast<VARIANTARG*>(source));
}

HRESULT WINAPI scarce_change(VARIANTARG* target, const VARIANTARG* source, LCID locale, USHORT how,
                             VARTYPE type) {
    if (is_refused()) return E_OUTOFMEMORY;
    return VariantChangeTypeEx(target, const_cast<VARIANTARG*>(source), locale, how, type);
}

HGLOBAL WINAPI scarce_global(UINT flags, SIZE_T size) {
    return is_refused() ? nullptr : GlobalAlloc(flags, size);
}

HWND WINAPI scarce_window(DWORD extended, LPCWSTR name, LPCWSTR text, DWORD style, int left,
                          int top, int width, int height, HWND parent, HMENU menu, HINSTANCE module,
                          LPVOID parameter) {
    if (is_refused()) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
    return CreateWindowExW(extended, name, text, style, left, top, width, height, parent, menu,
                           module, parameter);
}

HFONT WINAPI scarce_font(const LOGFONTW* font) {
    return is_refused() ? nullptr : CreateFontIndirectW(font);
}

HBITMAP WINAPI scarce_bitmap(HDC context, const BITMAPINFO* info, UINT usage, void** bits,
                             HANDLE section, DWORD offset) {
    return is_refused() ? nullptr : CreateDIBSection(context, info, usage, bits, section, offset);
}

HDC WINAPI scarce_context(HDC context) {
    return is_refused() ? nullptr : CreateCompatibleDC(context);
}

HICON WINAPI scarce_icon(ICONINFO* info) {
    return is_refused() ? nullptr : CreateIconIndirect(info);
}

}  // namespace

struct ScarceMemory::Patches {
    template <class Function>
    static ImportPatch patch(const char* name, Function* function) {
        return {L"kovrel.dll", name, reinterpret_cast<void*>(function)};
    }

    ImportPatch block = patch("malloc", &scarce_malloc);
    ImportPatch zeroed = patch("calloc", &counting_calloc);
    ImportPatch resized = patch("realloc", &counting_realloc);
    ImportPatch freed = patch("free", &counting_free);
    ImportPatch text = patch("SysAllocString", &scarce_text);
    ImportPatch text_of = patch("SysAllocStringLen", &scarce_text_of);
    ImportPatch array = patch("SafeArrayCreate", &scarce_array);
    ImportPatch vector = patch("SafeArrayCreateVector", &scarce_vector);
    ImportPatch copy = patch("VariantCopy", &scarce_copy);
    ImportPatch followed = patch("VariantCopyInd", &scarce_copy_followed);
    ImportPatch change = patch("VariantChangeTypeEx", &scarce_change);
    ImportPatch global = patch("GlobalAlloc", &scarce_global);
    ImportPatch window = patch("CreateWindowExW", &scarce_window);
    ImportPatch font = patch("CreateFontIndirectW", &scarce_font);
    ImportPatch bitmap = patch("CreateDIBSection", &scarce_bitmap);
    ImportPatch context = patch("CreateCompatibleDC", &scarce_context);
    ImportPatch icon = patch("CreateIconIndirect", &scarce_icon);
};

ScarceMemory::ScarceMemory() : patches_(std::make_unique<Patches>()) {
    if (!patches_->block.in_place() || !patches_->freed.in_place() ||
        !patches_->text_of.in_place() || !patches_->copy.in_place()) {
        std::abort();
    }
}

ScarceMemory::~ScarceMemory() = default;

void ScarceMemory::warm_up(IDispatch* instance) {
    const ScarceMemory scarce;
    always_granted = 64;
    refuse(1, Refusal::from_then_on);
    std::wstring name(200, L'x');
    LPOLESTR names = name.data();
    DISPID id = DISPID_UNKNOWN;
    instance->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id);
    grant_all();
    always_granted = 0;
}

void ScarceMemory::refuse(std::size_t first, Refusal refusal) {
    requests = 0;
    first_refused = first;
    only_once = refusal == Refusal::once;
    refused_thread = GetCurrentThreadId();
}

std::size_t ScarceMemory::grant_all() {
    refused_thread = 0;
    return requests;
}

std::size_t ScarceMemory::blocks() {
    const std::scoped_lock lock(blocks_guard);
    return live_blocks.size();
}

}  // namespace kovrel::test
