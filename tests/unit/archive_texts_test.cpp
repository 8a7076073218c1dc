#include "zip/archive_texts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kovrel {
namespace {

using zip::EntryState;

TEST(ArchiveTexts, EveryStateHasItsOwnText) {
    EXPECT_EQ(state_text(EntryState::done), L"");
    EXPECT_EQ(state_text(EntryState::left_out), L"no se ha pedido");
    EXPECT_EQ(state_text(EntryState::kept_existing), L"ya existía y se conserva");
    EXPECT_EQ(state_text(EntryState::not_newer), L"el fichero que había no es más antiguo");
    EXPECT_EQ(state_text(EntryState::declined), L"se ha decidido conservar el fichero que había");
    EXPECT_EQ(state_text(EntryState::bad_name),
              L"su nombre no puede ser el de un fichero o sale de la carpeta");
    EXPECT_EQ(state_text(EntryState::reserved_name), L"su nombre es el de un dispositivo");
    EXPECT_EQ(state_text(EntryState::through_link), L"una carpeta de su ruta es un enlace");
    EXPECT_EQ(state_text(EntryState::link), L"es un enlace");
    EXPECT_EQ(state_text(EntryState::encrypted), L"está cifrada");
    EXPECT_EQ(state_text(EntryState::unknown_method), L"su método de compresión no se conoce");
    EXPECT_EQ(state_text(EntryState::contradicting), L"sus dos cabeceras no coinciden");
    EXPECT_EQ(state_text(EntryState::damaged), L"sus datos están dañados");
    EXPECT_EQ(state_text(EntryState::wrong_checksum), L"su suma de comprobación no es correcta");
    EXPECT_EQ(state_text(EntryState::over_limit), L"supera los límites");
    EXPECT_EQ(state_text(EntryState::name_twice), L"su nombre está repetido");
    EXPECT_EQ(state_text(EntryState::cannot_create), L"no se puede crear o reemplazar");
    EXPECT_EQ(state_text(EntryState::write_failed), L"no se puede escribir");
    EXPECT_EQ(state_text(EntryState::read_failed), L"no se puede leer");
    EXPECT_EQ(state_text(EntryState::cannot_open), L"no se encuentra o no se puede abrir");
    // One of another engine.
    EXPECT_EQ(state_text(static_cast<EntryState>(99)), L"");
}

TEST(ArchiveTexts, OnlyWhatWasAskedForIsNoFault) {
    for (const auto state : {EntryState::done, EntryState::left_out, EntryState::kept_existing,
                             EntryState::not_newer, EntryState::declined}) {
        EXPECT_TRUE(is_as_asked(state));
    }
    EXPECT_FALSE(is_as_asked(EntryState::bad_name));
    EXPECT_FALSE(is_as_asked(EntryState::cannot_open));
    EXPECT_FALSE(is_as_asked(EntryState::over_limit));
}

TEST(ArchiveTexts, ProgressIsToldInWholeUnits) {
    constexpr std::uint64_t megabyte = 1 << 20;
    EXPECT_EQ(progress_text(L"Extrayendo", L"a/b.txt", 0, 0), L"Extrayendo a/b.txt (0 de 0 KB)");
    EXPECT_EQ(progress_text(L"Extrayendo", L"a", 1, 1025), L"Extrayendo a (1 de 2 KB)");
    EXPECT_EQ(progress_text(L"Extrayendo", L"a", 1024, 10 * megabyte - 1),
              L"Extrayendo a (1 de 10240 KB)");
    EXPECT_EQ(progress_text(L"Extrayendo", L"a", 1024, 10 * megabyte),
              L"Extrayendo a (1 de 10 MB)");
    EXPECT_EQ(progress_text(L"Extrayendo", L"a", 5 << 20, 5120 * megabyte),
              L"Extrayendo a (5 de 5120 MB)");
    EXPECT_EQ(progress_text(L"Extrayendo", L"a", 1, ~std::uint64_t{0}),
              L"Extrayendo a (1 de 17592186044416 MB)");
}

TEST(ArchiveTexts, TheQuestionNamesTheFile) {
    const Notice notice = may_be_replaced(L"Copias", L"C:\\a.txt");
    EXPECT_EQ(notice, (Notice{L"Ya existe el fichero \"C:\\a.txt\".\r¿Desea reemplazarlo?",
                              NoticeStyle::yes_or_no, L"Copias"}));
}

TEST(ArchiveTexts, ListsAreSplitAtBars) {
    EXPECT_THAT(split_list(L""), testing::IsEmpty());
    EXPECT_THAT(split_list(L"||"), testing::IsEmpty());
    EXPECT_THAT(split_list(L"*.tmp"), testing::ElementsAre(L"*.tmp"));
    EXPECT_THAT(split_list(L"|a; b|| c |"), testing::ElementsAre(L"a; b", L" c "));
}

TEST(ArchiveTexts, ChecksumsHaveEightDigits) {
    EXPECT_EQ(checksum_text(0), L"00000000");
    EXPECT_EQ(checksum_text(0x12AB), L"000012AB");
    EXPECT_EQ(checksum_text(0xFEDC9876), L"FEDC9876");
}

}  // namespace
}  // namespace kovrel
