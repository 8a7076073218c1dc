// The fixture of the tests that make archives with clsFZip.
#pragma once

#include <array>
#include <gmock/gmock.h>

#include "tests/support/box_watcher.h"
#include "tests/support/early.h"
#include "tests/support/own_drive.h"
#include "tests/zip/plain_reader.h"
#include "tests/zip/test_folder.h"

namespace kovrel::test {

inline std::wstring wide(const std::string& utf8) {
    return zip::test::from_utf8(utf8).wstring();
}

/// The record of names and the member that takes it, as compiled hosts declare them.
using NamesRecord = std::array<BSTR, 100>;
using GenerateEarly = HRESULT(STDMETHODCALLTYPE*)(IDispatch*, BSTR*, BSTR*, NamesRecord*, BSTR*);

/// An array of variants or texts, as hosts without the record pass the names.
Variant list_of(const std::vector<std::wstring>& names, VARTYPE element = VT_VARIANT,
                LONG first = 0);

class Archives : public testing::Test {
 protected:
    /// Makes a file of the test's folder and gives its path.
    std::wstring file(const std::string& name, const std::string& data) {
        return wide(folder_.write(name, data));
    }
    /// The path of a name in the test's folder.
    std::wstring path(const std::string& name) { return wide(folder_ / name); }
    std::wstring folder() { return folder_.path().wstring(); }

    /// Calls with a list in the test's folder; the result.
    std::wstring generate(const std::wstring& name, const std::vector<std::wstring>& names) {
        return generate(name, folder(), names);
    }
    std::wstring generate(const std::wstring& name, const std::wstring& folder,
                          const std::vector<std::wstring>& names) {
        if (with_record_) return generate_early(name, folder, names);
        return text_of_result(call(zip_.get(), L"GenerarZip", {name, folder, list_of(names)}));
    }
    /// Through the vtable, with the record, as compiled hosts do.
    std::wstring generate_early(const std::wstring& name, const std::wstring& folder,
                                const std::vector<std::wstring>& names);

    /// The same, expecting just one box, of an exclamation mark and an OK button, and no archive.
    void expect_refusal(const std::wstring& name, const std::wstring& folder,
                        const std::vector<std::wstring>& names, const wchar_t* text,
                        const wchar_t* title);

    /// The names of an archive's entries, all of which can be unpacked.
    std::vector<std::string> entries(const std::string& archive);
    std::string content(const std::string& archive, const std::string& entry);

    bool with_record_ = false;  // whether lists go as records, not as arrays
    zip::test::TestFolder folder_;
    ComPtr<IDispatch> zip_ = create(L"Kovrel.clsFZip");
};

inline constexpr const wchar_t* nothing_to_pack = L"No hay fichero para comprimir.";

inline constexpr const wchar_t* replaced_text =
    L"Ya existe un fichero con el mismo nombre en la misma carpeta. Si continúa el fichero será "
    L"reemplazado.\rSi desea conservar el fichero antiguo cámbielo de nombre o de ubilicación "
    L"antes de continuar...\r\r       Pulse \"Aceptar\" para continuar...";

}  // namespace kovrel::test
