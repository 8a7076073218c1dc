#include "notices/notice_record.h"

#include <cmath>
#include <utility>

#include "runtime/calendar.h"
#include "runtime/text.h"

namespace kovrel {
namespace {

std::wstring_view name_of(AnnouncementKind kind) noexcept {
    switch (kind) {
        case AnnouncementKind::failure:
            return L"error";
        case AnnouncementKind::question:
            return L"pregunta";
        case AnnouncementKind::progress:
            return L"progreso";
        case AnnouncementKind::window:
            return L"ventana";
        default:
            return L"mensaje";
    }
}

std::wstring_view name_of(Answer answer) noexcept {
    switch (answer) {
        case Answer::ok:
            return L"Aceptar";
        case Answer::cancel:
            return L"Cancelar";
        case Answer::yes:
            return L"Sí";
        case Answer::no:
            return L"No";
        default:
            return {};
    }
}

std::wstring two_digits(std::int64_t number) {
    return with_leading_zeros(decimal_text(number), 2);
}

/// "2026-11-22 17:05:09", which sorts.
std::wstring time_text(double time) {
    constexpr std::int64_t seconds_a_day = std::int64_t{24} * 60 * 60;
    const auto seconds = static_cast<std::int64_t>(std::llround(time * seconds_a_day));
    const CivilDate day = civil_date(static_cast<std::int32_t>(seconds / seconds_a_day));
    const std::int64_t second = seconds % seconds_a_day;
    return concat({with_leading_zeros(decimal_text(day.year), 4), L"-", two_digits(day.month), L"-",
                   two_digits(day.day), L" ", two_digits(second / 3600), L":",
                   two_digits(second / 60 % 60), L":", two_digits(second % 60)});
}

/// A line break of two characters becomes one blank.
std::wstring on_one_line(std::wstring_view text) {
    std::wstring result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == L'\n' && i > 0 && text[i - 1] == L'\r') continue;
        const bool divides = text[i] == L'\r' || text[i] == L'\n' || text[i] == L'\t';
        result += divides ? L' ' : text[i];
    }
    return result;
}

std::wstring line_of(const NotedAnnouncement& entry) {
    std::wstring text = on_one_line(entry.text);
    if (entry.kind == AnnouncementKind::progress) {
        text = concat({decimal_text(entry.percentage), L" % ", text});
    }
    return concat({time_text(entry.time), L"\t", name_of(entry.kind), L"\t", entry.member, L"\t",
                   on_one_line(entry.title), L"\t",
                   entry.failure != 0 ? decimal_text(entry.failure) : L"", L"\t",
                   name_of(entry.answer), L"\t", text, L"\r\n"});
}

}  // namespace

void NoticeRecord::add(Entry entry) {
    entries_.push_back(std::move(entry));
    set_limit(limit_);
}

void NoticeRecord::set_limit(std::size_t limit) {
    limit_ = limit;
    while (entries_.size() > limit_) entries_.pop_front();
}

std::wstring NoticeRecord::text() const {
    std::wstring lines;
    for (const Entry& entry : entries_) lines += line_of(*entry);
    return lines;
}

}  // namespace kovrel
