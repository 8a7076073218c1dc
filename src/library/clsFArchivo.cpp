#include "library/clsFArchivo.h"

#include "automation/declare.h"
#include "library/library.h"

namespace kovrel {
namespace {

constexpr ClassIdentity identity{
    library_name,
    L"clsFArchivo",
    {0x83d188f9, 0xf208, 0x4b7f, {0xac, 0x6b, 0x8e, 0x95, 0xab, 0xc0, 0x58, 0xaf}},
    {0x93e39a18, 0x3faf, 0x4e7c, {0xb5, 0xb7, 0x2d, 0xa6, 0x89, 0x1a, 0x63, 0x62}},
};

constexpr auto declared =
    declare<clsFArchivo>(identity,
                         L"Archivos zip: los crea y actualiza con carpetas y nombres de cualquier "
                         L"alfabeto, los consulta, los comprueba y los extrae.")
        .property<&clsFArchivo::get_AppOrigen, &clsFArchivo::set_AppOrigen>(
            L"AppOrigen", L"Nombre de la aplicación anfitriona; titula los mensajes.")
        .property<&clsFArchivo::get_Nivel, &clsFArchivo::set_Nivel>(
            L"Nivel", L"Nivel de compresión: de 0, sin comprimir, a 9; 6 al principio.")
        .field<&clsFArchivo::Recursivo>(
            L"Recursivo",
            L"Si las carpetas se comprimen con lo que contienen; Verdadero al "
            L"principio.")
        .field<&clsFArchivo::Ocultos>(L"Ocultos",
                                      L"Si se comprimen los ficheros ocultos y de sistema que haya "
                                      L"en las carpetas; Verdadero al principio.")
        .field<&clsFArchivo::SinCarpetas>(
            L"SinCarpetas", L"Si de cada nombre se toma solo el fichero, sin sus carpetas.")
        .field<&clsFArchivo::Excluye>(L"Excluye",
                                      L"Patrones de lo que no se comprime, comprueba ni extrae, "
                                      L"separados por barras verticales.")
        .field<&clsFArchivo::Comentario>(
            L"Comentario", L"Comentario del archivo que se crea; vacío conserva el que hubiera.")
        .property<&clsFArchivo::get_Existentes, &clsFArchivo::set_Existentes>(
            L"Existentes", L"Qué se hace al extraer con los ficheros que ya existen.")
        .property<&clsFArchivo::get_LimiteBytes, &clsFArchivo::set_LimiteBytes>(
            L"LimiteBytes", L"Máximo que se extrae de un archivo, en bytes; 4 GB al principio.")
        .property<&clsFArchivo::get_LimiteProporcion, &clsFArchivo::set_LimiteProporcion>(
            L"LimiteProporcion",
            L"Máximo de bytes extraídos por cada byte comprimido de una entrada grande; 250 al "
            L"principio.")
        .method<&clsFArchivo::Comprime>(
            L"Comprime",
            {L"Archivo", L"Ficheros", optional(L"Base", L""), optional(L"Modo", 0),
             optional(L"Progreso")},
            L"Comprime ficheros, carpetas y patrones en un archivo zip.")
        .method<&clsFArchivo::Lista>(L"Lista", {L"Archivo"}, L"Las entradas de un archivo zip.")
        .method<&clsFArchivo::Prueba>(
            L"Prueba", {L"Archivo", optional(L"Patrones", L""), optional(L"Progreso")},
            L"Comprueba las entradas de un archivo zip sin extraerlas.")
        .method<&clsFArchivo::Extrae>(
            L"Extrae", {L"Archivo", L"Carpeta", optional(L"Patrones", L""), optional(L"Progreso")},
            L"Extrae las entradas de un archivo zip en una carpeta.");

}  // namespace

constinit const ClassInfo clsFArchivo::class_info = class_tables<declared>;

}  // namespace kovrel
