#include "library/eOFN.h"

#include <windows.h>
#include <commdlg.h>

namespace kovrel {

namespace {

constexpr EnumInfo::Value values[]{
    {L"OFN_READONLY", OFN_READONLY, L"Marca la casilla de solo lectura."},
    {L"OFN_OVERWRITEPROMPT", OFN_OVERWRITEPROMPT, L"Pregunta antes de sobrescribir un archivo."},
    {L"OFN_HIDEREADONLY", OFN_HIDEREADONLY, L"Oculta la casilla de solo lectura."},
    {L"OFN_NOCHANGEDIR", OFN_NOCHANGEDIR, L"Conserva la carpeta actual."},
    {L"OFN_SHOWHELP", OFN_SHOWHELP, L"Muestra el botón de ayuda."},
    {L"OFN_ENABLEHOOK", OFN_ENABLEHOOK, L"Activa la función de enlace."},
    {L"OFN_ENABLETEMPLATE", OFN_ENABLETEMPLATE, L"Usa una plantilla de diálogo."},
    {L"OFN_ENABLETEMPLATEHANDLE", OFN_ENABLETEMPLATEHANDLE,
     L"Usa una plantilla de diálogo ya cargada."},
    {L"OFN_NOVALIDATE", OFN_NOVALIDATE, L"Admite caracteres no válidos en el nombre."},
    {L"OFN_ALLOWMULTISELECT", OFN_ALLOWMULTISELECT, L"Permite elegir varios archivos."},
    {L"OFN_EXTENSIONDIFFERENT", OFN_EXTENSIONDIFFERENT,
     L"Indica una extensión distinta de la predeterminada."},
    {L"OFN_PATHMUSTEXIST", OFN_PATHMUSTEXIST, L"La carpeta debe existir."},
    {L"OFN_FILEMUSTEXIST", OFN_FILEMUSTEXIST, L"El archivo debe existir."},
    {L"OFN_CREATEPROMPT", OFN_CREATEPROMPT, L"Pregunta antes de crear un archivo."},
    {L"OFN_SHAREAWARE", OFN_SHAREAWARE, L"Pasa por alto los conflictos de uso."},
    {L"OFN_NOREADONLYRETURN", OFN_NOREADONLYRETURN, L"Rechaza archivos de solo lectura."},
    {L"OFN_NOTESTFILECREATE", OFN_NOTESTFILECREATE, L"No prueba antes a crear el archivo."},
    {L"OFN_NONETWORKBUTTON", OFN_NONETWORKBUTTON, L"Oculta el botón de red."},
    {L"OFN_NOLONGNAMES", OFN_NOLONGNAMES, L"Usa nombres cortos."},
    {L"OFN_EXPLORER", OFN_EXPLORER, L"Usa el diálogo con aspecto de explorador."},
    {L"OFN_NODEREFERENCELINKS", OFN_NODEREFERENCELINKS,
     L"Devuelve el acceso directo y no su destino."},
    {L"OFN_LONGNAMES", OFN_LONGNAMES, L"Usa nombres largos."},
    {L"OFN_ENABLEINCLUDENOTIFY", OFN_ENABLEINCLUDENOTIFY,
     L"Avisa de cada elemento que se muestra."},
    {L"OFN_ENABLESIZING", OFN_ENABLESIZING, L"Permite cambiar el tamaño del diálogo."},
    {L"OFN_DONTADDTORECENT", OFN_DONTADDTORECENT, L"No añade el archivo a los recientes."},
    {L"OFN_FORCESHOWHIDDEN", OFN_FORCESHOWHIDDEN, L"Muestra los archivos ocultos."},
};

}  // namespace

constinit const EnumInfo eOFN_info{
    .name = L"eOFN",
    .help = L"Opciones del diálogo de abrir archivo.",
    .id = {0xa97b368a, 0x911d, 0x46e9, {0x94, 0xbf, 0x5b, 0x66, 0x05, 0x60, 0x52, 0x9c}},
    .values = values,
    .has_macros = true,
};

}  // namespace kovrel
