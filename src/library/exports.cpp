// The functions that the DLL exports, and its entry point.
#include <windows.h>

#include "automation/server.h"
#include "library/library.h"
#include "services/announcer.h"

extern "C" {

HRESULT STDAPICALLTYPE DllGetClassObject(REFCLSID class_id, REFIID interface_id, void** result) {
    kovrel::prepare_for_nobody();
    return kovrel::get_class_object(kovrel::library, class_id, interface_id, result);
}

HRESULT STDAPICALLTYPE DllCanUnloadNow() {
    return kovrel::can_unload_now();
}

HRESULT STDAPICALLTYPE DllRegisterServer() {
    return kovrel::register_server(kovrel::library);
}

HRESULT STDAPICALLTYPE DllUnregisterServer() {
    return kovrel::unregister_server(kovrel::library);
}

#ifndef _WIN64
// The 32-bit run time leaks a thread-local slot at each unload even if the library was not used, so
// there it is pinned as soon as it is loaded.
BOOL WINAPI DllMain(HINSTANCE /*module*/, DWORD reason, void* /*reserved*/) {
    if (reason == DLL_PROCESS_ATTACH) kovrel::stay_loaded();
    return TRUE;
}
#endif

}  // extern "C"
