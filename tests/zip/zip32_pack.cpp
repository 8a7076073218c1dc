// zip32.dll as a command, called with the records as a host fills them:
//   zip32_pack [-0 ... -9] ARCHIVE FILE...
// The exit status is what the DLL answers.
#include <windows.h>

#include <cstdio>
#include <vector>

#include "zip32/zip32.h"

namespace {

int __stdcall print(char* text, unsigned long /*length*/) {
    std::fputs(text, stderr);
    return 0;
}

template <typename Function>
Function find(HMODULE module, const char* name) {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

}  // namespace

int main(int count, char** values) {
    ZpOptions options{};
    options.no_folder_entries = options.verbose = options.quiet = options.junk_folders = 1;
    options.date = "";
    int first = 1;
    if (count > 1 && values[1][0] == '-') {
        options.level = static_cast<std::uint8_t>(values[1][1]);
        first = 2;
    }
    const HMODULE module = LoadLibraryW(ZIP32_DLL_PATH);
    if (module == nullptr || count <= first) {
        std::fputs("usage: zip32_pack [-0..-9] ARCHIVE FILE..., beside zip32.dll's own build\n",
                   stderr);
        return 1;
    }
    const ZpCallbacks callbacks{print, nullptr, nullptr, nullptr};
    find<decltype(&ZpInit)>(module, "ZpInit")(&callbacks);
    find<decltype(&ZpSetOptions)>(module, "ZpSetOptions")(&options);
    return find<decltype(&ZpArchive)>(module, "ZpArchive")(count - first - 1, values[first],
                                                           values + first + 1);
}
