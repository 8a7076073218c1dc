// Members whose only possible failure is lack of memory: the box that they show.
#include <windows.h>

#include <cstdlib>
#include <gtest/gtest.h>

#include "tests/support/every_way.h"
#include "tests/support/import_patch.h"

namespace kovrel::test {
namespace {

/// Grants only the first of the library's large allocations.
class LimitedMemory {
 public:
    static constexpr std::size_t large = std::size_t{1} << 20;

    explicit LimitedMemory(int granted) { left = granted; }
    [[nodiscard]] bool in_place() const { return patch_.in_place(); }
    /// True when an allocation has been refused.
    [[nodiscard]] static bool ran_out() { return left < 0; }

 private:
    static inline int left = 0;
    static void* give(std::size_t size) {
        if (size >= large && --left < 0) return nullptr;
        return std::malloc(size);
    }

    const ImportPatch patch_{L"kovrel.dll", "malloc", reinterpret_cast<void*>(&give)};
};

struct Case {
    const wchar_t* class_name;
    const wchar_t* member;
    std::vector<Variant> arguments;
    /// Large allocations made before the member's body runs: none for a text by value, one for a
    /// text by reference, two for one that is written back.
    int for_the_call;
    const wchar_t* box;
    std::string result;
};

std::vector<Case> cases() {
    const Variant text(std::wstring(LimitedMemory::large, L'a'));
    const Variant word(L"x");
    const std::string nothing = shown(Variant());
    return {
        {L"Kovrel.clsMensajes",
         L"MsjBD_ErrorAlAbrirBaseDatos",
         {text},
         1,
         L"Error 7\r (Memoria insuficiente) en procedimiento MsjBD_ErrorAlAbrirBaseDatos del "
         L"Módulo de clase clsMensajes.",
         nothing},
        {L"Kovrel.clsProfile",
         L"AñadirBackSlash",
         {text},
         0,
         L"Error 7\r (Memoria insuficiente) en procedimiento AñadirBackSlash del Módulo de clase "
         L"clsProfile.",
         "texto "},
        {L"Kovrel.clsProfile",
         L"QuitarBackSlash",
         {text},
         0,
         L"Error 7\r (Memoria insuficiente) en procedimiento QuitarBackSlash del Módulo de clase "
         L"clsProfile.",
         "texto "},
        {L"Kovrel.clsProfile",
         L"GuardarIni",
         {text, word, word, word},
         2,
         L"Error 7\r (Memoria insuficiente) en procedimiento GuardarIni del Módulo de clase "
         L"clsProfile.",
         nothing},
        {L"Kovrel.clsProfile",
         L"LeerIni",
         {text, word, word},
         2,
         L"Error 7\r (Memoria insuficiente) en procedimiento LeerIni del Módulo clsProfile.",
         "texto "},
        {L"Kovrel.clsProfile",
         L"RutadeArchivo",
         {text},
         1,
         L"Error 7\r (Memoria insuficiente) en procedimiento RutadeArchivo del Módulo de clase "
         L"clsProfile.",
         "texto "},
        {L"Kovrel.clsProfile",
         L"BrowseForFolder",
         {Variant(std::int32_t{0}), word, text},
         1,
         L"Error 7\r (Memoria insuficiente) en procedimiento BrowseForFolder del Módulo de clase "
         L"clsProfile.",
         "texto "},
    };
}

class LimitedMemoryAnySettings : public testing::TestWithParam<Way> {};

TEST_P(LimitedMemoryAnySettings, IsReportedByTheMemberThatRanOut) {
    for (const Case& one : cases()) {
        const auto object = create(one.class_name);
        const LimitedMemory memory(one.for_the_call);
        ASSERT_TRUE(memory.in_place());
        const Answer answer = call_in(GetParam(), object.get(), one.member, one.arguments,
                                      {{one.box, 16, L"kovrel"}});
        EXPECT_EQ(answer.result, S_OK);
        EXPECT_EQ(shown(answer.value), one.result);
        EXPECT_TRUE(LimitedMemory::ran_out());
    }
}

TEST_P(LimitedMemoryAnySettings, FailsTheCallWhereTheArgumentsCannotBeConverted) {
    for (const Case& one : cases()) {
        if (one.for_the_call == 0) continue;
        const auto object = create(one.class_name);
        const LimitedMemory memory(0);
        ASSERT_TRUE(memory.in_place());
        const Answer answer = call_in(GetParam(), object.get(), one.member, one.arguments,
                                      std::vector<ExpectedBox>{});
        EXPECT_EQ(answer.result, failure(7));
        EXPECT_EQ(narrow(answer.description), narrow(L"Memoria insuficiente"));
    }
}

INSTANTIATE_TEST_SUITE_P(All, LimitedMemoryAnySettings, testing::ValuesIn(every_way));

}  // namespace
}  // namespace kovrel::test
