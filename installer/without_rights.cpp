// Makes Wine treat a user as one without administrator rights.
//   without_rights LIBRARY.tlb                        closes the machine's keys of its classes
//   without_rights LIBRARY.tlb PROGRAM [ARGUMENT...]  then runs a program as such a user
// Ends with the program's exit code. In Wine every user is an administrator, and the right to make
// a key is not looked at, only the rights to one that is there. So the keys of the library's
// classes are made beforehand, open to administrators only; they last until Wine ends.
#include <windows.h>
#include <oleauto.h>

#include <array>
#include <cstdio>
#include <sddl.h>
#include <string>

namespace {

constexpr int cannot_run = 250;

bool failed(const char* what, LONG error) {
    std::fprintf(stderr, "without_rights: %s: error 0x%lX\n", what,
                 static_cast<unsigned long>(error));
    return false;
}

bool failed(const char* what) {
    return failed(what, static_cast<LONG>(GetLastError()));
}

bool close_class_key(const GUID& id, PSECURITY_DESCRIPTOR rights) {
    std::array<wchar_t, 39> text{};
    StringFromGUID2(id, text.data(), static_cast<int>(text.size()));
    const std::wstring path = std::wstring(L"Software\\Classes\\CLSID\\") + text.data();
    for (const REGSAM view : {REGSAM{KEY_WOW64_64KEY}, REGSAM{KEY_WOW64_32KEY}}) {
        HKEY key = nullptr;
        LSTATUS status =
            RegCreateKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, nullptr, REG_OPTION_VOLATILE,
                            WRITE_DAC | view, nullptr, &key, nullptr);
        if (status == ERROR_SUCCESS) {
            status = RegSetKeySecurity(key, DACL_SECURITY_INFORMATION, rights);
            RegCloseKey(key);
        }
        if (status != ERROR_SUCCESS) return failed("a class's key cannot be closed", status);
    }
    return true;
}

bool close_class_keys(ITypeLib& library, PSECURITY_DESCRIPTOR rights) {
    for (UINT index = 0; index < library.GetTypeInfoCount(); ++index) {
        TYPEKIND kind{};
        ITypeInfo* info = nullptr;
        TYPEATTR* attributes = nullptr;
        if (FAILED(library.GetTypeInfoType(index, &kind)) || kind != TKIND_COCLASS) continue;
        if (FAILED(library.GetTypeInfo(index, &info))) return failed("a class is missing", 0);
        bool done = SUCCEEDED(info->GetTypeAttr(&attributes));
        if (done) {
            done = close_class_key(attributes->guid, rights);
            info->ReleaseTypeAttr(attributes);
        }
        info->Release();
        if (!done) return false;
    }
    return true;
}

bool close_class_keys(const wchar_t* type_library) {
    PSECURITY_DESCRIPTOR rights = nullptr;
    // Not even to be read by others: Wine lets whoever may read a key delete it.
    if (ConvertStringSecurityDescriptorToSecurityDescriptorW(
            L"D:(A;;KA;;;BA)(A;;KA;;;SY)", SDDL_REVISION_1, &rights, nullptr) == FALSE) {
        return failed("the rights cannot be described");
    }
    ITypeLib* library = nullptr;
    const HRESULT loaded = LoadTypeLibEx(type_library, REGKIND_NONE, &library);
    if (FAILED(loaded)) return failed("the type library cannot be read", loaded);
    const bool done = close_class_keys(*library, rights);
    library->Release();
    LocalFree(rights);
    return done;
}

HANDLE token_without_administrators() {
    HANDLE own = nullptr;
    HANDLE token = nullptr;
    std::array<BYTE, SECURITY_MAX_SID_SIZE> administrators{};
    DWORD size = SECURITY_MAX_SID_SIZE;
    SID_AND_ATTRIBUTES without{administrators.data(), 0};
    if (OpenProcessToken(GetCurrentProcess(), TOKEN_ASSIGN_PRIMARY | TOKEN_DUPLICATE | TOKEN_QUERY,
                         &own) == FALSE ||
        CreateWellKnownSid(WinBuiltinAdministratorsSid, nullptr, administrators.data(), &size) ==
            FALSE ||
        CreateRestrictedToken(own, 0, 1, &without, 0, nullptr, 0, nullptr, &token) == FALSE) {
        failed("no token without rights");
    }
    if (own != nullptr) CloseHandle(own);
    return token;
}

/// A command line after its first word, quoted as it was given.
const wchar_t* after_first_word(const wchar_t* text) {
    bool quoted = false;
    for (; *text != L'\0' && (quoted || *text != L' '); ++text) quoted = quoted != (*text == L'"');
    while (*text == L' ') ++text;
    return text;
}

int run(HANDLE token, std::wstring command) {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (CreateProcessAsUserW(token, nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr,
                             nullptr, &startup, &process) == FALSE) {
        failed("the program cannot be started");
        return cannot_run;
    }
    WaitForSingleObject(process.hProcess, INFINITE);
    DWORD code = cannot_run;
    GetExitCodeProcess(process.hProcess, &code);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return static_cast<int>(code);
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    if (count < 2 || !close_class_keys(arguments[1])) return cannot_run;
    if (count == 2) return 0;
    HANDLE token = token_without_administrators();
    if (token == nullptr) return cannot_run;
    const int code = run(token, after_first_word(after_first_word(GetCommandLineW())));
    CloseHandle(token);
    return code;
}
