// What kind of holder the first character of a tax identifier names.
#pragma once

#include <string_view>

#include "runtime/regional.h"

namespace kovrel {

/// The description of a first character: the NIF's for any text that is a number by the user's
/// settings, that of the CIF letter or NIE letter otherwise (case does not matter), and "ERROR" for
/// anything else. The whole text is searched for in the list of letters: an empty text and "AB" are
/// found at A.
[[nodiscard]] std::wstring_view tax_id_kind(std::wstring_view letter, const Regional& regional);

}  // namespace kovrel
