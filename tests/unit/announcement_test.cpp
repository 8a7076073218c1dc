#include "runtime/announcement.h"

#include <gtest/gtest.h>

namespace kovrel {
namespace {

Announcement box(NoticeStyle style) {
    return announcement_of({L"¿?", style, std::nullopt}, L"kovrel");
}

Announcement window() {
    Announcement result;
    result.kind = AnnouncementKind::window;
    return result;
}

TEST(Announcement, OfANoticeHasItsTextTitleAndStyle) {
    const Announcement own = announcement_of({L"uno", NoticeStyle::information, L"dos"}, L"kovrel");
    EXPECT_EQ(own.kind, AnnouncementKind::message);
    EXPECT_EQ(own.text, L"uno");
    EXPECT_EQ(own.title, L"dos");
    EXPECT_EQ(own.style, NoticeStyle::information);
    EXPECT_EQ(own.failure, 0);
    EXPECT_EQ(announcement_of({L"uno", NoticeStyle::plain, std::nullopt}, L"kovrel").title,
              L"kovrel");
    EXPECT_EQ(announcement_of({L"uno", NoticeStyle::plain, L""}, L"kovrel").title, L"");
}

TEST(Announcement, IsAFailureWithANumberAndAQuestionWithTwoButtons) {
    const Announcement failure =
        announcement_of({L"uno", NoticeStyle::critical, std::nullopt, 91}, L"kovrel");
    EXPECT_EQ(failure.kind, AnnouncementKind::failure);
    EXPECT_EQ(failure.failure, 91);
    EXPECT_EQ(box(NoticeStyle::yes_or_no).kind, AnnouncementKind::question);
    EXPECT_EQ(box(NoticeStyle::ok_or_cancel).kind, AnnouncementKind::question);
    EXPECT_EQ(box(NoticeStyle::critical).kind, AnnouncementKind::message);
}

TEST(Announcement, AllowsTheAnswersOfItsButtons) {
    using enum Answer;
    struct {
        Announcement announcement;
        bool allowed[5];
    } const cases[]{
        {box(NoticeStyle::plain), {false, true, false, false, false}},
        {box(NoticeStyle::exclamation), {false, true, false, false, false}},
        {box(NoticeStyle::ok_or_cancel), {false, true, true, false, false}},
        {box(NoticeStyle::yes_or_no), {false, false, false, true, true}},
        {window(), {false, false, true, false, false}},
    };
    for (const auto& each : cases) {
        int place = 0;
        for (const Answer answer : {none, ok, cancel, yes, no}) {
            EXPECT_EQ(allows(each.announcement, answer), each.allowed[place++])
                << static_cast<int>(each.announcement.style) << " " << static_cast<int>(answer);
        }
    }
}

TEST(Announcement, IsAnsweredByTheDefaultButtonOrByEsc) {
    EXPECT_EQ(default_answer(box(NoticeStyle::plain)), Answer::ok);
    EXPECT_EQ(default_answer(box(NoticeStyle::critical)), Answer::ok);
    EXPECT_EQ(default_answer(box(NoticeStyle::ok_or_cancel)), Answer::ok);
    EXPECT_EQ(default_answer(box(NoticeStyle::yes_or_no)), Answer::yes);
    EXPECT_EQ(default_answer(window()), Answer::cancel);
}

}  // namespace
}  // namespace kovrel
