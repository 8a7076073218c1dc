#include "library.h"

namespace ficha {
namespace {

using kovrel::ComPtr;
using kovrel::HostObject;
using kovrel::Variant;

HostObject create(const wchar_t* prog_id) {
    CLSID id{};
    ComPtr<IDispatch> instance;
    if (FAILED(CLSIDFromProgID(prog_id, &id)) ||
        FAILED(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                                instance.put_void()))) {
        throw NotRegistered();
    }
    return HostObject(instance);
}

/// One whose messages have the name of this application as their title.
HostObject create_titled(const wchar_t* prog_id) {
    HostObject object = create(prog_id);
    object.put(L"AppOrigen", Variant(L"Clientes"));
    return object;
}

}  // namespace

Library::Library()
    : general(create_titled(L"Kovrel.clsFGen")),
      messages(general.get(L"Mensajes")),
      dates(create_titled(L"Kovrel.clsFFechas")),
      files(create(L"Kovrel.cgsFileOpR")),
      images(create_titled(L"Kovrel.clsADODBServices")),
      archives(create_titled(L"Kovrel.clsFZip")) {}

}  // namespace ficha
