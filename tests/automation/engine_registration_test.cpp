// Registration: the keys written, per user or per machine, and their removal. Uses a library of the
// tests' own, so that the real one stays registered.
#include <gtest/gtest.h>
#include <map>

#include "automation/registration.h"
#include "runtime/failure.h"
#include "tests/automation/sample.h"
#include "tests/support/import_patch.h"
#include "tests/support/late.h"

namespace kovrel::test {
namespace {

const ClassInfo* const sample_classes[]{&Sample::class_info};

const LibraryInfo& sample_library() {
    static const LibraryInfo info{
        .name = L"Prueba",
        .help = L"Biblioteca de prueba",
        .id = {0x7c1d6c52, 0x4d2f, 0x4a1c, {0x9f, 0x60, 0x1b, 0x0d, 0x3e, 0x55, 0x10, 0x04}},
        .major = 3,
        .minor = 2,
        .classes = sample_classes,
        .enumerations = {},
        .records = {}};
    return info;
}

constexpr const wchar_t* class_key = L"CLSID\\{7C1D6C52-4D2F-4A1C-9F60-1B0D3E551001}";
constexpr const wchar_t* interface_key = L"Interface\\{7C1D6C52-4D2F-4A1C-9F60-1B0D3E551002}";
constexpr const wchar_t* library_key = L"TypeLib\\{7C1D6C52-4D2F-4A1C-9F60-1B0D3E551004}";
constexpr const wchar_t* module_path = L"C:\\Archivos Ñ\\prueba.dll";
constexpr bool is_64_bit = sizeof(void*) == 8;

using Snapshot = std::map<std::wstring, std::wstring>;

void read_tree(HKEY key, const std::wstring& path, Snapshot& snapshot) {
    for (DWORD index = 0;; ++index) {
        wchar_t name[512] = {};
        DWORD name_size = 512;
        BYTE data[2048] = {};
        DWORD data_size = sizeof data - sizeof(wchar_t);
        const LSTATUS status =
            RegEnumValueW(key, index, name, &name_size, nullptr, nullptr, data, &data_size);
        if (status != ERROR_SUCCESS && status != ERROR_MORE_DATA) break;
        snapshot[path + L"|" + name] = reinterpret_cast<const wchar_t*>(data);
    }
    for (DWORD index = 0;; ++index) {
        wchar_t name[512] = {};
        DWORD size = 512;
        if (RegEnumKeyExW(key, index, name, &size, nullptr, nullptr, nullptr, nullptr) !=
            ERROR_SUCCESS) {
            break;
        }
        HKEY child = nullptr;
        if (RegOpenKeyExW(key, name, 0, KEY_READ, &child) != ERROR_SUCCESS) continue;
        snapshot[path + L"\\" + name] = L"";
        read_tree(child, path + L"\\" + name, snapshot);
        RegCloseKey(child);
    }
}

Snapshot snapshot_of(HKEY root) {
    Snapshot snapshot;
    HKEY classes = nullptr;
    if (RegOpenKeyExW(root, L"Software\\Classes", 0, KEY_READ, &classes) == ERROR_SUCCESS) {
        read_tree(classes, L"", snapshot);
        RegCloseKey(classes);
    }
    return snapshot;
}

std::wstring value(HKEY root, const std::wstring& key, const wchar_t* name = nullptr) {
    wchar_t text[512] = {};
    DWORD size = sizeof text;
    const std::wstring path = L"Software\\Classes\\" + key;
    const LSTATUS status =
        RegGetValueW(root, path.c_str(), name, RRF_RT_REG_SZ, nullptr, text, &size);
    return status == ERROR_SUCCESS ? text : L"(none)";
}

class Registration : public testing::TestWithParam<RegistrationScope> {
 protected:
    [[nodiscard]] static HKEY root() {
        return GetParam() == RegistrationScope::machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
    }
};

TEST_P(Registration, WritesEveryKeyAndLeavesNothing) {
    const Snapshot before = snapshot_of(root());
    register_library(sample_library(), module_path, GetParam());

    const std::wstring class_path = class_key;
    EXPECT_EQ(value(root(), class_path + L"\\InprocServer32"), module_path);
    EXPECT_EQ(value(root(), class_path + L"\\InprocServer32", L"ThreadingModel"), L"Apartment");
    EXPECT_EQ(value(root(), class_path + L"\\ProgID"), L"Prueba.Sample");
    EXPECT_EQ(value(root(), class_path + L"\\TypeLib"), L"{7C1D6C52-4D2F-4A1C-9F60-1B0D3E551004}");
    EXPECT_EQ(value(root(), class_path + L"\\Version"), L"3.2");
    EXPECT_EQ(value(root(), L"Prueba.Sample\\CLSID"), L"{7C1D6C52-4D2F-4A1C-9F60-1B0D3E551001}");
    EXPECT_EQ(value(root(), interface_key), L"_Sample");
    EXPECT_EQ(value(root(), std::wstring(interface_key) + L"\\ProxyStubClsid32"),
              L"{00020424-0000-0000-C000-000000000046}");
    const std::wstring version = std::wstring(library_key) + L"\\3.2";
    EXPECT_EQ(value(root(), version), L"Biblioteca de prueba");
    EXPECT_EQ(value(root(), version + (is_64_bit ? L"\\0\\win64" : L"\\0\\win32")), module_path);
    EXPECT_EQ(value(root(), version + L"\\HELPDIR"), L"C:\\Archivos Ñ");

    if (GetParam() == RegistrationScope::machine) {
        // CLSIDFromProgID finds it.
        CLSID id{};
        EXPECT_EQ(CLSIDFromProgID(L"Prueba.Sample", &id), S_OK);
        EXPECT_TRUE(IsEqualCLSID(id, Sample::class_info.class_id));
    }

    unregister_library(sample_library(), GetParam());
    EXPECT_EQ(snapshot_of(root()), before);
}

TEST_P(Registration, CanBeRepeatedAndSoCanItsRemoval) {
    const Snapshot before = snapshot_of(root());
    register_library(sample_library(), L"C:\\vieja.dll", GetParam());
    register_library(sample_library(), module_path, GetParam());
    EXPECT_EQ(value(root(), std::wstring(class_key) + L"\\InprocServer32"), module_path);
    unregister_library(sample_library(), GetParam());
    unregister_library(sample_library(), GetParam());
    EXPECT_EQ(snapshot_of(root()), before);
}

TEST_P(Registration, TheOtherBitnessKeepsWhatBothShare) {
    const Snapshot before = snapshot_of(root());
    constexpr REGSAM other_view = is_64_bit ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;
    const std::wstring other = L"Software\\Classes\\" + std::wstring(class_key);
    register_library(sample_library(), module_path, GetParam());
    HKEY key = nullptr;
    ASSERT_EQ(RegCreateKeyExW(root(), (other + L"\\InprocServer32").c_str(), 0, nullptr, 0,
                              KEY_WRITE | other_view, nullptr, &key, nullptr),
              ERROR_SUCCESS);
    RegSetValueExW(key, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(L"other"), 12);
    RegCloseKey(key);
    if (value(root(), std::wstring(class_key) + L"\\InprocServer32") == L"other") {
        unregister_library(sample_library(), GetParam());
        GTEST_SKIP() << "this platform has one view of these keys for both";
    }

    unregister_library(sample_library(), GetParam());
    EXPECT_EQ(value(root(), L"Prueba.Sample\\CLSID"), L"{7C1D6C52-4D2F-4A1C-9F60-1B0D3E551001}");
    EXPECT_EQ(value(root(), std::wstring(library_key) + L"\\3.2"), L"Biblioteca de prueba");

    RegDeleteKeyExW(root(), (other + L"\\InprocServer32").c_str(), other_view, 0);
    RegDeleteKeyExW(root(), other.c_str(), other_view, 0);
    unregister_library(sample_library(), GetParam());
    EXPECT_EQ(snapshot_of(root()), before);
}

TEST_P(Registration, ReplacesOlderMinorVersions) {
    const Snapshot before = snapshot_of(root());
    const std::wstring own = is_64_bit ? L"\\0\\win64" : L"\\0\\win32";
    const std::wstring other = is_64_bit ? L"\\0\\win32" : L"\\0\\win64";
    const std::wstring older_key = std::wstring(library_key) + L"\\3.1";
    LibraryInfo older = sample_library();
    older.minor = 1;
    register_library(older, L"C:\\antes.dll", GetParam());
    EXPECT_EQ(value(root(), older_key + own), L"C:\\antes.dll");
    register_library(sample_library(), module_path, GetParam());
    EXPECT_EQ(value(root(), older_key), L"(none)");
    EXPECT_EQ(value(root(), std::wstring(library_key) + L"\\3.2" + own), module_path);
    // The other bitness's stays, with what belongs to both.
    register_library(older, L"C:\\antes.dll", GetParam());
    const std::wstring path = L"Software\\Classes\\" + older_key + other;
    HKEY key = nullptr;
    ASSERT_EQ(
        RegCreateKeyExW(root(), path.c_str(), 0, nullptr, 0, KEY_SET_VALUE, nullptr, &key, nullptr),
        ERROR_SUCCESS);
    RegCloseKey(key);
    register_library(sample_library(), module_path, GetParam());
    EXPECT_EQ(value(root(), older_key + own), L"(none)");
    EXPECT_EQ(value(root(), older_key), L"Biblioteca de prueba");
    unregister_library(sample_library(), GetParam());
    EXPECT_EQ(snapshot_of(root()), before);
}

INSTANTIATE_TEST_SUITE_P(Scopes, Registration,
                         testing::Values(RegistrationScope::machine, RegistrationScope::user),
                         [](const auto& scope) {
                             return scope.param == RegistrationScope::machine ? "machine" : "user";
                         });

TEST(RegistrationForTheMachine, RemovesTheUsersRegistration) {
    register_library(sample_library(), L"C:\\vieja.dll", RegistrationScope::user);
    register_library(sample_library(), module_path);
    EXPECT_EQ(value(HKEY_LOCAL_MACHINE, L"Prueba.Sample\\CLSID"),
              L"{7C1D6C52-4D2F-4A1C-9F60-1B0D3E551001}");
    EXPECT_EQ(value(HKEY_CURRENT_USER, L"Prueba.Sample\\CLSID"), L"(none)");
    unregister_library(sample_library(), RegistrationScope::machine);
}

/// A machine whose registry answers every write with an error.
class RefusingMachine {
 public:
    explicit RefusingMachine(LSTATUS error) { its_error = error; }
    [[nodiscard]] bool in_place() const { return patch_.in_place(); }

 private:
    using Create = LSTATUS(WINAPI*)(HKEY, const wchar_t*, DWORD, wchar_t*, DWORD, REGSAM,
                                    const SECURITY_ATTRIBUTES*, HKEY*, DWORD*);

    static inline LSTATUS its_error = ERROR_SUCCESS;
    static LSTATUS WINAPI create(HKEY root, const wchar_t* path, DWORD reserved, wchar_t* type,
                                 DWORD options, REGSAM access, const SECURITY_ATTRIBUTES* security,
                                 HKEY* key, DWORD* made) {
        if (root == HKEY_LOCAL_MACHINE) return its_error;
        const auto create_key = reinterpret_cast<Create>(reinterpret_cast<void*>(
            GetProcAddress(GetModuleHandleW(L"advapi32.dll"), "RegCreateKeyExW")));
        return create_key(root, path, reserved, type, options, access, security, key, made);
    }

    // The registration code is linked into this program, so its imports are patched here.
    const ImportPatch patch_{nullptr, "RegCreateKeyExW", reinterpret_cast<void*>(&create)};
};

TEST(RegistrationWithoutRights, IsForTheUserAlone) {
    const Snapshot before = snapshot_of(HKEY_CURRENT_USER);
    const RefusingMachine refusing(ERROR_ACCESS_DENIED);
    ASSERT_TRUE(refusing.in_place());
    register_library(sample_library(), module_path);
    EXPECT_EQ(value(HKEY_CURRENT_USER, L"Prueba.Sample\\CLSID"),
              L"{7C1D6C52-4D2F-4A1C-9F60-1B0D3E551001}");
    EXPECT_EQ(value(HKEY_LOCAL_MACHINE, L"Prueba.Sample\\CLSID"), L"(none)");
    unregister_library(sample_library(), RegistrationScope::user);
    EXPECT_EQ(snapshot_of(HKEY_CURRENT_USER), before);
}

TEST(RegistrationWithoutRights, AnyOtherRefusalIsAFailure) {
    const Snapshot before = snapshot_of(HKEY_CURRENT_USER);
    const RefusingMachine refusing(ERROR_REGISTRY_IO_FAILED);
    ASSERT_TRUE(refusing.in_place());
    try {
        register_library(sample_library(), module_path);
        ADD_FAILURE() << "registered";
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.number(), HRESULT_FROM_WIN32(ERROR_REGISTRY_IO_FAILED));
        EXPECT_EQ(failure.description(), L"No se pudo escribir en el Registro");
    }
    EXPECT_EQ(snapshot_of(HKEY_CURRENT_USER), before);
}

}  // namespace
}  // namespace kovrel::test
