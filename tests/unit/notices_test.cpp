#include <array>
#include <gtest/gtest.h>
#include <string>

#include "files/folder_notices.h"
#include "validation/combo_notices.h"
#include "zip/zip_notices.h"

namespace kovrel {
namespace {

TEST(FolderNotices, AskAndTell) {
    EXPECT_EQ(ask_to_create_folder(L"Copias", L"C:\\copias"),
              (Notice{L"La carpeta \"C:\\copias\" no existe.\r\r¿Desea crearla?",
                      NoticeStyle::ok_or_cancel, L"Copias"}));
    EXPECT_EQ(folder_created(L"Copias"),
              (Notice{L"Carpeta creada con éxito.", NoticeStyle::information, L"Copias"}));
    EXPECT_EQ(folder_not_created(L""),
              (Notice{L"No ha sido posible crear la carpeta.", NoticeStyle::critical, L""}));
}

TEST(ComboNotices, DependOnTheList) {
    EXPECT_EQ(combo_needs_list_item(L"Clientes"), (Notice{L"¡Seleccione un elemento de la lista!",
                                                          NoticeStyle::information, L"Clientes"}));
    EXPECT_EQ(combo_value_not_valid(L"Clientes"), (Notice{L"¡Valor no válido para este campo!",
                                                          NoticeStyle::exclamation, L"Clientes"}));
}

TEST(ZipNotices, OnlyTheFirstHasTheLibrarysTitle) {
    EXPECT_EQ(archive_needs_a_name(), (Notice{L"Debe indicar un nombre de fichero correcto.",
                                              NoticeStyle::exclamation, std::nullopt}));
    EXPECT_EQ(output_folder_missing(L"Copias", L"C:\\no está"),
              (Notice{L"La carpeta de salida \"C:\\no está\" no existe. Debe indicar una carpeta "
                      L"válida donde guardar el fichero comprimido.",
                      NoticeStyle::exclamation, L"Copias"}));
    EXPECT_EQ(archive_will_be_replaced(L""),
              (Notice{L"Ya existe un fichero con el mismo nombre en la misma carpeta. Si continúa "
                      L"el fichero será reemplazado.\rSi desea conservar el fichero antiguo "
                      L"cámbielo de nombre o de ubilicación antes de continuar...\r\r       Pulse "
                      L"\"Aceptar\" para continuar...",
                      NoticeStyle::exclamation, L""}));
    EXPECT_EQ(no_files_to_archive(L"Copias"),
              (Notice{L"No hay fichero para comprimir.", NoticeStyle::exclamation, L"Copias"}));
}

TEST(ZipRules, TheFirstEmptyNameEndsTheList) {
    std::array<std::wstring, 100> names;
    EXPECT_EQ(count_file_names(names), 0U);
    names[1] = L"b.txt";
    EXPECT_EQ(count_file_names(names), 0U);
    names[0] = L"a.txt";
    EXPECT_EQ(count_file_names(names), 2U);
    names.fill(L"x");
    EXPECT_EQ(count_file_names(names), 100U);
    EXPECT_EQ(count_file_names({}), 0U);
}

}  // namespace
}  // namespace kovrel
