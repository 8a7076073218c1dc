#include "library/clsAvisos.h"

#include "automation/declare.h"
#include "library/library.h"

namespace kovrel {
namespace {

constexpr ClassIdentity identity{
    library_name,
    L"clsAvisos",
    {0x0bc252aa, 0x122a, 0x42e3, {0xa6, 0xd4, 0xbb, 0x9a, 0xd4, 0x40, 0x2a, 0x18}},
    {0xde96d3f9, 0xf511, 0x4178, {0x9a, 0x94, 0xa3, 0x60, 0x11, 0x7d, 0x3a, 0x64}},
    5,
    6,
    &clsAvisos_events,
};

constexpr auto declared =
    declare<clsAvisos>(
        identity,
        L"Decide cómo avisa la biblioteca en el hilo que crea la instancia, mientras "
        L"exista: en pantalla, en silencio o con eventos. Guarda los avisos.")
        .property<&clsAvisos::get_Modo, &clsAvisos::set_Modo>(
            L"Modo",
            L"Qué se hace con los avisos: mostrarlos y anotarlos, solo anotarlos o solo producir "
            L"el "
            L"evento.")
        .property<&clsAvisos::get_Limite, &clsAvisos::set_Limite>(
            L"Limite",
            L"Número máximo de avisos guardados, 1000 al principio; después se descartan los más "
            L"antiguos.")
        .method<&clsAvisos::Respuestas>(
            L"Respuestas", {L"Estilo", L"Respuesta", optional(L"Texto", L"")},
            L"Respuesta a las preguntas que no se muestran: las que tienen los botones de Estilo y "
            L"cuyo texto contiene Texto. Con 0 se retira.")
        .read_only<&clsAvisos::get_Count>(L"Count", L"Número de avisos guardados.")
        .method<&clsAvisos::Item>(L"Item", {L"Indice"}, L"Aviso guardado; el 1 es el más antiguo.")
        .read_only<&clsAvisos::get_NewEnum>(L"_NewEnum", L"Los avisos guardados, para For Each.")
        .read_only<&clsAvisos::get_Ultimo>(L"Ultimo",
                                           L"El aviso más reciente; Nothing si no hay ninguno.")
        .method<&clsAvisos::ATexto>(
            L"ATexto", L"Los avisos en líneas de texto, con los datos separados por tabuladores.")
        .method<&clsAvisos::Limpia>(L"Limpia", L"Olvida los avisos guardados.");

constexpr auto parameters_of_aviso = event_parameters<InstanceOf<clsAviso>, std::int32_t&, bool&>(
    {L"aviso", L"Respuesta", L"Mostrar"});
constexpr auto parameters_of_progreso =
    event_parameters<std::int32_t, std::wstring, bool&>({L"Porcentaje", L"Mensaje", L"Cancelar"});
constexpr EventsInfo::Event declared_events[]{
    {L"Aviso",
     L"La biblioteca va a mostrar algo. Respuesta: la que se da si no se muestra. Mostrar: si se "
     L"muestra; en silencio no tiene efecto.",
     clsAvisos::event_aviso, parameters_of_aviso},
    {L"Progreso", L"Un proceso avanza. Cancelar lo da por cancelado, como el botón de la ventana.",
     clsAvisos::event_progreso, parameters_of_progreso},
};

}  // namespace

constinit const EventsInfo clsAvisos_events{
    L"_clsAvisosEvents",
    L"Eventos de clsAvisos.",
    {0xa798a5d9, 0x0acb, 0x474c, {0x85, 0x37, 0x0f, 0x43, 0x70, 0xd9, 0x45, 0x74}},
    declared_events};

constinit const ClassInfo clsAvisos::class_info = class_tables<declared>;

}  // namespace kovrel
