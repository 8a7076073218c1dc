// The fixture of the tests of clsProfile.
#pragma once

#include <gtest/gtest.h>
#include <string>

#include "tests/support/box_lines.h"
#include "tests/support/every_way.h"
#include "tests/support/test_folder.h"

namespace kovrel::test {

class Profile : public testing::Test {
 protected:
    Profile() { put(profile_.get(), L"AppOrigen", Variant(L"Gestión")); }

    bool exists(const std::wstring& path) {
        return flag(call(profile_.get(), L"ExisteCarpeta", {path}));
    }
    bool exists(const std::wstring& path, bool create, bool tell) {
        return flag(call(profile_.get(), L"ExisteCarpeta", {path, create, tell}));
    }
    static bool flag(const Outcome& outcome) {
        EXPECT_EQ(outcome.result, S_OK);
        EXPECT_EQ(outcome.value.vt, VT_BOOL);
        return outcome.value.boolVal != VARIANT_FALSE;
    }
    std::wstring folder_of(const std::wstring& path) {
        return text_of_result(call(profile_.get(), L"RutadeArchivo", {path}));
    }
    static std::string question(const std::wstring& path, int pressed) {
        return narrow(L"33|Gestión|" +
                      escaped(L"La carpeta \"" + path + L"\" no existe.\r\r¿Desea crearla?") +
                      L"|" + std::to_wstring(pressed));
    }
    static std::wstring escaped(const std::wstring& text) {
        SeenBox box;
        box.text = text;
        const std::wstring line = as_line(box);
        return line.substr(3, line.rfind(L'|') - 3);
    }

    TestFolder folder_;
    ComPtr<IDispatch> profile_ = create(L"Kovrel.clsProfile");
};

/// Members whose result does not depend on the user's settings.
class ProfileAnySettings : public Profile {};

}  // namespace kovrel::test
