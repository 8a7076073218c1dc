// Fills a multi-column combo box from record sets of 10 to 100,000 rows of three fields: the calls
// made to the host's objects, and the library's own time per row, from reading the rows to
// assigning the list, which must not grow with their number.
#include <windows.h>

#include <algorithm>
#include <chrono>
#include <cstdio>

#include "automation/host_object.h"
#include "automation/object.h"
#include "automation/safe_array.h"
#include "library/clsFGen.h"
#include "tests/support/scripted_object.h"
#include "tests/support/table.h"

namespace kovrel::bench {

using Clock = std::chrono::steady_clock;

/// Records the time when List is assigned; a scripted object would copy the list first.
class ComboSink final : public IDispatch {
 public:
    Clock::time_point arrival;
    int lists = 0;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID /*id*/, void** result) override {
        *result = this;
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* /*count*/) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT /*index*/, LCID /*locale*/,
                                          ITypeInfo** /*result*/) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID /*id*/, LPOLESTR* names, UINT /*count*/,
                                            LCID /*locale*/, DISPID* ids) override {
        ids[0] = std::wstring_view(names[0]) == L"List" ? 2 : 1;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID /*id*/, LCID /*locale*/, WORD /*flags*/,
                                     DISPPARAMS* /*parameters*/, VARIANT* result,
                                     EXCEPINFO* /*exception*/, UINT* /*bad_argument*/) override {
        arrival = Clock::now();
        if (member == 2) ++lists;
        if (result != nullptr) *result = Variant(std::int32_t{3}).detach();
        return S_OK;
    }
};

Variant table_of(std::int32_t rows) {
    Variant table = test::new_table(3, rows);
    const ArrayAccess<VARIANT> access(table.parray);
    std::size_t next = 0;
    for (std::int32_t row = 0; row < rows; ++row) {
        access.elements()[next++] = Variant(row).detach();
        access.elements()[next++] = Variant(L"Cliente " + std::to_wstring(row)).detach();
        access.elements()[next++] = Variant(row * 0.5).detach();
    }
    return table;
}

void measure(const HostObject& general, std::int32_t rows) {
    ComboSink combo;
    int reads = 0;
    auto best = Clock::duration::max();
    for (int repeats = 0; repeats < 5; ++repeats) {
        Variant table = table_of(rows);
        Clock::time_point departure;
        auto records = test::ScriptedObject::make();
        records->property(L"RecordCount", Variant(rows))
            .property(L"Bookmark", Variant(1.0))
            .method(L"MoveFirst")
            .method(L"GetRows", [&](const auto&) {
                ++reads;
                departure = Clock::now();
                return std::move(table);
            });
        general.call(L"cargaComboMSFormsDeRecordset", {Variant(ComPtr<IDispatch>(&combo)),
                                                       Variant(ComPtr<IDispatch>(records.get()))});
        best = std::min(best, combo.arrival - departure);
    }
    const double nanoseconds = std::chrono::duration<double, std::nano>(best).count();
    std::printf("%10d %14.1f %14.1f %12.1f\n", static_cast<int>(rows), reads / 5.0,
                combo.lists / 5.0, nanoseconds / rows);
}

}  // namespace kovrel::bench

int main() {
    const kovrel::HostObject general(kovrel::create_instance<kovrel::clsFGen>());
    std::printf("%10s %14s %14s %12s\n", "rows", "GetRows calls", "List calls", "ns per row");
    for (const std::int32_t rows : {10, 100, 1'000, 10'000, 100'000}) {
        kovrel::bench::measure(general, rows);
    }
    return 0;
}
