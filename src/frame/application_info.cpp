#include "frame/application_info.h"

#include <windows.h>
#include <winver.h>

#include <array>
#include <cwchar>
#include <string_view>
#include <vector>

#include "automation/module.h"
#include "runtime/failure.h"

namespace kovrel {
namespace {

/// The version resource of the module that this code was linked into, as it was loaded: the file
/// on the disk may be another one by now.
class VersionResource {
 public:
    VersionResource() {
        HMODULE module = own_module();
        HRSRC found = FindResourceW(module, MAKEINTRESOURCEW(VS_VERSION_INFO), RT_VERSION);
        HGLOBAL loaded = found == nullptr ? nullptr : LoadResource(module, found);
        const auto* data =
            static_cast<const char*>(loaded == nullptr ? nullptr : LockResource(loaded));
        if (data == nullptr) throw Failure(FailureNumber::device_io);
        // Reading may write conversions behind the content, so it gets a copy with room for them.
        const std::size_t size = SizeofResource(module, found);
        content_.assign(data, data + size);
        content_.resize(size * 2);
    }

    template <class Content>
    [[nodiscard]] const Content& at(const wchar_t* path) const {
        void* found = nullptr;
        UINT size = 0;
        if (!VerQueryValueW(content_.data(), path, &found, &size) || size == 0) {
            throw Failure(FailureNumber::device_io);
        }
        return *static_cast<const Content*>(found);
    }

 private:
    std::vector<char> content_;
};

std::wstring product_name(const VersionResource& version) {
    struct Translation {
        WORD language;
        WORD code_page;
    };
    const auto& translation = version.at<Translation>(L"\\VarFileInfo\\Translation");
    std::array<wchar_t, 64> path{};
    wsprintfW(path.data(), L"\\StringFileInfo\\%04X%04X\\ProductName", translation.language,
              translation.code_page);
    return {&version.at<wchar_t>(path.data())};
}

/// The folder part of a full path; that of a file in a root keeps its backslash.
std::wstring_view folder_of(std::wstring_view path) {
    const auto backslash = path.rfind(L'\\');
    if (backslash == std::wstring_view::npos) return {};
    const bool in_root = backslash > 0 && path[backslash - 1] == L':';
    return path.substr(0, backslash + (in_root ? 1 : 0));
}

std::wstring_view name_without_extension(std::wstring_view path) {
    path.remove_prefix(path.rfind(L'\\') + 1);
    return path.substr(0, path.rfind(L'.'));
}

}  // namespace

ApplicationInfo application_info() {
    const VersionResource version;
    const auto& fixed = version.at<VS_FIXEDFILEINFO>(L"\\");
    const std::wstring path = own_module_path();
    ApplicationInfo info;
    info.title = product_name(version);
    info.major = static_cast<std::int16_t>(HIWORD(fixed.dwProductVersionMS));
    info.minor = static_cast<std::int16_t>(LOWORD(fixed.dwProductVersionMS));
    info.revision = static_cast<std::int16_t>(HIWORD(fixed.dwProductVersionLS));
    info.folder = folder_of(path);
    info.file_name = name_without_extension(path);
    return info;
}

}  // namespace kovrel
