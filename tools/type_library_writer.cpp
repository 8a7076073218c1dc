// Writes the type library from the declarations: type_library_writer FILE x86_64|i686
#include "automation/type_library_writer.h"

#include <windows.h>

#include <cstdio>
#include <filesystem>
#include <string_view>

#include "frame/library.h"
#include "runtime/failure.h"

int wmain(int count, wchar_t** arguments) {
    if (count != 3) {
        std::fputs("type_library_writer FILE x86_64|i686\n", stderr);
        return 2;
    }
    try {
        const bool is_64_bit = std::wstring_view(arguments[2]) == L"x86_64";
        CoInitialize(nullptr);
        kovrel::write_type_library(kovrel::library(),
                                   std::filesystem::absolute(arguments[1]).wstring(),
                                   is_64_bit ? SYS_WIN64 : SYS_WIN32);
        return 0;
    } catch (const kovrel::Failure& failure) {
        std::fprintf(stderr, "type_library_writer: %08lx\n",
                     static_cast<unsigned long>(failure.number()));
        return 1;
    }
}
