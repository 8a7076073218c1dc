#include "frame/system_regional.h"

#include <windows.h>

#include <array>

#include "automation/bstr.h"

namespace kovrel {
namespace {

std::wstring setting(LCTYPE type) {
    std::array<wchar_t, 128> text{};
    const int length =
        GetLocaleInfoW(LOCALE_USER_DEFAULT, type, text.data(), static_cast<int>(text.size()));
    return length > 0 ? std::wstring(text.data()) : std::wstring();
}

wchar_t first_of(const std::wstring& text, wchar_t otherwise) {
    return text.empty() ? otherwise : text.front();
}

RegionalSettings current_settings() {
    return {.decimal_separator = first_of(setting(LOCALE_SDECIMAL), L'.'),
            .group_separator = first_of(setting(LOCALE_STHOUSAND), L','),
            .short_date = setting(LOCALE_SSHORTDATE),
            .date_separator = setting(LOCALE_SDATE)};
}

}  // namespace

SystemRegional::SystemRegional() : Regional(current_settings()) {}

std::optional<double> SystemRegional::number(std::wstring_view text) const {
    double value = 0;
    const Bstr copy(text);
    if (FAILED(VarR8FromStr(copy.get(), LOCALE_USER_DEFAULT, 0, &value))) return std::nullopt;
    return value;
}

std::optional<double> SystemRegional::date(std::wstring_view text) const {
    DATE value = 0;
    const Bstr copy(text);
    if (FAILED(VarDateFromStr(copy.get(), LOCALE_USER_DEFAULT, 0, &value))) return std::nullopt;
    return value;
}

}  // namespace kovrel
