#include "zip/archive_texts.h"

#include <utility>

#include "runtime/text.h"

namespace kovrel {

std::wstring_view state_text(zip::EntryState state) noexcept {
    using zip::EntryState;
    switch (state) {
        case EntryState::done:
            return L"";
        case EntryState::left_out:
            return L"no se ha pedido";
        case EntryState::kept_existing:
            return L"ya existía y se conserva";
        case EntryState::not_newer:
            return L"el fichero que había no es más antiguo";
        case EntryState::declined:
            return L"se ha decidido conservar el fichero que había";
        case EntryState::bad_name:
            return L"su nombre no puede ser el de un fichero o sale de la carpeta";
        case EntryState::reserved_name:
            return L"su nombre es el de un dispositivo";
        case EntryState::through_link:
            return L"una carpeta de su ruta es un enlace";
        case EntryState::link:
            return L"es un enlace";
        case EntryState::encrypted:
            return L"está cifrada";
        case EntryState::unknown_method:
            return L"su método de compresión no se conoce";
        case EntryState::contradicting:
            return L"sus dos cabeceras no coinciden";
        case EntryState::damaged:
            return L"sus datos están dañados";
        case EntryState::wrong_checksum:
            return L"su suma de comprobación no es correcta";
        case EntryState::over_limit:
            return L"supera los límites";
        case EntryState::name_twice:
            return L"su nombre está repetido";
        case EntryState::cannot_create:
            return L"no se puede crear o reemplazar";
        case EntryState::write_failed:
            return L"no se puede escribir";
        case EntryState::read_failed:
            return L"no se puede leer";
        case EntryState::cannot_open:
            return L"no se encuentra o no se puede abrir";
    }
    return L"";
}

std::wstring checksum_text(std::uint32_t checksum) {
    std::wstring text(8, L'0');
    for (auto digit = text.rbegin(); digit != text.rend(); ++digit, checksum >>= 4) {
        *digit = L"0123456789ABCDEF"[checksum & 0xF];
    }
    return text;
}

std::wstring progress_text(std::wstring_view verb, std::wstring_view name, std::uint64_t done,
                           std::uint64_t total) {
    constexpr std::uint64_t kilobyte = 1024;
    constexpr std::uint64_t megabyte = kilobyte * kilobyte;
    const bool is_large = total >= 10 * megabyte;
    const std::uint64_t unit = is_large ? megabyte : kilobyte;
    const auto in_units = [unit](std::uint64_t bytes) {
        return decimal_text(static_cast<std::int64_t>(bytes / unit + (bytes % unit != 0 ? 1 : 0)));
    };
    return concat({verb, L" ", name, L" (", in_units(done), L" de ", in_units(total),
                   is_large ? L" MB)" : L" KB)"});
}

Notice may_be_replaced(std::wstring title, std::wstring_view path) {
    return {concat({L"Ya existe el fichero \"", path, L"\".\r¿Desea reemplazarlo?"}),
            NoticeStyle::yes_or_no, std::move(title)};
}

std::vector<std::wstring> split_list(std::wstring_view text) {
    std::vector<std::wstring> parts;
    for (const std::wstring_view part : split(text, L'|')) {
        if (!part.empty()) parts.emplace_back(part);
    }
    return parts;
}

}  // namespace kovrel
