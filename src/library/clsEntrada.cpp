#include "library/clsEntrada.h"

#include <utility>

#include "automation/declare.h"
#include "library/library.h"
#include "zip/archive_texts.h"

namespace kovrel {
namespace {

constexpr ClassIdentity identity{
    library_name,
    L"clsEntrada",
    {0x098ca3f7, 0x3019, 0x4398, {0x96, 0x18, 0xaf, 0x4d, 0x43, 0x1b, 0x1d, 0x71}},
    {0xbf9b64ea, 0x69cd, 0x4ea6, {0x9e, 0xd3, 0x2c, 0x76, 0x9d, 0x41, 0xc7, 0xa0}},
    1,
};

constexpr auto declared =
    declare<clsEntrada>(identity, L"Una entrada de un archivo zip. La da clsEntradas.",
                        Instancing::given)
        .read_only<&clsEntrada::get_Nombre>(L"Nombre",
                                            L"Nombre en el archivo, con / entre las carpetas.")
        .read_only<&clsEntrada::get_Ruta>(L"Ruta",
                                          L"Ruta del fichero o de la carpeta en el disco; vacía "
                                          L"si no la hay.")
        .read_only<&clsEntrada::get_Estado>(L"Estado", L"Qué ha sido de la entrada.")
        .read_only<&clsEntrada::get_Motivo>(L"Motivo",
                                            L"El estado, en palabras; vacío si está hecha.")
        .read_only<&clsEntrada::get_Bytes>(L"Bytes", L"Tamaño, en bytes.")
        .read_only<&clsEntrada::get_BytesComprimidos>(L"BytesComprimidos",
                                                      L"Tamaño comprimido, en bytes.")
        .read_only<&clsEntrada::get_Fecha>(L"Fecha", L"Fecha y hora de la última modificación.")
        .read_only<&clsEntrada::get_Metodo>(L"Metodo",
                                            L"Método de compresión: 0 sin comprimir, 8 deflate.")
        .read_only<&clsEntrada::get_CRC>(L"CRC",
                                         L"Suma de comprobación CRC-32: ocho cifras hexadecimales.")
        .read_only<&clsEntrada::get_EsCarpeta>(L"EsCarpeta", L"Si es una carpeta.")
        .read_only<&clsEntrada::get_Cifrada>(L"Cifrada", L"Si está cifrada.")
        .read_only<&clsEntrada::get_Comentario>(L"Comentario", L"Comentario de la entrada.");

}  // namespace

constinit const ClassInfo clsEntrada::class_info = class_tables<declared>;

InstanceOf<clsEntrada> clsEntrada::of(std::shared_ptr<const ArchiveEntry> entry) {
    InstanceOf<clsEntrada> instance(create_instance<clsEntrada>());
    implementation_of<clsEntrada>(instance.get()).entry_ = std::move(entry);
    return instance;
}

std::wstring clsEntrada::get_Motivo() const {
    return std::wstring(state_text(entry_->state));
}

std::wstring clsEntrada::get_CRC() const {
    return checksum_text(entry_->crc);
}

}  // namespace kovrel
