// How a step of the engine gives up: the return code and an English text for the print callback.
#pragma once

#include <stdexcept>
#include <string>

#include "return_codes.h"

namespace kovrel::zip {

class ZipError final : public std::runtime_error {
 public:
    ZipError(ZipCode code, const std::string& text) : std::runtime_error(text), code_(code) {}

    [[nodiscard]] ZipCode code() const noexcept { return code_; }

 private:
    ZipCode code_;
};

}  // namespace kovrel::zip
