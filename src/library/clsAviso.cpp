#include "library/clsAviso.h"

#include <utility>

#include "automation/declare.h"
#include "library/library.h"

namespace kovrel {
namespace {

constexpr ClassIdentity identity{
    library_name,
    L"clsAviso",
    {0xdd702600, 0x7dae, 0x44f6, {0x9d, 0xcf, 0xb0, 0x14, 0x9b, 0x85, 0x3c, 0xb1}},
    {0xc7d3a5bc, 0x262f, 0x4b65, {0x97, 0xb9, 0x69, 0x55, 0x0e, 0x65, 0x09, 0x0c}},
    1,
};

constexpr auto declared =
    declare<clsAviso>(identity, L"Un aviso de la biblioteca. Lo da clsAvisos.", Instancing::given)
        .read_only<&clsAviso::get_Texto>(L"Texto", L"Texto del aviso.")
        .read_only<&clsAviso::get_Titulo>(L"Titulo", L"Título del mensaje o de la ventana.")
        .read_only<&clsAviso::get_Estilo>(
            L"Estilo", L"Estilo del mensaje: botones e icono, como en MsgBox; 0 en los demás.")
        .read_only<&clsAviso::get_Respuesta>(
            L"Respuesta",
            L"Respuesta: 1 Aceptar, 2 Cancelar, 6 Sí, 7 No; 0 si el usuario aún no ha contestado.")
        .read_only<&clsAviso::get_Clase>(L"Clase", L"Clase del aviso.")
        .read_only<&clsAviso::get_Numero>(L"Numero", L"Número del error; 0 si no es un error.")
        .read_only<&clsAviso::get_Miembro>(
            L"Miembro", L"Miembro que produce el aviso, con su clase: clsFGen.Verifica_NIF.")
        .read_only<&clsAviso::get_Hora>(L"Hora", L"Fecha y hora del aviso.")
        .read_only<&clsAviso::get_Porcentaje>(L"Porcentaje",
                                              L"Porcentaje del progreso; 0 en los demás avisos.");

}  // namespace

constinit const ClassInfo clsAviso::class_info = class_tables<declared>;

InstanceOf<clsAviso> clsAviso::of(std::shared_ptr<const NotedAnnouncement> note) {
    InstanceOf<clsAviso> instance(create_instance<clsAviso>());
    implementation_of<clsAviso>(instance.get()).note_ = std::move(note);
    return instance;
}

}  // namespace kovrel
