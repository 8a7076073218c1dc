#include "notices/preset_answers.h"

#include <gtest/gtest.h>

#include "tests/support/failure_of.h"

namespace kovrel {
namespace {

constexpr std::int32_t yes_no = 4;
constexpr std::int32_t yes_no_with_icon = 36;
constexpr std::int32_t ok_cancel = 1;

Announcement question(std::wstring_view text, NoticeStyle style = NoticeStyle::yes_or_no) {
    return announcement_of({std::wstring(text), style, std::nullopt}, L"kovrel");
}

TEST(PresetAnswers, AreTheDefaultButtonsWithoutAny) {
    const PresetAnswers presets;
    EXPECT_EQ(presets.answer_to(question(L"¿Sigo?")), Answer::yes);
    EXPECT_EQ(presets.answer_to(question(L"¿Sigo?", NoticeStyle::ok_or_cancel)), Answer::ok);
    EXPECT_EQ(presets.answer_to(question(L"Fin", NoticeStyle::critical)), Answer::ok);
}

TEST(PresetAnswers, AreForTheButtonsOfTheirStyle) {
    PresetAnswers presets;
    presets.set(yes_no, L"", Answer::no);
    EXPECT_EQ(presets.answer_to(question(L"¿Sigo?")), Answer::no);
    EXPECT_EQ(presets.answer_to(question(L"¿Sigo?", NoticeStyle::ok_or_cancel)), Answer::ok);
    presets.set(ok_cancel, L"", Answer::cancel);
    EXPECT_EQ(presets.answer_to(question(L"¿Sigo?", NoticeStyle::ok_or_cancel)), Answer::cancel);
    EXPECT_EQ(presets.answer_to(question(L"¿Sigo?")), Answer::no);
    presets.set(yes_no_with_icon, L"", Answer::yes);
    EXPECT_EQ(presets.answer_to(question(L"¿Sigo?")), Answer::yes);
}

TEST(PresetAnswers, WithALongerTextComeFirst) {
    PresetAnswers presets;
    presets.set(yes_no, L"FACTURACIÓN", Answer::no);
    presets.set(yes_no, L"", Answer::yes);
    EXPECT_EQ(presets.answer_to(question(L"¿Desea editar la facturación generada?")), Answer::no);
    EXPECT_EQ(presets.answer_to(question(L"¿Otra cosa?")), Answer::yes);
    presets.set(yes_no, L"editar la facturación", Answer::yes);
    EXPECT_EQ(presets.answer_to(question(L"¿Desea editar la facturación generada?")), Answer::yes);
}

TEST(PresetAnswers, OfTheSameLengthAreTheLatest) {
    PresetAnswers presets;
    presets.set(yes_no, L"uno", Answer::no);
    presets.set(yes_no, L"dos", Answer::yes);
    EXPECT_EQ(presets.answer_to(question(L"uno y dos")), Answer::yes);
    presets.set(yes_no, L"UNO", Answer::no);
    EXPECT_EQ(presets.answer_to(question(L"uno y dos")), Answer::no);
}

TEST(PresetAnswers, AreTakenBackAlone) {
    PresetAnswers presets;
    presets.set(yes_no, L"uno", Answer::no);
    presets.set(yes_no, L"dos", Answer::no);
    presets.set(yes_no, L"Uno", Answer::none);
    EXPECT_EQ(presets.answer_to(question(L"uno")), Answer::yes);
    EXPECT_EQ(presets.answer_to(question(L"dos")), Answer::no);
    presets.set(ok_cancel, L"dos", Answer::none);
    EXPECT_EQ(presets.answer_to(question(L"dos")), Answer::no);
}

TEST(PresetAnswers, MustBeAnswersOfTheButtons) {
    PresetAnswers presets;
    const auto failure = [&](std::int32_t style, Answer answer) {
        return failure_of([&] { presets.set(style, L"", answer); });
    };
    EXPECT_EQ(failure(yes_no, Answer::ok), 5);
    EXPECT_EQ(failure(ok_cancel, Answer::yes), 5);
    EXPECT_EQ(failure(0, Answer::cancel), 5);
    EXPECT_EQ(failure(0, Answer::ok), 0);
    EXPECT_EQ(failure(yes_no, static_cast<Answer>(99)), 5);
    for (const std::int32_t style : {2, 3, 5, 15, -1}) EXPECT_EQ(failure(style, Answer::ok), 5);
    EXPECT_EQ(presets.answer_to(question(L"¿Sigo?")), Answer::yes);
}

TEST(PresetAnswers, DoNotAnswerWindows) {
    PresetAnswers presets;
    presets.set(0, L"", Answer::ok);
    Announcement window;
    window.kind = AnnouncementKind::window;
    EXPECT_EQ(presets.answer_to(window), Answer::cancel);
}

}  // namespace
}  // namespace kovrel
