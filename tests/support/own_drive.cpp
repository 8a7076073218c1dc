#include "tests/support/own_drive.h"

#include <windows.h>
#include <winioctl.h>

#include <cstring>
#include <filesystem>
#include <vector>

namespace kovrel::test {
namespace {

using UnixName = char*(CDECL*)(const wchar_t* path);

/// Wine's own function; null on Windows.
UnixName unix_name() {
    return reinterpret_cast<UnixName>(reinterpret_cast<void*>(
        GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "wine_get_unix_file_name")));
}

/// The request of Wine's mount manager: the drive letter and the offset of the folder's name.
struct UnixDrive {
    ULONG size;
    ULONG type;
    ULONG file_system;
    DWORD serial;
    ULONGLONG device_number;
    WCHAR letter;
    USHORT folder;
    USHORT device;
    USHORT label;
};

/// Wine takes its drives from its mount manager only. An empty folder removes the drive.
bool define_unix_drive(wchar_t letter, const std::string& folder) {
    std::vector<char> room(sizeof(UnixDrive) + folder.size() + 1);
    auto* const drive = reinterpret_cast<UnixDrive*>(room.data());
    drive->size = static_cast<ULONG>(room.size());
    drive->type = folder.empty() ? DRIVE_NO_ROOT_DIR : DRIVE_FIXED;
    drive->letter = letter;
    drive->folder = folder.empty() ? USHORT{0} : static_cast<USHORT>(sizeof(UnixDrive));
    std::memcpy(room.data() + sizeof(UnixDrive), folder.c_str(), folder.size() + 1);
    HANDLE const manager =
        CreateFileW(LR"(\\.\MountPointManager)", GENERIC_READ | GENERIC_WRITE,
                    FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr);
    DWORD returned = 0;
    const BOOL done = DeviceIoControl(
        manager, CTL_CODE('m', 32, METHOD_BUFFERED, FILE_READ_ACCESS | FILE_WRITE_ACCESS),
        room.data(), static_cast<DWORD>(room.size()), nullptr, 0, &returned, nullptr);
    CloseHandle(manager);
    return done != FALSE;
}

bool define_drive(const std::wstring& root, const std::wstring& folder) {
    const UnixName name_of = unix_name();
    if (name_of == nullptr) {
        return DefineDosDeviceW(0, root.substr(0, 2).c_str(), folder.c_str()) != FALSE;
    }
    char* const name = name_of(folder.c_str());
    const bool done = name != nullptr && define_unix_drive(root.front(), name);
    HeapFree(GetProcessHeap(), 0, name);
    return done;
}

void remove_drive(const std::wstring& root, const std::wstring& folder) {
    if (unix_name() != nullptr) {
        define_unix_drive(root.front(), {});
    } else {
        DefineDosDeviceW(DDD_REMOVE_DEFINITION | DDD_EXACT_MATCH_ON_REMOVE,
                         root.substr(0, 2).c_str(), folder.c_str());
    }
}

}  // namespace

OwnDrive::OwnDrive(const std::wstring& folder) : folder_(folder) {
    std::filesystem::create_directories(folder_);
    // Other tests need drive Q not to exist.
    for (wchar_t letter = L'G'; letter < L'Q' && root_.empty(); ++letter) {
        const std::wstring root = {letter, L':', L'\\'};
        if (GetDriveTypeW(root.c_str()) == DRIVE_NO_ROOT_DIR && define_drive(root, folder_)) {
            root_ = root;
        }
    }
}

OwnDrive::~OwnDrive() {
    if (!root_.empty()) remove_drive(root_, folder_);
}

}  // namespace kovrel::test
