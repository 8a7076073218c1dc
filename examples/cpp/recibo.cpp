// Kovrel from C++, early-bound through its header: the lines of a receipt.
//
//   recibo NIF IMPORTE MES AÑO
//
// Works with the library registered, and without: see recibo.exe.manifest.
#include <cstdio>
#include <cwchar>
#include <kovrel.h>
#include <memory>
#include <stdexcept>
#include <string>

namespace {

/// Owns a BSTR; the library's members change or fill in the variables that they are given.
class Text {
 public:
    explicit Text(const wchar_t* text = L"") : text_(SysAllocString(text)) {}
    Text(const Text&) = delete;
    Text& operator=(const Text&) = delete;
    ~Text() { SysFreeString(text_); }

    BSTR in() const { return text_; }
    BSTR* in_out() { return &text_; }
    BSTR* out() {
        SysFreeString(text_);
        text_ = nullptr;
        return &text_;
    }
    std::string utf8() const {
        const int length = static_cast<int>(SysStringLen(text_));
        std::string result(3 * static_cast<std::size_t>(length), '\0');
        const int size = WideCharToMultiByte(CP_UTF8, 0, text_, length, result.data(),
                                             static_cast<int>(result.size()), nullptr, nullptr);
        result.resize(static_cast<std::size_t>(size));
        return result;
    }

 private:
    BSTR text_;
};

struct Releaser {
    void operator()(IUnknown* object) const { object->Release(); }
};
template <class Interface>
using Owner = std::unique_ptr<Interface, Releaser>;

/// A failed call as an exception, with what the library left behind to describe it.
void check(HRESULT result) {
    if (SUCCEEDED(result)) return;
    IErrorInfo* info = nullptr;
    if (GetErrorInfo(0, &info) != S_OK) {
        char code[16] = "";
        std::snprintf(code, sizeof code, "0x%08lX", static_cast<unsigned long>(result));
        throw std::runtime_error(std::string("Error ") + code);
    }
    const Owner<IErrorInfo> owner(info);
    Text source;
    Text description;
    info->GetSource(source.out());
    info->GetDescription(description.out());
    throw std::runtime_error("Error " + std::to_string(HRESULT_CODE(result)) + " en " +
                             source.utf8() + ": " + description.utf8());
}

template <class Class, class Interface>
Owner<Interface> create() {
    void* instance = nullptr;
    check(CoCreateInstance(__uuidof(Class), nullptr, CLSCTX_INPROC_SERVER, __uuidof(Interface),
                           &instance));
    return Owner<Interface>(static_cast<Interface*>(instance));
}

void print_payer(const wchar_t* typed, double amount) {
    const auto general = create<Kovrel::clsFGen, Kovrel::_clsFGen>();
    Text application(L"Recibos");
    check(general->put_AppOrigen(application.in_out()));
    // Without messages: the identifier comes back corrected.
    VARIANT_BOOL messages = VARIANT_FALSE;
    Text tax_id;
    check(general->Verifica_NIF(Text(typed).in(), &messages, tax_id.out()));
    std::printf("NIF:     %s\n", tax_id.utf8().c_str());
    Text words;
    check(general->ConvEurosALetra(&amount, words.out()));
    std::printf("Importe: %s\n", words.utf8().c_str());
}

void print_term(short month, short year) {
    const auto calendar = create<Kovrel::clsFFechas, Kovrel::_clsFFechas>();
    DATE last_day = 0;
    check(calendar->UltimoDiaMesActual(&month, &year, &last_day));
    SYSTEMTIME day = {};
    VariantTimeToSystemTime(last_day, &day);
    BYTE number = static_cast<BYTE>(day.wMonth);
    Text name;
    check(calendar->mes_letra(&number, name.out()));
    std::printf("Vence:   %d de %s de %d\n", day.wDay, name.utf8().c_str(), day.wYear);
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    if (count != 5) {
        std::puts("recibo NIF IMPORTE MES AÑO");
        return 2;
    }
    SetConsoleOutputCP(CP_UTF8);
    CoInitialize(nullptr);
    int code = 0;
    try {
        print_payer(arguments[1], std::wcstod(arguments[2], nullptr));
        print_term(static_cast<short>(std::wcstol(arguments[3], nullptr, 10)),
                   static_cast<short>(std::wcstol(arguments[4], nullptr, 10)));
    } catch (const std::exception& failure) {
        std::printf("%s\n", failure.what());
        code = 1;
    }
    CoUninitialize();
    return code;
}
