#include "customer_export.h"

#include <cstdint>
#include <fstream>
#include <new>

namespace ficha {
namespace {

constexpr const wchar_t* sheet_name = L"cliente.txt";
constexpr const wchar_t* archive_name = L"cliente.zip";

/// A real export has as many steps as records; this one takes a moment for each of a hundred.
/// False when the user has canceled it.
bool prepare(const Object& general) {
    constexpr bool with_cancel_button = true;
    constexpr float seconds_a_step = 0.03F;
    general.call(L"BarraProgresoInicia",
                 {Value(L"Exportación del cliente"), Value(L"Preparando los datos…"),
                  Value(with_cancel_button)});
    bool canceled = false;
    for (std::int32_t percent = 0; percent <= 100 && !canceled; ++percent) {
        const std::wstring message = L"Apunte " + std::to_wstring(percent) + L" de 100";
        general.call(L"BarraProgresoActualiza", {Value(percent), Value(message)});
        general.call(L"Espera", {Value(seconds_a_step)});
        canceled = general.call(L"BarraProgresoCancelada").to_bool();
    }
    general.call(L"BarraProgresoFinaliza");
    return !canceled;
}

std::string utf8(const std::wstring& text) {
    const int size = static_cast<int>(text.size());
    std::string bytes(text.size() * 3, '\0');
    const int used = WideCharToMultiByte(CP_UTF8, 0, text.data(), size, bytes.data(),
                                         static_cast<int>(bytes.size()), nullptr, nullptr);
    bytes.resize(static_cast<std::size_t>(used));
    return bytes;
}

bool write_sheet(const std::filesystem::path& file,
                 const std::vector<CustomerRecord::Entry>& values) {
    std::ofstream sheet(file, std::ios::binary);
    sheet << "\xEF\xBB\xBF";  // tells text editors that it is UTF-8
    for (const auto& [field, text] : values) {
        sheet << utf8(field) << ": " << utf8(text) << "\r\n";
    }
    sheet.close();
    return !sheet.fail();
}

/// The list of files as an array, which late-bound callers pass instead of the record.
Value text_array(const std::vector<std::wstring>& texts) {
    Value list;
    list.parray = SafeArrayCreateVector(VT_BSTR, 0, static_cast<ULONG>(texts.size()));
    if (list.parray == nullptr) throw std::bad_alloc();
    list.vt = VT_ARRAY | VT_BSTR;
    for (LONG index = 0; index < static_cast<LONG>(texts.size()); ++index) {
        const Value text(texts[static_cast<std::size_t>(index)]);
        SafeArrayPutElement(list.parray, &index, text.bstrVal);
    }
    return list;
}

}  // namespace

void export_customer(const Library& library, const ExportJob& job) {
    if (!prepare(library.general)) {
        library.messages.call(L"MsjProcesoCancelado");
        return;
    }
    std::error_code ignored;  // failures are reported below
    std::filesystem::create_directories(job.folder, ignored);
    const std::filesystem::path sheet = job.folder / sheet_name;
    std::vector<std::wstring> files{sheet.wstring()};
    if (!job.photograph.empty()) files.push_back(job.photograph.wstring());
    std::wstring archive;
    if (write_sheet(sheet, job.values)) {
        archive = library.archives
                      .call(L"GenerarZip",
                            {Value(archive_name), Value(job.folder.wstring()), text_array(files)})
                      .to_text();
    }
    if (archive.empty()) {
        library.messages.call(L"MsjNoEsPosibleRealizarOperacionMasTexto",
                              {Value(L"No se ha podido escribir en " + job.folder.wstring())});
        return;
    }
    std::wstring report =
        L"El cliente se ha exportado a este archivo:\r\r    " + archive + L"\r\rContiene:\r\r";
    for (const std::wstring& file : files) {
        report += L"    " + std::filesystem::path(file).filename().wstring() + L"\r";
    }
    constexpr bool proportional_font = true;
    library.messages.call(
        L"MsgFormA", {Value(L"Exportación del cliente"), Value(report), Value(proportional_font)});
}

}  // namespace ficha
