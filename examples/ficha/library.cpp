#include "library.h"

#include <kovrel.h>

namespace ficha {
namespace {

template <class Class>
Object create() {
    void* instance = nullptr;
    if (FAILED(CoCreateInstance(__uuidof(Class), nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                                &instance))) {
        throw NotRegistered();
    }
    const Owner<IDispatch> owner(static_cast<IDispatch*>(instance));
    return Object(Value(owner.get()));
}

/// One whose messages have the name of this application as their title.
template <class Class>
Object create_titled() {
    Object object = create<Class>();
    object.put(L"AppOrigen", Value(L"Clientes"));
    return object;
}

}  // namespace

Library::Library()
    : general(create_titled<Kovrel::clsFGen>()),
      messages(general.get(L"Mensajes")),
      dates(create_titled<Kovrel::clsFFechas>()),
      files(create<Kovrel::cgsFileOpR>()),
      images(create_titled<Kovrel::clsADODBServices>()),
      archives(create_titled<Kovrel::clsFZip>()) {}

}  // namespace ficha
