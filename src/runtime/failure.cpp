#include "runtime/failure.h"

#include <array>
#include <utility>

namespace kovrel {
namespace {

struct Description {
    FailureNumber number;
    std::wstring_view text;
};

constexpr std::array descriptions{
    Description{FailureNumber::invalid_argument, L"Llamada a procedimiento o argumento no válidos"},
    Description{FailureNumber::overflow, L"Desbordamiento"},
    Description{FailureNumber::out_of_memory, L"Memoria insuficiente"},
    Description{FailureNumber::subscript_out_of_range, L"Subíndice fuera del intervalo"},
    Description{FailureNumber::array_locked, L"La matriz es fija o está bloqueada temporalmente"},
    Description{FailureNumber::division_by_zero, L"División por cero"},
    Description{FailureNumber::type_mismatch, L"No coinciden los tipos"},
    Description{FailureNumber::dll_load, L"Error al cargar el archivo DLL"},
    Description{FailureNumber::bad_file_name, L"Nombre o número de archivo incorrecto"},
    Description{FailureNumber::file_not_found, L"No se encontró el archivo"},
    Description{FailureNumber::device_io, L"Error de E/S de dispositivo"},
    Description{FailureNumber::file_exists, L"El archivo ya existe"},
    Description{FailureNumber::disk_full, L"Disco lleno"},
    Description{FailureNumber::input_past_end, L"La entrada supera el fin de archivo"},
    Description{FailureNumber::device_unavailable, L"Dispositivo no disponible"},
    Description{FailureNumber::permission_denied, L"Permiso denegado"},
    Description{FailureNumber::disk_not_ready, L"El disco no está listo"},
    Description{FailureNumber::path_file_access, L"Error de acceso a la ruta o al archivo"},
    Description{FailureNumber::path_not_found, L"No se encontró la ruta de acceso"},
    Description{FailureNumber::object_not_set, L"Variable de objeto o bloque With no establecido"},
    Description{FailureNumber::invalid_use_of_null, L"Uso no válido de Null"},
    Description{FailureNumber::invalid_file_format, L"Formato de archivo incorrecto"},
    Description{FailureNumber::form_already_shown,
                L"El formulario ya se muestra; no puede mostrarse de forma modal"},
    Description{FailureNumber::object_required, L"Se requiere un objeto"},
    Description{FailureNumber::cannot_create_object,
                L"El componente ActiveX no puede crear el objeto"},
    Description{FailureNumber::member_not_found, L"El objeto no admite esta propiedad o método"},
    Description{FailureNumber::action_not_supported, L"El objeto no admite esta acción"},
    Description{FailureNumber::named_arguments_not_supported,
                L"El objeto no admite argumentos con nombre"},
    Description{FailureNumber::locale_not_supported,
                L"El objeto no admite la configuración regional actual"},
    Description{FailureNumber::named_argument_not_found, L"No se encontró el argumento con nombre"},
    Description{FailureNumber::argument_not_optional, L"Argumento no opcional"},
    Description{FailureNumber::wrong_argument_count,
                L"Número de argumentos incorrecto o asignación de propiedad no válida"},
    Description{FailureNumber::not_a_collection, L"El objeto no es una colección"},
    Description{FailureNumber::dll_function_not_found,
                L"No se encontró la función DLL especificada"},
    Description{FailureNumber::variable_type_not_supported,
                L"La variable usa un tipo de automatización no admitido"},
    Description{FailureNumber::invalid_picture, L"Imagen no válida"},
    Description{FailureNumber::clipboard_unavailable, L"No se puede abrir el Portapapeles"},
};

}  // namespace

std::wstring_view failure_description(std::int32_t number) noexcept {
    for (const Description& entry : descriptions) {
        if (static_cast<std::int32_t>(entry.number) == number) return entry.text;
    }
    return {};
}

Failure::Failure(FailureNumber number) noexcept : number_(static_cast<std::int32_t>(number)) {}

Failure::Failure(std::int32_t number, std::wstring description)
    : number_(number), description_(std::make_shared<const std::wstring>(std::move(description))) {}

std::wstring_view Failure::description() const noexcept {
    return description_ ? std::wstring_view(*description_) : failure_description(number_);
}

}  // namespace kovrel
