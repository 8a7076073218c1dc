#include "library/clsProfile.h"

#include "automation/declare.h"
#include "library/library.h"

namespace kovrel {
namespace {

constexpr ClassIdentity identity{
    library_name,
    L"clsProfile",
    {0x1e7abfef, 0x6918, 0x446f, {0x92, 0x92, 0x79, 0xd2, 0x8e, 0x29, 0xba, 0xe4}},
    {0x676ccd3c, 0x548e, 0x4500, {0xb1, 0xf8, 0xff, 0x37, 0xcc, 0xfa, 0x40, 0x6f}},
};

constexpr auto declared =
    declare<clsProfile>(identity, L"Carpetas y archivos INI de una pantalla de opciones.")
        .property<&clsProfile::get_AppOrigen, &clsProfile::set_AppOrigen>(
            L"AppOrigen",
            L"Nombre de la aplicación anfitriona; titula los mensajes que lo indican.")
        .method<&clsProfile::BrowseForFolder>(
            L"BrowseForFolder", {L"hWndOwner", L"sPrompt", optional(L"sInitDir", L"")},
            L"Carpeta elegida por el usuario; vacío si cancela.")
        .method<&clsProfile::LeerIni>(
            L"LeerIni", {L"lpFileName", L"lpAppName", L"lpKeyName", optional(L"vDefault")},
            L"Lee un valor de un archivo INI; las variables reciben el texto en la página de "
            L"códigos del sistema.")
        .method<&clsProfile::GuardarIni>(
            L"GuardarIni", {L"lpFileName", L"lpAppName", L"lpKeyName", L"lpString"},
            L"Guarda un valor en un archivo INI; las variables reciben el texto en la página "
            L"de códigos del sistema.")
        .method<&clsProfile::AñadirBackSlash>(L"AñadirBackSlash", {L"sPath"},
                                              L"La ruta con una barra invertida al final.")
        .method<&clsProfile::QuitarBackSlash>(L"QuitarBackSlash", {L"sPath"},
                                              L"La ruta sin la barra invertida del final.")
        .method<&clsProfile::RutadeArchivo>(
            L"RutadeArchivo", {L"PathFile"},
            L"Carpeta de un archivo, con una barra invertida al final.")
        .method<&clsProfile::ExisteCarpeta>(
            L"ExisteCarpeta",
            {L"strPath", optional(L"boCreaCarpeta", true, false),
             optional(L"boMensaje", true, false)},
            L"Indica si la carpeta existe y, si se pide, la crea. Los argumentos omitidos "
            L"equivalen a falso en llamadas por nombre; a verdadero en las compiladas.");

}  // namespace

constinit const ClassInfo clsProfile::class_info = class_tables<declared>;

}  // namespace kovrel
