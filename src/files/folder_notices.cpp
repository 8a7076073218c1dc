#include "files/folder_notices.h"

#include <utility>

#include "runtime/text.h"

namespace kovrel {

Notice ask_to_create_folder(std::wstring title, std::wstring_view folder) {
    return {concat({L"La carpeta \"", folder, L"\" no existe.\r\r¿Desea crearla?"}),
            NoticeStyle::ok_or_cancel, std::move(title)};
}

Notice folder_created(std::wstring title) {
    return {L"Carpeta creada con éxito.", NoticeStyle::information, std::move(title)};
}

Notice folder_not_created(std::wstring title) {
    return {L"No ha sido posible crear la carpeta.", NoticeStyle::critical, std::move(title)};
}

}  // namespace kovrel
