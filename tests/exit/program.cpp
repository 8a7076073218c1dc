// A host that ends while one of its modules still holds objects:
//   exit_program kovrel.dll (exit | return)
// The module is loaded with the program, before the library.
#include <kovrel.h>
#include <string_view>

#include "tests/exit/early_host.h"
#include "tests/support/library_module.h"

using kovrel::test::create_from;

int wmain(int count, wchar_t** arguments) {
    if (count != 3) return 2;
    CoInitialize(nullptr);
    HMODULE const library = LoadLibraryW(arguments[1]);
    if (library == nullptr) return 3;
    {
        const auto dates = create_from(library, __uuidof(Kovrel::clsFFechas));
        const auto literals = create_from(library, __uuidof(Kovrel::clsCSQL));
        const auto general = create_from(library, __uuidof(Kovrel::clsFGen));
        if (!dates || !literals || !general) return 4;
        keep_to_the_end(dates.get(), literals.get(), general.get());
    }
    if (std::wstring_view(arguments[2]) == L"exit") ExitProcess(0);
    return 0;
}
