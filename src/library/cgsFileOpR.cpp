#include "library/cgsFileOpR.h"

#include "automation/declare.h"
#include "library/library.h"

namespace kovrel {
namespace {

constexpr ClassIdentity identity{
    library_name,
    L"cgsFileOpR",
    {0xa30b4e1e, 0xb14c, 0x4d78, {0xb0, 0x79, 0x95, 0xf1, 0x92, 0x77, 0xd1, 0xba}},
    {0x48979160, 0x1712, 0x42db, {0x94, 0x13, 0x41, 0x2d, 0xdb, 0x41, 0xb8, 0xc0}},
};

constexpr auto declared =
    declare<cgsFileOpR>(identity, L"Archivos INI, textos de rutas y el diálogo de abrir archivo.",
                        Instancing::global)
        .field<&cgsFileOpR::hWnd>(L"hWnd", L"Ventana propietaria del diálogo.")
        .field<&cgsFileOpR::DialogTitle>(L"DialogTitle",
                                         L"Título del diálogo; vacío se convierte en \"Abrir\".")
        .field<&cgsFileOpR::CancelError>(
            L"CancelError", L"Indica si la cancelación queda anotada como error 32755.")
        .field<&cgsFileOpR::Flags>(L"Flags", L"Opciones del diálogo.")
        .field<&cgsFileOpR::DefaultExt>(L"DefaultExt", L"Se conserva, pero no se pasa al diálogo.")
        .field<&cgsFileOpR::FileName>(L"FileName", L"Archivo propuesto y archivo elegido.")
        .field<&cgsFileOpR::FileTitle>(L"FileTitle", L"Nombre sin carpeta del archivo elegido.")
        .field<&cgsFileOpR::FilterIndex>(L"FilterIndex",
                                         L"Número del filtro elegido al abrir el diálogo.")
        .field<&cgsFileOpR::InitDir>(L"InitDir", L"Carpeta inicial del diálogo.")
        .method<&cgsFileOpR::DeleteSetting>(
            L"DeleteSetting", {L"sIniFile", L"sSection", optional(L"sKey", L"")},
            L"Borra una clave de un archivo INI, o la sección entera.")
        .method<&cgsFileOpR::SplitPath>(
            L"SplitPath", {L"sTodo", L"sPath", optional(L"vNombre"), optional(L"vExt")},
            L"Separa una ruta en carpeta, nombre y extensión.")
        .method<&cgsFileOpR::QuitarCaracterEx>(
            L"QuitarCaracterEx", {L"sValor", L"sCaracter", optional(L"sPoner")},
            L"Quita un carácter o texto de otro, o lo sustituye.")
        .method<&cgsFileOpR::ShowOpen>(
            L"ShowOpen",
            {optional(L"vFileName"), optional(L"vTitle"), optional(L"vFilter"), optional(L"vFlags"),
             optional(L"vhWnd")},
            L"Muestra el diálogo de abrir archivo; verdadero si se eligió alguno.")
        .write_only<&cgsFileOpR::set_Action>(L"Action",
                                             L"El valor 1 muestra el diálogo de abrir archivo.")
        .write_only<&cgsFileOpR::set_Filter>(
            L"Filter", L"Filtro del diálogo: descripciones y patrones separados por \"|\".")
        .method<&cgsFileOpR::LeerIni>(
            L"LeerIni", {L"lpFileName", L"lpAppName", L"lpKeyName", optional(L"vDefault")},
            L"Lee un valor de un archivo INI.")
        .method<&cgsFileOpR::GetSetting>(
            L"GetSetting", {L"lpFileName", L"lpAppName", L"lpKeyName", optional(L"vDefault")},
            L"Lee un valor de un archivo INI.")
        .method<&cgsFileOpR::GuardarIni>(L"GuardarIni",
                                         {L"lpFileName", L"lpAppName", L"lpKeyName", L"lpString"},
                                         L"Guarda un valor en un archivo INI.")
        .method<&cgsFileOpR::SaveSetting>(L"SaveSetting",
                                          {L"lpFileName", L"lpAppName", L"lpKeyName", L"lpString"},
                                          L"Guarda un valor en un archivo INI.")
        .method<&cgsFileOpR::AddBackSlash>(L"AddBackSlash", {L"sPath"},
                                           L"La ruta con una barra invertida al final.")
        .method<&cgsFileOpR::QuitarBackSlash>(L"QuitarBackSlash", {L"sPath"},
                                              L"La ruta sin la barra invertida del final.");

}  // namespace

constinit const ClassInfo cgsFileOpR::class_info = class_tables<declared>;

}  // namespace kovrel
