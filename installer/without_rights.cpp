// Runs a program as a user without administrator rights: without_rights PROGRAM [ARGUMENT...].
// Ends with the program's exit code. For Wine, where every user is an administrator and the keys of
// the machine are everybody's to write: they are closed to all but administrators first (until Wine
// ends), then the program runs with the administrators' group taken from it.
#include <windows.h>

#include <array>
#include <cstdio>
#include <sddl.h>
#include <string>

namespace {

constexpr int cannot_run = 250;

constexpr std::array machine_keys = {
    L"Software",
    L"Software\\Classes",
    L"Software\\Classes\\CLSID",
    L"Software\\Classes\\Interface",
    L"Software\\Classes\\TypeLib",
    L"Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall",
};

bool failed(const char* what) {
    std::fprintf(stderr, "without_rights: %s: error %lu\n", what, GetLastError());
    return false;
}

bool protect(const wchar_t* path, REGSAM view, PSECURITY_DESCRIPTOR rights) {
    HKEY key = nullptr;
    LSTATUS status = RegOpenKeyExW(HKEY_LOCAL_MACHINE, path, 0, WRITE_DAC | view, &key);
    if (status == ERROR_FILE_NOT_FOUND) return true;
    if (status == ERROR_SUCCESS) {
        status = RegSetKeySecurity(key, DACL_SECURITY_INFORMATION, rights);
        RegCloseKey(key);
    }
    SetLastError(static_cast<DWORD>(status));
    return status == ERROR_SUCCESS || failed("a key of the machine cannot be protected");
}

bool protect_machine_keys() {
    // Administrators and the system may do everything, everybody may read.
    PSECURITY_DESCRIPTOR rights = nullptr;
    if (ConvertStringSecurityDescriptorToSecurityDescriptorW(
            L"D:(A;;KA;;;BA)(A;;KA;;;SY)(A;;KR;;;WD)", SDDL_REVISION_1, &rights, nullptr) ==
        FALSE) {
        return failed("the rights cannot be described");
    }
    bool done = true;
    for (const wchar_t* path : machine_keys) {
        for (const REGSAM view : {KEY_WOW64_64KEY, KEY_WOW64_32KEY}) {
            done = protect(path, static_cast<REGSAM>(view), rights) && done;
        }
    }
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

/// The command line from the first argument on, quoted as it was given.
std::wstring rest_of_command_line() {
    const wchar_t* text = GetCommandLineW();
    bool quoted = false;
    for (; *text != L'\0' && (quoted || *text != L' '); ++text) quoted = quoted != (*text == L'"');
    while (*text == L' ') ++text;
    return text;
}

}  // namespace

int main() {
    std::wstring command = rest_of_command_line();
    if (command.empty() || !protect_machine_keys()) return cannot_run;
    HANDLE token = token_without_administrators();
    if (token == nullptr) return cannot_run;
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    const BOOL started = CreateProcessAsUserW(token, nullptr, command.data(), nullptr, nullptr,
                                              TRUE, 0, nullptr, nullptr, &startup, &process);
    CloseHandle(token);
    if (started == FALSE) {
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
