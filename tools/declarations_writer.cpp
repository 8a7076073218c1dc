// Writes what follows from the declarations: the type library, the header for C++ and the manifest
// for use without registration.
#include <windows.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string_view>

#include "library/library.h"
#include "runtime/failure.h"
#include "services/text_encoding.h"
#include "tools/header_writer.h"
#include "tools/manifest_writer.h"
#include "tools/type_library_writer.h"

namespace {

bool save(const wchar_t* path, std::wstring_view text) {
    const std::string content = kovrel::to_utf8(text);
    std::ofstream file(std::filesystem::path(path), std::ios::binary);
    file.write(content.data(), static_cast<std::streamsize>(content.size()));
    file.close();
    if (!file) std::fprintf(stderr, "declarations_writer: cannot write %ls\n", path);
    return static_cast<bool>(file);
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    if (count != 5) {
        std::fputs("declarations_writer TYPE_LIBRARY HEADER MANIFEST x86_64|i686\n", stderr);
        return 2;
    }
    try {
        const bool is_64_bit = std::wstring_view(arguments[4]) == L"x86_64";
        const kovrel::LibraryInfo& library = kovrel::library;
        CoInitialize(nullptr);
        kovrel::write_type_library(library, std::filesystem::absolute(arguments[1]).wstring(),
                                   is_64_bit ? SYS_WIN64 : SYS_WIN32);
        const bool saved = save(arguments[2], kovrel::header_text(library)) &&
                           save(arguments[3], kovrel::manifest_text(library, is_64_bit));
        return saved ? 0 : 1;
    } catch (const kovrel::Failure& failure) {
        std::fprintf(stderr, "declarations_writer: %08lx\n",
                     static_cast<unsigned long>(failure.number()));
        return 1;
    }
}
