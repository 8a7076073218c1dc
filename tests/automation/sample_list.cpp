#include "tests/automation/sample_list.h"

#include <array>
#include <utility>

#include "automation/bstr.h"
#include "automation/declare.h"
#include "automation/enumerator.h"

namespace kovrel::test {
namespace {

constexpr ClassIdentity list_identity{
    L"Prueba",
    L"SampleList",
    {0x7c1d6c52, 0x4d2f, 0x4a1c, {0x9f, 0x60, 0x1b, 0x0d, 0x3e, 0x55, 0x10, 0x04}},
    {0x7c1d6c52, 0x4d2f, 0x4a1c, {0x9f, 0x60, 0x1b, 0x0d, 0x3e, 0x55, 0x10, 0x05}},
    2,
    3,
    &sample_events};

constexpr auto declared_list = declare<SampleList>(list_identity, L"", Instancing::given)
                                   .read_only<&SampleList::get_Count>(L"Count", L"")
                                   .method<&SampleList::Item>(L"Item", {L"lugar"}, L"")
                                   .read_only<&SampleList::get_NewEnum>(L"_NewEnum", L"")
                                   .method<&SampleList::Agrega>(L"Agrega", {L"texto"}, L"");

constexpr auto adding_parameters =
    event_parameters<std::wstring, std::wstring&, bool&>({L"texto", L"otro", L"seAgrega"});
constexpr EventsInfo::Event events_of_list[]{
    {L"Agregando", L"", SampleList::adding, adding_parameters}};

}  // namespace

constinit const EventsInfo sample_events{
    L"_SampleListEvents",
    L"",
    {0x7c1d6c52, 0x4d2f, 0x4a1c, {0x9f, 0x60, 0x1b, 0x0d, 0x3e, 0x55, 0x10, 0x06}},
    events_of_list};

constinit const ClassInfo SampleList::class_info = class_tables<declared_list>;

std::int32_t SampleList::get_Count() const {
    return static_cast<std::int32_t>(texts_.size());
}

std::wstring SampleList::Item(std::int32_t place) const {
    if (place < 1 || place > get_Count()) throw Failure(FailureNumber::subscript_out_of_range);
    return texts_[static_cast<std::size_t>(place) - 1];
}

ComPtr<IUnknown> SampleList::get_NewEnum() const {
    std::vector<Variant> values;
    for (const std::wstring& text : texts_) values.emplace_back(text);
    return enumeration_of(std::move(values));
}

bool SampleList::Agrega(std::wstring_view texto) {
    const Variant text(texto);
    Variant other(texto);
    VARIANT_BOOL wanted = VARIANT_TRUE;
    std::array<VARIANT, 3> arguments{};
    arguments[0] = text;
    arguments[1].vt = VT_BYREF | VT_BSTR;
    arguments[1].pbstrVal = &other.bstrVal;
    arguments[2].vt = VT_BYREF | VT_BOOL;
    arguments[2].pboolVal = &wanted;
    events.fire(adding, arguments);
    if (wanted != VARIANT_FALSE) texts_.emplace_back(text_of(other.bstrVal));
    return wanted != VARIANT_FALSE;
}

}  // namespace kovrel::test
