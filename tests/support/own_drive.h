// A drive of a test's own, whose root is a folder; gone at the test's end.
#pragma once

#include <string>

namespace kovrel::test {

class OwnDrive {
 public:
    /// Makes the folder where there is none.
    explicit OwnDrive(const std::wstring& folder);
    OwnDrive(const OwnDrive&) = delete;
    OwnDrive& operator=(const OwnDrive&) = delete;
    ~OwnDrive();

    /// "X:\"; empty where no drive could be made.
    [[nodiscard]] const std::wstring& root() const { return root_; }

 private:
    std::wstring folder_;
    std::wstring root_;
};

}  // namespace kovrel::test
