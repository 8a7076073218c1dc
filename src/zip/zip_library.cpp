#include "zip/zip_library.h"

#include <optional>
#include <string>
#include <utility>

#include "automation/module.h"
#include "services/dynamic_library.h"

namespace kovrel {
namespace {

constexpr const wchar_t* file_name = L"zip32.dll";

/// Suppresses the system's own message box for a file that is no valid DLL.
class QuietLoader {
 public:
    QuietLoader() noexcept { SetThreadErrorMode(SEM_FAILCRITICALERRORS, &before_); }
    QuietLoader(const QuietLoader&) = delete;
    QuietLoader& operator=(const QuietLoader&) = delete;
    ~QuietLoader() { SetThreadErrorMode(before_, nullptr); }

 private:
    DWORD before_ = 0;
};

/// With a backslash at the end; empty where it could not be found out.
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

template <class Function>
Function function_of(HMODULE module, const std::wstring& path, const char* name) {
    return reinterpret_cast<Function>(entry_point(module, path, name));
}

}  // namespace

ZipLibrary::ZipLibrary() : ZipLibrary(load()) {}

ZipLibrary::ZipLibrary(Loaded loaded)
    : module_(std::move(loaded.module)),
      path_(std::move(loaded.path)),
      init(function_of<decltype(init)>(module_.get(), path_, "ZpInit")),
      set_options(function_of<decltype(set_options)>(module_.get(), path_, "ZpSetOptions")),
      archive(function_of<decltype(archive)>(module_.get(), path_, "ZpArchive")) {}

void* ZipLibrary::function(const char* name) const {
    return entry_point(module_.get(), path_, name);
}

ZipLibrary::Loaded ZipLibrary::load() {
    const QuietLoader quiet;
    std::optional<Failure> unusable;
    for (const std::wstring& folder : {own_module_folder(), system_folder()}) {
        const std::wstring path = folder + file_name;
        if (folder.empty() || !is_file(path)) continue;
        // The DLL's own imports are searched for in its folder and the system's only.
        Module module(
            LoadLibraryExW(path.c_str(), nullptr,
                           LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR | LOAD_LIBRARY_SEARCH_SYSTEM32));
        if (module) return {std::move(module), path};
        if (!unusable) unusable = failure_over(FailureNumber::dll_load, path);
    }
    if (unusable) throw Failure(*unusable);
    // Name the place where it should be.
    throw failure_over(FailureNumber::file_not_found, own_module_folder() + file_name);
}

}  // namespace kovrel
