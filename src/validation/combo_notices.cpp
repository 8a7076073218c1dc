#include "validation/combo_notices.h"

#include <utility>

namespace kovrel {

Notice combo_needs_list_item(std::wstring title) {
    return {L"¡Seleccione un elemento de la lista!", NoticeStyle::information, std::move(title)};
}

Notice combo_value_not_valid(std::wstring title) {
    return {L"¡Valor no válido para este campo!", NoticeStyle::exclamation, std::move(title)};
}

}  // namespace kovrel
