#include "zip/zip_library.h"

#include <string>

#include "automation/module.h"
#include "runtime/failure.h"

namespace kovrel {
namespace {

constexpr const wchar_t* file_name = L"zip32.dll";

/// Keeps the system from telling the user itself, in a box of its own, that a file is no DLL.
class QuietLoader {
 public:
    QuietLoader() noexcept { SetThreadErrorMode(SEM_FAILCRITICALERRORS, &before_); }
    QuietLoader(const QuietLoader&) = delete;
    QuietLoader& operator=(const QuietLoader&) = delete;
    ~QuietLoader() { SetThreadErrorMode(before_, nullptr); }

 private:
    DWORD before_ = 0;
};

/// Folders end in a backslash; an empty one could not be found out.
std::wstring own_folder() {
    std::wstring path = own_module_path();
    path.resize(path.rfind(L'\\') + 1);
    return path;
}

std::wstring system_folder() {
    std::wstring path(GetSystemDirectoryW(nullptr, 0), L'\0');
    path.resize(GetSystemDirectoryW(path.data(), static_cast<UINT>(path.size())));
    if (!path.empty()) path += L'\\';
    return path;
}

bool is_file(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

HMODULE load() {
    const QuietLoader quiet;
    FailureNumber failure = FailureNumber::file_not_found;
    for (const std::wstring& folder : {own_folder(), system_folder()}) {
        if (folder.empty() || !is_file(folder + file_name)) continue;
        // What the DLL needs itself comes from its own folder or the system's too.
        HMODULE module =
            LoadLibraryExW((folder + file_name).c_str(), nullptr,
                           LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR | LOAD_LIBRARY_SEARCH_SYSTEM32);
        if (module != nullptr) return module;
        failure = FailureNumber::dll_load;
    }
    throw Failure(failure);
}

template <class Function>
Function entry_point(HMODULE module, const char* name) {
    const FARPROC address = GetProcAddress(module, name);
    if (address == nullptr) throw Failure(FailureNumber::dll_function_not_found);
    return reinterpret_cast<Function>(reinterpret_cast<void*>(address));
}

}  // namespace

ZipLibrary::ZipLibrary()
    : module_(load()),
      init(entry_point<decltype(init)>(module_.get(), "ZpInit")),
      set_options(entry_point<decltype(set_options)>(module_.get(), "ZpSetOptions")),
      archive(entry_point<decltype(archive)>(module_.get(), "ZpArchive")) {}

}  // namespace kovrel
