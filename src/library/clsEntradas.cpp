#include "library/clsEntradas.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "automation/declare.h"
#include "automation/enumerator.h"
#include "automation/variant_argument.h"
#include "library/library.h"
#include "runtime/failure.h"
#include "runtime/text.h"
#include "zip/archive_texts.h"

namespace kovrel {
namespace {

constexpr ClassIdentity identity{
    library_name,
    L"clsEntradas",
    {0xd46194a0, 0xde12, 0x42e4, {0x81, 0x9a, 0xd3, 0x92, 0x87, 0x56, 0x1f, 0x13}},
    {0xbdd6d79a, 0xda39, 0x476e, {0xbb, 0xcd, 0x29, 0xec, 0x9e, 0x90, 0x8d, 0x9a}},
    2,
    3,
};

constexpr auto declared =
    declare<clsEntradas>(identity,
                         L"Las entradas de un archivo zip y qué ha sido de cada una. La da "
                         L"clsFArchivo.",
                         Instancing::given)
        .read_only<&clsEntradas::get_Count>(L"Count", L"Número de entradas.")
        .method<&clsEntradas::Item>(L"Item", {L"Indice"},
                                    L"Una entrada, por su número desde 1 o por su nombre.")
        .read_only<&clsEntradas::get_NewEnum>(L"_NewEnum", L"Las entradas, para For Each.")
        .read_only<&clsEntradas::get_Hechas>(
            L"Hechas", L"Número de entradas comprimidas, correctas o extraídas.")
        .read_only<&clsEntradas::get_Fallidas>(L"Fallidas",
                                               L"Número de entradas que no se han podido tratar.")
        .read_only<&clsEntradas::get_Completo>(
            L"Completo", L"Si todo se ha hecho como se pidió: sin fallos y sin cancelarlo.")
        .read_only<&clsEntradas::get_Cancelado>(L"Cancelado", L"Si se ha cancelado.")
        .read_only<&clsEntradas::get_Bytes>(L"Bytes", L"Tamaño de las entradas hechas, en bytes.")
        .read_only<&clsEntradas::get_BytesComprimidos>(
            L"BytesComprimidos", L"Tamaño comprimido de las entradas hechas, en bytes.")
        .read_only<&clsEntradas::get_Comentario>(L"Comentario", L"Comentario del archivo.")
        .method<&clsEntradas::ATexto>(
            L"ATexto",
            L"Las entradas en líneas de texto, con los datos separados por tabuladores.");

double sum_of(const ArchiveReport& report, std::uint64_t ArchiveEntry::*size) {
    double sum = 0;
    for (const ArchiveEntry& entry : report.entries) {
        if (entry.state == zip::EntryState::done) sum += static_cast<double>(entry.*size);
    }
    return sum;
}

}  // namespace

constinit const ClassInfo clsEntradas::class_info = class_tables<declared>;

InstanceOf<clsEntradas> clsEntradas::of(ArchiveReport report) {
    InstanceOf<clsEntradas> instance(create_instance<clsEntradas>());
    implementation_of<clsEntradas>(instance.get()).report_ =
        std::make_shared<const ArchiveReport>(std::move(report));
    return instance;
}

InstanceOf<clsEntrada> clsEntradas::entry(const ArchiveEntry& entry) const {
    return clsEntrada::of({report_, &entry});
}

std::int32_t clsEntradas::get_Count() const {
    return static_cast<std::int32_t>(report_->entries.size());
}

InstanceOf<clsEntrada> clsEntradas::Item(ValueArgument Indice) const {
    Variant index;
    const HRESULT copied = copy_followed(index, Indice.value());
    if (FAILED(copied)) throw_conversion_failure(copied);
    const auto& entries = report_->entries;
    auto found = entries.end();
    if (index.vt == VT_BSTR) {
        const std::wstring name = index.to_text();
        found = std::ranges::find(entries, name, &ArchiveEntry::name);
        if (found == entries.end()) {
            found = std::ranges::find_if(entries, [&](const ArchiveEntry& entry) {
                return equal_without_case(entry.name, name);
            });
        }
    } else if (const std::int32_t place = index.to_int32(); place >= 1 && place <= get_Count()) {
        found = entries.begin() + (place - 1);
    }
    if (found == entries.end()) throw Failure(FailureNumber::subscript_out_of_range);
    return entry(*found);
}

ComPtr<IUnknown> clsEntradas::get_NewEnum() const {
    std::vector<Variant> values;
    for (const ArchiveEntry& each : report_->entries) values.emplace_back(entry(each));
    return enumeration_of(std::move(values));
}

std::int32_t clsEntradas::get_Hechas() const {
    return static_cast<std::int32_t>(
        std::ranges::count(report_->entries, zip::EntryState::done, &ArchiveEntry::state));
}

std::int32_t clsEntradas::get_Fallidas() const {
    return static_cast<std::int32_t>(std::ranges::count_if(
        report_->entries, [](const ArchiveEntry& each) { return !is_as_asked(each.state); }));
}

double clsEntradas::get_Bytes() const {
    return sum_of(*report_, &ArchiveEntry::size);
}

double clsEntradas::get_BytesComprimidos() const {
    return sum_of(*report_, &ArchiveEntry::packed_size);
}

std::wstring clsEntradas::ATexto() const {
    std::wstring text;
    for (const ArchiveEntry& each : report_->entries) {
        text += concat({each.name, L"\t", decimal_text(static_cast<std::int64_t>(each.size)), L"\t",
                        decimal_text(static_cast<std::int64_t>(each.packed_size)), L"\t",
                        state_text(each.state), L"\r\n"});
    }
    return text;
}

}  // namespace kovrel
