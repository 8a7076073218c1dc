// What the tests of this folder share: the connection, and the customers that it holds.
#pragma once

#include <filesystem>
#include <gtest/gtest.h>
#include <string>

#include "tests/support/box_lines.h"
#include "tests/support/database_objects.h"
#include "tests/support/late.h"

namespace kovrel::test {

/// A variable of the environment that the tests were started with.
[[nodiscard]] inline std::wstring setting(const wchar_t* name) {
    std::wstring text(1024, L'\0');
    text.resize(GetEnvironmentVariableW(name, text.data(), static_cast<DWORD>(text.size())));
    return text;
}

/// The connection text of the database in that file of the tests' folder.
[[nodiscard]] inline std::wstring connection_text(const wchar_t* file = L"clientes.db") {
    return setting(L"KOVREL_DATABASE_DRIVER") + L"Database=" + setting(L"KOVREL_DATABASE_FOLDER") +
           L"/" + file;
}

/// A copy of the database, of which all but the first kilobytes can be lost while it is read.
class FailingDatabase {
 public:
    FailingDatabase() {
        const std::filesystem::path folder = L"Z:" + setting(L"KOVREL_DATABASE_FOLDER");
        file_ = folder / L"perdida.db";
        std::filesystem::copy_file(folder / L"clientes.db", file_,
                                   std::filesystem::copy_options::overwrite_existing);
    }
    FailingDatabase(const FailingDatabase&) = delete;
    FailingDatabase& operator=(const FailingDatabase&) = delete;
    ~FailingDatabase() { std::filesystem::remove(file_); }

    [[nodiscard]] std::wstring connection() const { return connection_text(L"perdida.db"); }
    void lose(std::uintmax_t kept) const { std::filesystem::resize_file(file_, kept); }

    static constexpr const wchar_t* failure = L"[SQLite]database disk image is malformed (11)";

 private:
    std::filesystem::path file_;
};

/// The standard error box of a member: "Error <number and text>) en procedimiento …".
[[nodiscard]] inline std::string failure_line(const std::wstring& title,
                                              const std::wstring& number_and_text,
                                              const std::wstring& member,
                                              const std::wstring& class_name) {
    return narrow(L"16|" + title + L"|Error " + number_and_text + L") en procedimiento " + member +
                  L" del Módulo de clase " + class_name + L".|1");
}

/// An object of the library's, and the database.
class DatabaseTest : public testing::Test {
 protected:
    static std::wstring customers(int count) {
        return L"SELECT id, nombre, saldo FROM clientes WHERE id <= " + std::to_wstring(count) +
               L" ORDER BY id";
    }

    DatabaseConnection connection_{connection_text()};
};

}  // namespace kovrel::test
