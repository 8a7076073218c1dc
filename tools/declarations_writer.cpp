// Writes what follows from the declarations: the type library, the manifest for use without
// registration, and the library's declarations in other languages.
#include <windows.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string_view>

#include "library/library.h"
#include "runtime/failure.h"
#include "services/text_encoding.h"
#include "tools/csharp_writer.h"
#include "tools/header_writer.h"
#include "tools/idl_writer.h"
#include "tools/manifest_writer.h"
#include "tools/pascal_writer.h"
#include "tools/type_library_writer.h"
#include "tools/typescript_writer.h"

namespace {

bool save(const std::filesystem::path& path, const std::string& content) {
    std::ofstream file(path, std::ios::binary);
    file.write(content.data(), static_cast<std::streamsize>(content.size()));
    file.close();
    if (!file) std::fprintf(stderr, "declarations_writer: cannot write %ls\n", path.c_str());
    return static_cast<bool>(file);
}

/// In the code page of the type library's texts, whatever this machine's is.
std::string in_western_code_page(const std::wstring& text) {
    constexpr UINT code_page = 1252;
    std::string result(text.size(), '\0');
    BOOL replaced = FALSE;
    const auto length = static_cast<int>(text.size());
    const int written = WideCharToMultiByte(code_page, WC_NO_BEST_FIT_CHARS, text.data(), length,
                                            result.data(), length, nullptr, &replaced);
    if (written != length || replaced) throw kovrel::Failure(E_NOTIMPL, L"");
    return result;
}

bool save_languages(const kovrel::LibraryInfo& library, const std::filesystem::path& folder) {
    return save(folder / "kovrel.h", kovrel::to_utf8(kovrel::header_text(library))) &&
           save(folder / "Kovrel.pas", kovrel::to_utf8(kovrel::pascal_text(library))) &&
           save(folder / "Kovrel.cs", kovrel::to_utf8(kovrel::csharp_text(library))) &&
           save(folder / "kovrel.idl", in_western_code_page(kovrel::idl_text(library))) &&
           save(folder / "kovrel.d.ts", kovrel::to_utf8(kovrel::typescript_text(library)));
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    if (count != 5) {
        std::fputs("declarations_writer TYPE_LIBRARY MANIFEST LANGUAGES_FOLDER x86_64|i686\n",
                   stderr);
        return 2;
    }
    try {
        const bool is_64_bit = std::wstring_view(arguments[4]) == L"x86_64";
        const kovrel::LibraryInfo& library = kovrel::library;
        CoInitialize(nullptr);
        kovrel::write_type_library(library, std::filesystem::absolute(arguments[1]).wstring(),
                                   is_64_bit ? SYS_WIN64 : SYS_WIN32);
        const bool saved =
            save(arguments[2], kovrel::to_utf8(kovrel::manifest_text(library, is_64_bit))) &&
            save_languages(library, arguments[3]);
        return saved ? 0 : 1;
    } catch (const kovrel::Failure& failure) {
        std::fprintf(stderr, "declarations_writer: %08lx\n",
                     static_cast<unsigned long>(failure.number()));
        return 1;
    }
}
