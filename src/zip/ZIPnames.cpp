#include "zip/ZIPnames.h"

namespace kovrel {

constinit const RecordInfo ZIPnames::info{
    .name = L"ZIPnames",
    .help = L"Lista de archivos que se van a comprimir.",
    .id = {0x15bb8312, 0x9bf7, 0x4b46, {0x8a, 0x75, 0xac, 0xf9, 0xef, 0xcf, 0x3a, 0xd2}},
    .field = L"Nombres",
    .size = ZIPnames::size,
};

}  // namespace kovrel
