// The four functions that the operating system calls.
#include <windows.h>

#include "automation/server.h"
#include "frame/library.h"

extern "C" {

HRESULT STDAPICALLTYPE DllGetClassObject(REFCLSID class_id, REFIID interface_id, void** result) {
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
// The 32-bit run time takes a thread-local slot whenever the library is loaded and does not give it
// back, used or not; there it stays from its first loading on.
BOOL WINAPI DllMain(HINSTANCE /*module*/, DWORD reason, void* /*reserved*/) {
    if (reason == DLL_PROCESS_ATTACH) kovrel::stay_loaded();
    return TRUE;
}
#endif

}  // extern "C"
