// The header compiles in C++ as C sees it, too.
#define CINTERFACE
#define COBJMACROS
#include <kovrel.h>

HRESULT letter_of(_clsFGen* general, long number, BSTR* letter) {
    return _clsFGen_LetraNIF(general, &number, letter);
}
