// The property AppOrigen, which nearly every class has: the name of the host application.
#pragma once

#include <string>

namespace kovrel {

class AppOrigen {
 public:
    [[nodiscard]] std::wstring get_AppOrigen() const { return name_; }
    void set_AppOrigen(const std::wstring& name) { name_ = name; }

 protected:
    [[nodiscard]] const std::wstring& app_origen() const noexcept { return name_; }

 private:
    std::wstring name_;
};

}  // namespace kovrel
