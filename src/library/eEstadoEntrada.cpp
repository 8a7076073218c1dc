#include "library/eEstadoEntrada.h"

namespace kovrel {
namespace {

constexpr EnumInfo::Value states[]{
    {L"esHecha", static_cast<std::int32_t>(eEstadoEntrada::esHecha),
     L"Comprimida, correcta o extraída."},
    {L"esNoPedida", static_cast<std::int32_t>(eEstadoEntrada::esNoPedida), L"No se ha pedido."},
    {L"esConservada", static_cast<std::int32_t>(eEstadoEntrada::esConservada),
     L"Ya existía el fichero y se conserva."},
    {L"esNoAnterior", static_cast<std::int32_t>(eEstadoEntrada::esNoAnterior),
     L"El fichero que había no es más antiguo."},
    {L"esRechazada", static_cast<std::int32_t>(eEstadoEntrada::esRechazada),
     L"Se ha decidido conservar el fichero que había."},
    {L"esNombre", static_cast<std::int32_t>(eEstadoEntrada::esNombre),
     L"Su nombre no puede ser el de un fichero o sale de la carpeta."},
    {L"esReservado", static_cast<std::int32_t>(eEstadoEntrada::esReservado),
     L"Su nombre es el de un dispositivo."},
    {L"esTrasEnlace", static_cast<std::int32_t>(eEstadoEntrada::esTrasEnlace),
     L"Una carpeta de su ruta es un enlace."},
    {L"esEnlace", static_cast<std::int32_t>(eEstadoEntrada::esEnlace), L"Es un enlace."},
    {L"esCifrada", static_cast<std::int32_t>(eEstadoEntrada::esCifrada), L"Está cifrada."},
    {L"esMetodo", static_cast<std::int32_t>(eEstadoEntrada::esMetodo),
     L"Su método de compresión no se conoce."},
    {L"esCabeceras", static_cast<std::int32_t>(eEstadoEntrada::esCabeceras),
     L"Sus dos cabeceras no coinciden."},
    {L"esDatos", static_cast<std::int32_t>(eEstadoEntrada::esDatos), L"Sus datos están dañados."},
    {L"esSuma", static_cast<std::int32_t>(eEstadoEntrada::esSuma),
     L"Su suma de comprobación no es correcta."},
    {L"esRepetida", static_cast<std::int32_t>(eEstadoEntrada::esRepetida),
     L"Su nombre está repetido."},
    {L"esNoCreada", static_cast<std::int32_t>(eEstadoEntrada::esNoCreada),
     L"No se puede crear o reemplazar."},
    {L"esNoEscrita", static_cast<std::int32_t>(eEstadoEntrada::esNoEscrita),
     L"No se puede escribir."},
    {L"esNoLeida", static_cast<std::int32_t>(eEstadoEntrada::esNoLeida), L"No se puede leer."},
    {L"esNoAbierta", static_cast<std::int32_t>(eEstadoEntrada::esNoAbierta),
     L"No se encuentra o no se puede abrir."},
};

}  // namespace

constinit const EnumInfo eEstadoEntrada_info{
    .name = L"eEstadoEntrada",
    .help = L"Qué ha sido de una entrada de un archivo.",
    .id = {0xfed858d8, 0xb72c, 0x4beb, {0xb9, 0x18, 0x9d, 0xee, 0xaf, 0x2c, 0x26, 0x0d}},
    .values = states,
};

}  // namespace kovrel
