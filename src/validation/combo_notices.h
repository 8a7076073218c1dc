// What the user is told when the text of a list combo box is not in its list.
#pragma once

#include <string>
#include <utility>

#include "runtime/notice.h"

namespace kovrel {

/// For a combo box with a list to choose from.
[[nodiscard]] inline Notice combo_needs_list_item(std::wstring title) {
    return {L"¡Seleccione un elemento de la lista!", NoticeStyle::information, std::move(title)};
}
/// For a combo box whose list is empty.
[[nodiscard]] inline Notice combo_value_not_valid(std::wstring title) {
    return {L"¡Valor no válido para este campo!", NoticeStyle::exclamation, std::move(title)};
}

}  // namespace kovrel
