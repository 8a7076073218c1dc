// Failures of the disk in the library's calls to the system.
#pragma once

#include <windows.h>

#include <filesystem>
#include <vector>

#include "tests/support/import_patch.h"

namespace kovrel::test {

using Paths = std::vector<std::filesystem::path>;

/// Fails the library's opening of files with the access given.
class RefusedOpening {
 public:
    RefusedOpening(DWORD refused, DWORD error) {
        refused_access = refused;
        its_error = error;
    }
    [[nodiscard]] bool in_place() const { return patch_.in_place(); }

 private:
    static inline DWORD refused_access = 0;
    static inline DWORD its_error = 0;
    static HANDLE WINAPI open(const wchar_t* path, DWORD access, DWORD sharing,
                              SECURITY_ATTRIBUTES* security, DWORD disposition, DWORD attributes,
                              HANDLE model) {
        if ((access & refused_access) == 0) {
            return CreateFileW(path, access, sharing, security, disposition, attributes, model);
        }
        SetLastError(its_error);
        return INVALID_HANDLE_VALUE;
    }

    const ImportPatch patch_{L"kovrel.dll", "CreateFileW", reinterpret_cast<void*>(&open)};
};

/// Fails every write as on a full disk.
class FullDisk {
 public:
    [[nodiscard]] bool in_place() const { return patch_.in_place(); }

 private:
    static BOOL WINAPI write(HANDLE /*file*/, const void* /*bytes*/, DWORD /*size*/, DWORD* written,
                             OVERLAPPED* /*place*/) {
        *written = 0;
        SetLastError(ERROR_DISK_FULL);
        return FALSE;
    }

    const ImportPatch patch_{L"kovrel.dll", "WriteFile", reinterpret_cast<void*>(&write)};
};

/// Writes that succeed with 0 bytes; after 1,000 they fail, so that a caller that repeats them does
/// not hang.
class StubbornDisk {
 public:
    StubbornDisk() { asked = 0; }
    [[nodiscard]] bool in_place() const { return patch_.in_place(); }

 private:
    static inline int asked = 0;
    static BOOL WINAPI write(HANDLE /*file*/, const void* /*bytes*/, DWORD /*size*/, DWORD* written,
                             OVERLAPPED* /*place*/) {
        *written = 0;
        SetLastError(ERROR_CANCELLED);
        return ++asked < 1000;
    }

    const ImportPatch patch_{L"kovrel.dll", "WriteFile", reinterpret_cast<void*>(&write)};
};

/// Fails every read.
class DamagedDisk {
 public:
    [[nodiscard]] bool in_place() const { return patch_.in_place(); }

 private:
    static BOOL WINAPI read(HANDLE /*file*/, void* /*bytes*/, DWORD /*size*/, DWORD* read,
                            OVERLAPPED* /*place*/) {
        *read = 0;
        SetLastError(ERROR_CRC);
        return FALSE;
    }

    const ImportPatch patch_{L"kovrel.dll", "ReadFile", reinterpret_cast<void*>(&read)};
};

/// Fails every deletion.
class RefusedDeletion {
 public:
    explicit RefusedDeletion(DWORD error) {
        its_error = error;
        asked.clear();
    }
    [[nodiscard]] bool in_place() const { return patch_.in_place(); }

    /// The files of the attempts, in order.
    static inline Paths asked;

 private:
    static inline DWORD its_error = 0;
    static BOOL WINAPI remove(const wchar_t* path) {
        asked.emplace_back(path);
        SetLastError(its_error);
        return FALSE;
    }

    const ImportPatch patch_{L"kovrel.dll", "DeleteFileW", reinterpret_cast<void*>(&remove)};
};

}  // namespace kovrel::test
