// Filters and buffers of the open-file dialog.
#include "files/open_dialog_text.h"

#include <gtest/gtest.h>

#include "runtime/failure.h"

namespace kovrel {
namespace {

using namespace std::string_literals;

TEST(OpenDialogText, PairsBecomeADoubleNullTerminatedList) {
    EXPECT_EQ(system_filter(L"Textos|*.txt"), L"Textos\0*.txt\0\0"s);
    EXPECT_EQ(system_filter(L"Textos|*.txt|"), L"Textos\0*.txt\0\0"s);
    EXPECT_EQ(system_filter(L"  Textos (*.txt) | *.txt|Todos|*.* "),
              L"Textos (*.txt) \0 *.txt\0Todos\0*.*\0\0"s);
    EXPECT_EQ(system_filter(L"|"), L"\0\0"s);
    EXPECT_EQ(system_filter(L" | "), L"\0\0"s);
    EXPECT_EQ(system_filter(L"||"), L"\0\0\0"s);
    EXPECT_EQ(system_filter(L"A||B|*.b"), L"A\0\0B\0*.b\0\0"s);
    EXPECT_EQ(system_filter(L"A|*.a| "), L"A\0*.a\0\0"s);
    EXPECT_EQ(system_filter(L"\tA|*.a"), L"\tA\0*.a\0\0"s);
    EXPECT_EQ(system_filter(L"A\0*.a|B"s), L"A\0*.a\0B\0\0"s);
}

TEST(OpenDialogText, OtherTextsAreKeptOrEmpty) {
    EXPECT_EQ(system_filter(L" A\0*.a\0\0"s), L" A\0*.a\0\0"s);
    EXPECT_EQ(system_filter(L"\0"s), L"\0"s);
    EXPECT_EQ(system_filter(L""), L"");
    EXPECT_EQ(system_filter(L"*.txt"), L"");
    EXPECT_EQ(system_filter(L"   "), L"");
    EXPECT_EQ(every_file_filter, L"Todos los Archivos (*.*)\0*.*\0\0"s);
}

TEST(OpenDialogText, BuffersHave260Characters) {
    EXPECT_EQ(open_dialog_buffer(L""), std::wstring(260, L'\0'));
    EXPECT_EQ(open_dialog_buffer(L"ab"), L"ab"s + std::wstring(258, L'\0'));
    EXPECT_EQ(open_dialog_buffer(std::wstring(259, L'x')), std::wstring(259, L'x') + L"\0"s);
    EXPECT_EQ(open_dialog_buffer(std::wstring(300, L'x')), std::wstring(260, L'x'));
}

TEST(OpenDialogText, OneFileEndsAtTheFirstNull) {
    EXPECT_EQ(single_choice(open_dialog_buffer(L"C:\\a b.txt")), L"C:\\a b.txt");
    EXPECT_EQ(single_choice(L"a\0b\0\0"s), L"a");
    EXPECT_EQ(single_choice(open_dialog_buffer(L"")), L"");
    EXPECT_EQ(single_choice(open_dialog_buffer(std::wstring(259, L'x'))), std::wstring(259, L'x'));
}

TEST(OpenDialogText, APathThatFillsTheBufferFails) {
    for (const std::wstring& buffer : {std::wstring(260, L'x'), std::wstring()}) {
        try {
            (void)single_choice(buffer);
            ADD_FAILURE() << "no failure";
        } catch (const Failure& failure) {
            EXPECT_EQ(failure.number(), 5);
        }
    }
}

TEST(OpenDialogText, SeveralFilesAreQuoted) {
    EXPECT_EQ(multiple_choice(open_dialog_buffer(L"d\0a\0b"s)), L"\"d\" \"a\" \"b\"");
    EXPECT_EQ(multiple_choice(open_dialog_buffer(L"C:\\Mis datos\\uno.txt")),
              L"\"C:\\Mis datos\\uno.txt\"");
    EXPECT_EQ(multiple_choice(open_dialog_buffer(L" d \0 a "s)), L"\"d \" \" a\"");
    EXPECT_EQ(multiple_choice(open_dialog_buffer(L"a\0\0b"s)), L"\"a\" \"\" \"b\"");
    EXPECT_EQ(multiple_choice(open_dialog_buffer(L"")), L"\"\"");
    EXPECT_EQ(multiple_choice(L""), L"\"\"");
    EXPECT_EQ(multiple_choice(std::wstring(260, L'x')), L"\"" + std::wstring(260, L'x') + L"\"");
}

}  // namespace
}  // namespace kovrel
