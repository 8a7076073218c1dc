#include "notices/notice_record.h"

#include <gtest/gtest.h>

namespace kovrel {
namespace {

/// 22 November 2026, and seconds of that day.
double moment(int seconds) {
    return 46348 + seconds / 86400.0;
}

std::shared_ptr<NotedAnnouncement> entry(std::wstring_view text) {
    auto result = std::make_shared<NotedAnnouncement>();
    result->text = text;
    result->time = moment(0);
    return result;
}

std::wstring texts(const NoticeRecord& record) {
    std::wstring all;
    for (const auto& each : record.entries()) all += each->text + L" ";
    return all;
}

TEST(NoticeRecord, KeepsTheLatestUpToItsLimit) {
    NoticeRecord record;
    EXPECT_EQ(record.limit(), 1000U);
    record.set_limit(2);
    record.add(entry(L"uno"));
    record.add(entry(L"dos"));
    EXPECT_EQ(texts(record), L"uno dos ");
    record.add(entry(L"tres"));
    EXPECT_EQ(texts(record), L"dos tres ");
    record.set_limit(1);
    EXPECT_EQ(texts(record), L"tres ");
    record.set_limit(0);
    record.add(entry(L"cuatro"));
    EXPECT_EQ(texts(record), L"");
    EXPECT_EQ(record.limit(), 0U);
}

TEST(NoticeRecord, IsCleared) {
    NoticeRecord record;
    record.add(entry(L"uno"));
    record.clear();
    EXPECT_EQ(texts(record), L"");
    EXPECT_EQ(record.text(), L"");
}

TEST(NoticeRecord, WritesALineForEachEntry) {
    NoticeRecord record;
    auto failure = entry(L"Error 91\r (falta\tel objeto)");
    failure->kind = AnnouncementKind::failure;
    failure->title = L"kovrel";
    failure->member = L"clsFGen.BarraProgreso";
    failure->failure = 91;
    failure->answer = Answer::ok;
    failure->time = moment(61 * 60 + 1);
    record.add(failure);
    auto question = entry(L"¿Sigo?\r\n¿O no?\n");
    question->kind = AnnouncementKind::question;
    question->answer = Answer::no;
    question->time = moment(86399);
    record.add(question);
    EXPECT_EQ(record.text(),
              L"2026-11-22 01:01:01\terror\tclsFGen.BarraProgreso\tkovrel\t91\tAceptar\t"
              L"Error 91  (falta el objeto)\r\n"
              L"2026-11-22 23:59:59\tpregunta\t\t\t\tNo\t¿Sigo? ¿O no? \r\n");
}

TEST(NoticeRecord, NamesTheKindsAndTheAnswers) {
    NoticeRecord record;
    const auto add = [&](AnnouncementKind kind, Answer answer) {
        auto added = entry(L"x");
        added->kind = kind;
        added->answer = answer;
        added->percentage = 5;
        record.add(added);
    };
    add(AnnouncementKind::message, Answer::none);
    add(AnnouncementKind::window, Answer::cancel);
    add(AnnouncementKind::progress, Answer::yes);
    EXPECT_EQ(record.text(),
              L"2026-11-22 00:00:00\tmensaje\t\t\t\t\tx\r\n"
              L"2026-11-22 00:00:00\tventana\t\t\t\tCancelar\tx\r\n"
              L"2026-11-22 00:00:00\tprogreso\t\t\t\tSí\t5 % x\r\n");
}

TEST(NoticeRecord, BeginsALineBreakAtTheBeginningToo) {
    NoticeRecord record;
    auto noon = entry(L"\n\ndos");
    noon->time = moment(12 * 3600);
    record.add(noon);
    EXPECT_EQ(record.text(), L"2026-11-22 12:00:00\tmensaje\t\t\t\t\t  dos\r\n");
}

TEST(NoticeRecord, RoundsTheTimeToTheNextDay) {
    NoticeRecord record;
    auto late = entry(L"x");
    late->time = 46387.9999999;  // 31 December
    record.add(late);
    EXPECT_EQ(record.text().substr(0, 19), L"2027-01-01 00:00:00");
}

}  // namespace
}  // namespace kovrel
