#include "automation/registration.h"

#include <array>
#include <vector>

#include "runtime/failure.h"
#include "runtime/owned.h"
#include "runtime/text.h"

namespace kovrel {
namespace {

constexpr std::wstring_view classes_root = L"Software\\Classes\\";

constexpr bool is_64_bit = sizeof(void*) == 8;
/// Below a version of a type library: the file for each bitness.
constexpr const wchar_t* own_system = is_64_bit ? L"\\0\\win64" : L"\\0\\win32";
constexpr const wchar_t* other_system = is_64_bit ? L"\\0\\win32" : L"\\0\\win64";
constexpr REGSAM other_view = is_64_bit ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;

struct Value {
    std::wstring key;
    const wchar_t* name;  // null: the key's default value
    std::wstring data;
};

/// The keys of one module: its own in this bitness's view, and those that both bitnesses share.
struct Keys {
    std::vector<Value> values;
    std::vector<std::wstring> own_trees;
    std::vector<std::wstring> shared_trees;
};

std::wstring key_of_class(const ClassInfo& info) {
    return L"CLSID\\" + text_of_guid(info.class_id);
}

std::wstring key_of_library(const LibraryInfo& library) {
    return L"TypeLib\\" + text_of_guid(library.id);
}

Keys keys_of(const LibraryInfo& library, const std::wstring& module_path) {
    const std::wstring library_id = text_of_guid(library.id);
    const std::wstring version = version_of(library);
    Keys keys;
    const auto add = [&keys](std::wstring key, const wchar_t* name, std::wstring_view data) {
        keys.values.push_back({std::move(key), name, std::wstring(data)});
    };
    const auto add_interface = [&](const GUID& id, const wchar_t* name,
                                   std::wstring_view marshaler) {
        const std::wstring key = L"Interface\\" + text_of_guid(id);
        add(key, nullptr, name);
        add(key + L"\\ProxyStubClsid32", nullptr, marshaler);
        add(key + L"\\TypeLib", nullptr, library_id);
        add(key + L"\\TypeLib", L"Version", version);
        keys.own_trees.push_back(key);
    };
    for (const ClassInfo* info : library.classes) {
        if (info->instancing == Instancing::given) continue;
        const std::wstring class_key = key_of_class(*info);
        add(class_key, nullptr, info->help);
        add(class_key + L"\\InprocServer32", nullptr, module_path);
        add(class_key + L"\\InprocServer32", L"ThreadingModel", L"Apartment");
        add(class_key + L"\\ProgID", nullptr, info->prog_id);
        add(class_key + L"\\Programmable", nullptr, L"");
        add(class_key + L"\\TypeLib", nullptr, library_id);
        add(class_key + L"\\Version", nullptr, version);
        keys.own_trees.push_back(class_key);

        add(info->prog_id, nullptr, info->help);
        add(std::wstring(info->prog_id) + L"\\CLSID", nullptr, text_of_guid(info->class_id));
        keys.shared_trees.emplace_back(info->prog_id);
    }
    for (const ClassInfo* info : library.classes) {
        add_interface(info->interface_id, info->interface_name, type_library_marshaler);
        if (info->events != nullptr) {
            add_interface(info->events->id, info->events->name, dispatch_marshaler);
        }
    }
    const std::wstring library_key = key_of_library(library);
    const std::wstring version_key = library_key + L"\\" + version;
    const std::wstring system_key = version_key + own_system;
    add(version_key, nullptr, library.help);
    add(version_key + L"\\FLAGS", nullptr, L"0");
    add(version_key + L"\\HELPDIR", nullptr, module_path.substr(0, module_path.rfind(L'\\')));
    add(system_key, nullptr, module_path);
    keys.own_trees.push_back(system_key);
    keys.shared_trees.push_back(library_key);
    return keys;
}

HKEY root_of(RegistrationScope scope) noexcept {
    return scope == RegistrationScope::machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
}

void check(LSTATUS status) {
    if (status == ERROR_ACCESS_DENIED) throw Failure(FailureNumber::permission_denied);
    if (status != ERROR_SUCCESS) {
        throw Failure(HRESULT_FROM_WIN32(static_cast<unsigned long>(status)),
                      L"No se pudo escribir en el Registro");
    }
}

void write(RegistrationScope scope, const Value& value) {
    HKEY key = nullptr;
    const std::wstring path = std::wstring(classes_root) + value.key;
    check(RegCreateKeyExW(root_of(scope), path.c_str(), 0, nullptr, 0, KEY_SET_VALUE, nullptr, &key,
                          nullptr));
    const auto bytes = static_cast<DWORD>((value.data.size() + 1) * sizeof(wchar_t));
    const Owned<HKEY, &RegCloseKey> owner(key);
    check(RegSetValueExW(key, value.name, 0, REG_SZ,
                         reinterpret_cast<const BYTE*>(value.data.c_str()), bytes));
}

void remove_tree(RegistrationScope scope, const std::wstring& tree) {
    const std::wstring path = std::wstring(classes_root) + tree;
    const LSTATUS status = RegDeleteTreeW(root_of(scope), path.c_str());
    if (status != ERROR_FILE_NOT_FOUND && status != ERROR_PATH_NOT_FOUND) check(status);
}

bool exists(RegistrationScope scope, const std::wstring& key, REGSAM view = 0) {
    const std::wstring path = std::wstring(classes_root) + key;
    HKEY found = nullptr;
    if (RegOpenKeyExW(root_of(scope), path.c_str(), 0, KEY_QUERY_VALUE | view, &found) !=
        ERROR_SUCCESS) {
        return false;
    }
    RegCloseKey(found);
    return true;
}

bool other_bitness_registered(const LibraryInfo& library, RegistrationScope scope) {
    return exists(scope, key_of_class(*library.classes.front()) + L"\\InprocServer32", other_view);
}

/// A host that wants an older minor version is given this one, as long as no older one is there.
void remove_older_versions(const LibraryInfo& library, RegistrationScope scope) {
    for (WORD minor = 0; minor < library.minor; ++minor) {
        const std::wstring version = key_of_library(library) + L"\\" + decimal_text(library.major) +
                                     L"." + decimal_text(minor);
        remove_tree(scope, version + own_system);
        if (!exists(scope, version + other_system)) remove_tree(scope, version);
    }
}

}  // namespace

std::wstring text_of_guid(const GUID& id) {
    std::array<wchar_t, 39> text{};
    StringFromGUID2(id, text.data(), static_cast<int>(text.size()));
    return text.data();
}

std::wstring version_of(const LibraryInfo& library) {
    return decimal_text(library.major) + L"." + decimal_text(library.minor);
}

void register_library(const LibraryInfo& library, const std::wstring& module_path,
                      RegistrationScope scope) {
    for (const Value& value : keys_of(library, module_path).values) write(scope, value);
    remove_older_versions(library, scope);
}

void unregister_library(const LibraryInfo& library, RegistrationScope scope) {
    const Keys keys = keys_of(library, L"");
    for (const std::wstring& tree : keys.own_trees) remove_tree(scope, tree);
    if (other_bitness_registered(library, scope)) return;
    for (const std::wstring& tree : keys.shared_trees) remove_tree(scope, tree);
}

void register_library(const LibraryInfo& library, const std::wstring& module_path) {
    try {
        register_library(library, module_path, RegistrationScope::machine);
    } catch (const Failure& failure) {
        if (!failure.is(FailureNumber::permission_denied)) throw;
        register_library(library, module_path, RegistrationScope::user);
        return;
    }
    // A user's older registration would hide the machine's.
    unregister_library(library, RegistrationScope::user);
}

}  // namespace kovrel
