// Kovrel sin registrar y sin tocar el manifiesto del programa: se activa el de la biblioteca.
//
//   sin_registro C:\CARPETA\Kovrel.Assembly.manifest 12345678
//
// Sirve para los programas que se ejecutan dentro de otro, como una DLL o un complemento. En la carpeta del
// manifiesto está kovrel.dll, de los mismos bits que el programa.
#include <kovrel.h>
#include <stdio.h>
#include <wchar.h>

static int Falla(const char* paso, unsigned long codigo) {
    printf("%s: 0x%08lX\n", paso, codigo);
    return 1;
}

int wmain(int cuantos, wchar_t** argumentos) {
    ACTCTXW contexto = {.cbSize = sizeof contexto};
    HANDLE activable = NULL;
    ULONG_PTR activado = 0;
    _clsFGen* general = NULL;
    HRESULT resultado = S_OK;
    long dni = 0;
    BSTR letra = NULL;
    if (cuantos != 3) return 2;
    contexto.lpSource = argumentos[1];
    activable = CreateActCtxW(&contexto);
    if (activable == INVALID_HANDLE_VALUE) return Falla("CreateActCtxW", GetLastError());
    CoInitialize(NULL);
    // Solo hace falta mientras se crea el objeto.
    ActivateActCtx(activable, &activado);
    resultado =
        CoCreateInstance(&CLSID_clsFGen, NULL, CLSCTX_INPROC_SERVER, &IID__clsFGen, (void**)&general);
    DeactivateActCtx(0, activado);
    if (FAILED(resultado)) return Falla("CoCreateInstance", (unsigned long)resultado);
    dni = wcstol(argumentos[2], NULL, 10);
    resultado = general->lpVtbl->LetraNIF(general, &dni, &letra);
    if (FAILED(resultado)) return Falla("LetraNIF", (unsigned long)resultado);
    printf("Letra: %ls\n", letra);
    SysFreeString(letra);
    general->lpVtbl->Release(general);
    ReleaseActCtx(activable);
    CoUninitialize();
    return 0;
}
