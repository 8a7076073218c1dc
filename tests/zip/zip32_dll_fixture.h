// zip32.dll loaded and called through its three entry points, with records as callers fill them.
#pragma once

#include <windows.h>

#include <array>
#include <cstring>
#include <gmock/gmock.h>

#include "services/text_encoding.h"
#include "tests/zip/made_archive.h"
#include "tests/zip/plain_reader.h"
#include "tests/zip/test_folder.h"
#include "zip32.h"

namespace kovrel::zip {

using test::PlainEntry;
using test::TestFolder;

inline std::string ansi(const std::string& text) {
    return to_ansi(from_utf8(text));
}

inline std::vector<std::string> printed;
inline std::vector<std::string> served;
inline int service_answer = 0;

inline int __stdcall print(char* text, unsigned long length) {
    EXPECT_EQ(text[4096], '\0');
    EXPECT_EQ(std::strlen(text), length);
    printed.emplace_back(text);
    return 0;
}

inline int __stdcall password(char*, int, const char*, const char*) {
    ADD_FAILURE() << "no password is ever asked for";
    return 0;
}

inline int __stdcall comment(char*) {
    ADD_FAILURE() << "no comment is ever asked for";
    return 0;
}

inline int __stdcall service(const char* name, unsigned long size) {
    served.push_back(std::string(name) + " " + std::to_string(size));
    return service_answer;
}

class Zip32Dll : public testing::Test {
 protected:
    void SetUp() override {
        printed.clear();
        served.clear();
        service_answer = 0;
        module = LoadLibraryW(ZIP32_DLL_PATH);
        ASSERT_NE(module, nullptr);
        init = find<decltype(&ZpInit)>("ZpInit");
        set_options = find<decltype(&ZpSetOptions)>("ZpSetOptions");
        archive = find<decltype(&ZpArchive)>("ZpArchive");
        options.no_folder_entries = options.verbose = options.quiet = options.junk_folders = 1;
        options.date = "";
    }

    void TearDown() override { FreeLibrary(module); }

    template <typename Function>
    Function find(const char* name) {
        const FARPROC address = GetProcAddress(module, name);
        EXPECT_NE(address, nullptr) << name;
        return reinterpret_cast<Function>(reinterpret_cast<void*>(address));
    }

    // Callers hand over a record of 100 pointers, filled from the front.
    int pack(const std::vector<std::string>& names) {
        std::array<const char*, 100> record{};
        std::vector<std::string> texts;
        texts.reserve(names.size());
        for (const std::string& name : names) {
            texts.push_back(ansi(name));
        }
        for (std::size_t i = 0; i < texts.size(); ++i) {
            record[i] = texts[i].c_str();
        }
        const ZpCallbacks callbacks{print, password, comment, service};
        EXPECT_EQ(init(&callbacks), 1);
        EXPECT_EQ(set_options(&options), 1);
        return archive(static_cast<int>(names.size()), ansi(folder / "á.zip").c_str(),
                       record.data());
    }

    std::vector<std::string> names() {
        std::vector<std::string> result;
        for (const PlainEntry& entry : test::read_plain(folder.read("á.zip"))) {
            EXPECT_TRUE(entry.readable);
            result.push_back(entry.name);
        }
        return result;
    }

    std::vector<std::string> contents() {
        std::vector<std::string> result;
        for (const PlainEntry& entry : test::read_plain(folder.read("á.zip"))) {
            result.push_back(entry.name + "=" + entry.data);
        }
        return result;
    }

    TestFolder folder;
    HMODULE module = nullptr;
    decltype(&ZpInit) init = nullptr;
    decltype(&ZpSetOptions) set_options = nullptr;
    decltype(&ZpArchive) archive = nullptr;
    ZpOptions options{};
};

}  // namespace kovrel::zip
