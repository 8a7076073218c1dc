// clsFArchivo: what its members do.
#include <windows.h>

#include <utility>

#include "automation/safe_array.h"
#include "automation/variant_argument.h"
#include "library/clsFArchivo.h"
#include "library/host_progress.h"
#include "runtime/failure.h"
#include "runtime/text.h"
#include "services/announcer.h"
#include "services/message_box.h"
#include "zip/archive_texts.h"

namespace kovrel {
namespace {

constexpr double most_bytes_allowed = 9223372036854775808.0;

void require(bool holds) {
    if (!holds) throw Failure(FailureNumber::invalid_argument);
}

/// Tells how far an operation is, at every hundredth and ten times a second in between, so that a
/// large file can be cancelled.
class ArchiveProgress {
 public:
    ArchiveProgress(std::wstring_view verb, std::wstring title, const ComPtr<IDispatch>& general)
        : verb_(verb), title_(std::move(title)), window_(general) {}

    /// True to stop.
    bool tell(std::wstring_view name, std::uint64_t done, std::uint64_t total) {
        constexpr ULONGLONG interval = 100;
        const ULONGLONG now = GetTickCount64();
        if (!window_.advances(done, total) && now - last_ < interval) return false;
        last_ = now;
        const std::wstring message = progress_text(verb_, name, done, total);
        if (!window_.has_window()) {
            Announcement announcement;
            announcement.kind = AnnouncementKind::progress;
            announcement.text = message;
            announcement.title = title_;
            announcement.percentage = window_.percentage();
            return announce_progress(announcement);
        }
        window_.show(message);
        return window_.is_canceled();
    }

 private:
    std::wstring_view verb_;
    std::wstring title_;
    HostProgress window_;
    ULONGLONG last_ = 0;
};

std::wstring text_in(const VARIANT& value) {
    Variant content;
    const HRESULT copied = copy_followed(content, value);
    if (FAILED(copied)) throw_conversion_failure(copied);
    return content.to_text();
}

/// The texts of a list that the host gives: one text, or an array.
std::vector<std::wstring> names_in(const VARIANT& given) {
    if ((given.vt & VT_ARRAY) == 0) return split_list(text_in(given));
    const GivenArray list = array_of(given);
    if (list.array->cDims != 1) throw Failure(FailureNumber::subscript_out_of_range);
    std::vector<std::wstring> names;
    if (list.element == VT_BSTR) {
        const ArrayAccess<const BSTR> access(list.array);
        for (const BSTR text : access.elements()) {
            names.emplace_back(text_of(text));
        }
    } else if (list.element == VT_VARIANT) {
        const ArrayAccess<const VARIANT> access(list.array);
        for (const VARIANT& value : access.elements()) {
            names.push_back(text_in(value));
        }
    } else {
        throw Failure(FailureNumber::type_mismatch);
    }
    std::erase(names, std::wstring());
    return names;
}

}  // namespace

void clsFArchivo::set_Nivel(std::int32_t level) {
    require(level >= 0 && level <= 9);
    level_ = level;
}

void clsFArchivo::set_LimiteBytes(double bytes) {
    require(bytes >= 0 && bytes < most_bytes_allowed);
    most_bytes_ = bytes;
}

void clsFArchivo::set_LimiteProporcion(std::int32_t ratio) {
    require(ratio >= 1);
    most_ratio_ = ratio;
}

void clsFArchivo::set_Existentes(eExistentes existing) {
    require(existing >= eExistentes::exConserva && existing <= eExistentes::exPregunta);
    existing_ = existing;
}

TakeRequest clsFArchivo::request_of(std::wstring_view patterns) const {
    TakeRequest request;
    request.patterns = split_list(patterns);
    request.exclusions = split_list(Excluye);
    request.most_bytes = static_cast<std::uint64_t>(most_bytes_);
    request.most_ratio = static_cast<std::uint32_t>(most_ratio_);
    request.existing = static_cast<ExistingFiles>(existing_);
    request.drop_folder_names = SinCarpetas;
    return request;
}

InstanceOf<clsEntradas> clsFArchivo::Comprime(std::wstring_view Archivo, ValueArgument Ficheros,
                                              std::wstring_view Base, eModoArchivo Modo,
                                              ComPtr<IDispatch> Progreso) const {
    require(Modo >= eModoArchivo::arNuevo && Modo <= eModoArchivo::arRefresca);
    PackRequest request;
    request.names = names_in(Ficheros.value());
    request.exclusions = split_list(Excluye);
    request.base = Base;
    request.comment = Comentario;
    request.level = level_;
    request.mode = static_cast<PackMode>(Modo);
    request.drop_folder_names = SinCarpetas;
    request.recurse = Recursivo;
    request.include_hidden = Ocultos;
    ArchiveProgress progress(L"Comprimiendo", app_origen(), Progreso);
    ArchiveEvents events;
    events.progress = [&](auto... told) { return progress.tell(told...); };
    return clsEntradas::of(pack_archive(std::wstring(Archivo), request, events));
}

InstanceOf<clsEntradas> clsFArchivo::Lista(std::wstring_view Archivo) const {
    return clsEntradas::of(list_archive(std::wstring(Archivo)));
}

InstanceOf<clsEntradas> clsFArchivo::Prueba(std::wstring_view Archivo, std::wstring_view Patrones,
                                            ComPtr<IDispatch> Progreso) const {
    ArchiveProgress progress(L"Comprobando", app_origen(), Progreso);
    ArchiveEvents events;
    events.progress = [&](auto... told) { return progress.tell(told...); };
    return clsEntradas::of(test_archive(std::wstring(Archivo), request_of(Patrones), events));
}

InstanceOf<clsEntradas> clsFArchivo::Extrae(std::wstring_view Archivo, std::wstring_view Carpeta,
                                            std::wstring_view Patrones,
                                            ComPtr<IDispatch> Progreso) const {
    TakeRequest request = request_of(Patrones);
    request.folder = Carpeta;
    ArchiveProgress progress(L"Extrayendo", app_origen(), Progreso);
    ArchiveEvents events;
    events.progress = [&](auto... told) { return progress.tell(told...); };
    events.replace = [&](std::wstring_view path) {
        return show(may_be_replaced(app_origen(), path)) == static_cast<std::int32_t>(Answer::yes);
    };
    return clsEntradas::of(take_archive(std::wstring(Archivo), request, events));
}

}  // namespace kovrel
