// The provinces by the numbers that begin their postal codes.
#pragma once

namespace ficha {

/// From 1 to 52, as the national institute of statistics numbers them; empty for other numbers.
[[nodiscard]] const wchar_t* province_name(int number);

}  // namespace ficha
