// A current folder with a few files.
#pragma once

#include "tests/robustness/own_library.h"
#include "tests/support/test_folder.h"

namespace kovrel::test {

class Workplace {
 public:
    Workplace() {
        GetCurrentDirectoryW(MAX_PATH, before_);
        SetCurrentDirectoryW(folder_.path().c_str());
        folder_.write(L"uno.txt", "Uno");
        folder_.write(L"dos.txt", std::string(40'000, '2'));
        folder_.write(L"imagen.bmp", "BM");
        folder_.write(L"entradas.zip", "PK\5\6" + std::string(18, '\0'));
        CreateDirectoryW((folder_ / L"carpeta").c_str(), nullptr);
    }
    Workplace(const Workplace&) = delete;
    Workplace& operator=(const Workplace&) = delete;
    ~Workplace() { SetCurrentDirectoryW(before_); }

    /// Removes the temporary files of pictures from the library's folder.
    static void remove_pictures() {
        std::error_code ignored;
        for (const auto& entry :
             std::filesystem::directory_iterator(OwnLibrary::get().folder(), ignored)) {
            if (entry.path().extension() != L".dll") std::filesystem::remove(entry.path(), ignored);
        }
    }

 private:
    TestFolder folder_;
    wchar_t before_[MAX_PATH] = {};
};

}  // namespace kovrel::test
