// A host that ends with its objects still held by one of its modules:
//   exit_program kovrel.dll (exit | return)
// The module comes in with the program, before the library.
#include <kovrel.h>
#include <string_view>

#include "automation/com_ptr.h"
#include "tests/exit/early_host.h"

namespace {

using kovrel::ComPtr;

ComPtr<IDispatch> create(HMODULE library, const CLSID& class_id) {
    using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
    const auto get_class_object = reinterpret_cast<GetClassObject>(
        reinterpret_cast<void (*)()>(GetProcAddress(library, "DllGetClassObject")));
    ComPtr<IClassFactory> factory;
    ComPtr<IDispatch> instance;
    if (SUCCEEDED(get_class_object(class_id, IID_IClassFactory, factory.put_void()))) {
        factory->CreateInstance(nullptr, IID_IDispatch, instance.put_void());
    }
    return instance;
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    if (count != 3) return 2;
    CoInitialize(nullptr);
    HMODULE const library = LoadLibraryW(arguments[1]);
    if (library == nullptr) return 3;
    {
        const auto dates = create(library, __uuidof(Kovrel::clsFFechas));
        const auto literals = create(library, __uuidof(Kovrel::clsCSQL));
        const auto general = create(library, __uuidof(Kovrel::clsFGen));
        if (!dates || !literals || !general) return 4;
        keep_to_the_end(dates.get(), literals.get(), general.get());
    }
    if (std::wstring_view(arguments[2]) == L"exit") ExitProcess(0);
    return 0;
}
