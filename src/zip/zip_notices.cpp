#include "zip/zip_notices.h"

#include <algorithm>
#include <utility>

#include "runtime/text.h"

namespace kovrel {

Notice archive_needs_a_name() {
    return {L"Debe indicar un nombre de fichero correcto.", NoticeStyle::exclamation, {}};
}

Notice output_folder_missing(std::wstring title, std::wstring_view folder) {
    return {concat({L"La carpeta de salida \"", folder,
                    L"\" no existe. Debe indicar una carpeta válida donde guardar el fichero "
                    L"comprimido."}),
            NoticeStyle::exclamation, std::move(title)};
}

Notice archive_will_be_replaced(std::wstring title) {
    return {
        L"Ya existe un fichero con el mismo nombre en la misma carpeta. "
        L"Si continúa el fichero será reemplazado.\r"
        L"Si desea conservar el fichero antiguo cámbielo de nombre o de ubilicación antes de "
        L"continuar...\r\r"
        L"       Pulse \"Aceptar\" para continuar...",
        NoticeStyle::exclamation, std::move(title)};
}

Notice no_files_to_archive(std::wstring title) {
    return {L"No hay fichero para comprimir.", NoticeStyle::exclamation, std::move(title)};
}

std::size_t count_file_names(std::span<const std::wstring> names) noexcept {
    const auto first_empty = std::find_if(names.begin(), names.end(),
                                          [](const std::wstring& name) { return name.empty(); });
    return static_cast<std::size_t>(first_empty - names.begin());
}

}  // namespace kovrel
