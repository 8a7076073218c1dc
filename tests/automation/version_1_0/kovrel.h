// clang-format off
// A kept copy of the header of version 1.0: programs that were compiled with it must go on working.
// It is never changed; only these lines are not the published ones.
// Kovrel: utilidades para aplicaciones de base de datos en español.
//
// Early binding from C++11 or later, with Visual C++ and mingw-w64 alike. Made from the library's own
// declarations, member for member what its type library says. This file is UTF-8, and so must be a
// source that calls a member with an ñ in its name (Visual C++: /utf-8). Link with ole32 and oleaut32.
//
//   Kovrel::_clsFGen* general = nullptr;
//   HRESULT result = CoCreateInstance(__uuidof(Kovrel::clsFGen), nullptr, CLSCTX_INPROC_SERVER,
//                                     __uuidof(Kovrel::_clsFGen), reinterpret_cast<void**>(&general));
//
// Every member returns S_OK, or 0x800A0000 plus the number of the failure, which IErrorInfo
// describes. A BSTR or an object that comes back belongs to the caller. A null BSTR is an empty
// text, but no pointer to a variable may be null. C++ passes optional arguments itself: the default
// named in the comment; else a VARIANT of type VT_ERROR and value DISP_E_PARAMNOTFOUND, or an empty
// BSTR.
#pragma once

#include <windows.h>
#include <oleauto.h>

#include <ocidl.h>

namespace Kovrel {

struct _clsFFechas;
struct _clsADODBServices;
struct _cgsFileOpR;
struct _clsProfile;
struct _clsCSQL;
struct _clsFZip;
struct _clsFGen;
struct _clsMensajes;

// The names lose nothing to the platform's macros of the same names and values, which
// are set aside for the declaration. Where <commdlg.h> is included too, write them
// without Kovrel::, as in static_cast<Kovrel::eOFN>(OFN_EXPLORER | OFN_HIDEREADONLY).
#pragma push_macro("OFN_READONLY")
#undef OFN_READONLY
#pragma push_macro("OFN_OVERWRITEPROMPT")
#undef OFN_OVERWRITEPROMPT
#pragma push_macro("OFN_HIDEREADONLY")
#undef OFN_HIDEREADONLY
#pragma push_macro("OFN_NOCHANGEDIR")
#undef OFN_NOCHANGEDIR
#pragma push_macro("OFN_SHOWHELP")
#undef OFN_SHOWHELP
#pragma push_macro("OFN_ENABLEHOOK")
#undef OFN_ENABLEHOOK
#pragma push_macro("OFN_ENABLETEMPLATE")
#undef OFN_ENABLETEMPLATE
#pragma push_macro("OFN_ENABLETEMPLATEHANDLE")
#undef OFN_ENABLETEMPLATEHANDLE
#pragma push_macro("OFN_NOVALIDATE")
#undef OFN_NOVALIDATE
#pragma push_macro("OFN_ALLOWMULTISELECT")
#undef OFN_ALLOWMULTISELECT
#pragma push_macro("OFN_EXTENSIONDIFFERENT")
#undef OFN_EXTENSIONDIFFERENT
#pragma push_macro("OFN_PATHMUSTEXIST")
#undef OFN_PATHMUSTEXIST
#pragma push_macro("OFN_FILEMUSTEXIST")
#undef OFN_FILEMUSTEXIST
#pragma push_macro("OFN_CREATEPROMPT")
#undef OFN_CREATEPROMPT
#pragma push_macro("OFN_SHAREAWARE")
#undef OFN_SHAREAWARE
#pragma push_macro("OFN_NOREADONLYRETURN")
#undef OFN_NOREADONLYRETURN
#pragma push_macro("OFN_NOTESTFILECREATE")
#undef OFN_NOTESTFILECREATE
#pragma push_macro("OFN_NONETWORKBUTTON")
#undef OFN_NONETWORKBUTTON
#pragma push_macro("OFN_NOLONGNAMES")
#undef OFN_NOLONGNAMES
#pragma push_macro("OFN_EXPLORER")
#undef OFN_EXPLORER
#pragma push_macro("OFN_NODEREFERENCELINKS")
#undef OFN_NODEREFERENCELINKS
#pragma push_macro("OFN_LONGNAMES")
#undef OFN_LONGNAMES
#pragma push_macro("OFN_ENABLEINCLUDENOTIFY")
#undef OFN_ENABLEINCLUDENOTIFY
#pragma push_macro("OFN_ENABLESIZING")
#undef OFN_ENABLESIZING
#pragma push_macro("OFN_DONTADDTORECENT")
#undef OFN_DONTADDTORECENT
#pragma push_macro("OFN_FORCESHOWHIDDEN")
#undef OFN_FORCESHOWHIDDEN
/// Opciones del diálogo de abrir archivo.
enum eOFN : long {
    /// Marca la casilla de solo lectura.
    OFN_READONLY = 0x1,
    /// Pregunta antes de sobrescribir un archivo.
    OFN_OVERWRITEPROMPT = 0x2,
    /// Oculta la casilla de solo lectura.
    OFN_HIDEREADONLY = 0x4,
    /// Conserva la carpeta actual.
    OFN_NOCHANGEDIR = 0x8,
    /// Muestra el botón de ayuda.
    OFN_SHOWHELP = 0x10,
    /// Activa la función de enlace.
    OFN_ENABLEHOOK = 0x20,
    /// Usa una plantilla de diálogo.
    OFN_ENABLETEMPLATE = 0x40,
    /// Usa una plantilla de diálogo ya cargada.
    OFN_ENABLETEMPLATEHANDLE = 0x80,
    /// Admite caracteres no válidos en el nombre.
    OFN_NOVALIDATE = 0x100,
    /// Permite elegir varios archivos.
    OFN_ALLOWMULTISELECT = 0x200,
    /// Indica una extensión distinta de la predeterminada.
    OFN_EXTENSIONDIFFERENT = 0x400,
    /// La carpeta debe existir.
    OFN_PATHMUSTEXIST = 0x800,
    /// El archivo debe existir.
    OFN_FILEMUSTEXIST = 0x1000,
    /// Pregunta antes de crear un archivo.
    OFN_CREATEPROMPT = 0x2000,
    /// Pasa por alto los conflictos de uso.
    OFN_SHAREAWARE = 0x4000,
    /// Rechaza archivos de solo lectura.
    OFN_NOREADONLYRETURN = 0x8000,
    /// No prueba antes a crear el archivo.
    OFN_NOTESTFILECREATE = 0x10000,
    /// Oculta el botón de red.
    OFN_NONETWORKBUTTON = 0x20000,
    /// Usa nombres cortos.
    OFN_NOLONGNAMES = 0x40000,
    /// Usa el diálogo con aspecto de explorador.
    OFN_EXPLORER = 0x80000,
    /// Devuelve el acceso directo y no su destino.
    OFN_NODEREFERENCELINKS = 0x100000,
    /// Usa nombres largos.
    OFN_LONGNAMES = 0x200000,
    /// Avisa de cada elemento que se muestra.
    OFN_ENABLEINCLUDENOTIFY = 0x400000,
    /// Permite cambiar el tamaño del diálogo.
    OFN_ENABLESIZING = 0x800000,
    /// No añade el archivo a los recientes.
    OFN_DONTADDTORECENT = 0x2000000,
    /// Muestra los archivos ocultos.
    OFN_FORCESHOWHIDDEN = 0x10000000,
};
#pragma pop_macro("OFN_READONLY")
#pragma pop_macro("OFN_OVERWRITEPROMPT")
#pragma pop_macro("OFN_HIDEREADONLY")
#pragma pop_macro("OFN_NOCHANGEDIR")
#pragma pop_macro("OFN_SHOWHELP")
#pragma pop_macro("OFN_ENABLEHOOK")
#pragma pop_macro("OFN_ENABLETEMPLATE")
#pragma pop_macro("OFN_ENABLETEMPLATEHANDLE")
#pragma pop_macro("OFN_NOVALIDATE")
#pragma pop_macro("OFN_ALLOWMULTISELECT")
#pragma pop_macro("OFN_EXTENSIONDIFFERENT")
#pragma pop_macro("OFN_PATHMUSTEXIST")
#pragma pop_macro("OFN_FILEMUSTEXIST")
#pragma pop_macro("OFN_CREATEPROMPT")
#pragma pop_macro("OFN_SHAREAWARE")
#pragma pop_macro("OFN_NOREADONLYRETURN")
#pragma pop_macro("OFN_NOTESTFILECREATE")
#pragma pop_macro("OFN_NONETWORKBUTTON")
#pragma pop_macro("OFN_NOLONGNAMES")
#pragma pop_macro("OFN_EXPLORER")
#pragma pop_macro("OFN_NODEREFERENCELINKS")
#pragma pop_macro("OFN_LONGNAMES")
#pragma pop_macro("OFN_ENABLEINCLUDENOTIFY")
#pragma pop_macro("OFN_ENABLESIZING")
#pragma pop_macro("OFN_DONTADDTORECENT")
#pragma pop_macro("OFN_FORCESHOWHIDDEN")

/// Lista de archivos que se van a comprimir.
struct DECLSPEC_UUID("15BB8312-9BF7-4B46-8A75-ACF9EFCF3AD2") ZIPnames {
    BSTR Nombres[100];
};

/// Cálculos de calendario: años, meses, semanas de lunes a domingo, y petición de una fecha.
MIDL_INTERFACE("14D1652C-BB05-49AB-876C-170756524F3F") _clsFFechas : public IDispatch {
    /// Nombre de la aplicación anfitriona; titula los mensajes que lo indican.
    virtual HRESULT STDMETHODCALLTYPE get_AppOrigen(
        /* [out, retval] */ BSTR* result) = 0;
    /// Nombre de la aplicación anfitriona; titula los mensajes que lo indican.
    virtual HRESULT STDMETHODCALLTYPE put_AppOrigen(
        /* [in, out] */ BSTR* value) = 0;
    /// Año con dos cifras.
    virtual HRESULT STDMETHODCALLTYPE ConvierteAñoA2(
        /* [in, out] */ short* IntAño,
        /* [out, retval] */ BSTR* result) = 0;
    /// Año de dos cifras llevado a cuatro (20xx); cambia también la variable recibida.
    /// Puede cambiar: IntAño.
    virtual HRESULT STDMETHODCALLTYPE ConvierteAñoA4(
        /* [in, out] */ short* IntAño,
        /* [out, retval] */ BSTR* result) = 0;
    /// Número de días del año: 365 o 366.
    virtual HRESULT STDMETHODCALLTYPE Dias_Anyo(
        /* [in, out] */ short* Anyo,
        /* [out, retval] */ short* result) = 0;
    /// Número de días del mes.
    virtual HRESULT STDMETHODCALLTYPE Dias_Mes(
        /* [in, out] */ short* Mes,
        /* [in, out] */ short* Anyo,
        /* [out, retval] */ short* result) = 0;
    /// Indica si el año es bisiesto.
    virtual HRESULT STDMETHODCALLTYPE EsBisiesto(
        /* [in] */ short IntAño,
        /* [out, retval] */ VARIANT_BOOL* result) = 0;
    /// Número de semanas, de lunes a domingo, que toca el mes.
    virtual HRESULT STDMETHODCALLTYPE SemanasMes(
        /* [in] */ short IntAño,
        /* [in] */ short IntMes,
        /* [out, retval] */ short* result) = 0;
    /// Semana del mes a la que pertenece la fecha, desde 1.
    virtual HRESULT STDMETHODCALLTYPE SemanaEnElMes(
        /* [in] */ DATE DtFecha,
        /* [out, retval] */ short* result) = 0;
    /// Lunes de la semana de la fecha.
    virtual HRESULT STDMETHODCALLTYPE PrimerDiaSemana(
        /* [in, out] */ DATE* DtFecha,
        /* [out, retval] */ DATE* result) = 0;
    /// Domingo de la semana de la fecha.
    virtual HRESULT STDMETHODCALLTYPE UltimoDiaSemana(
        /* [in, out] */ DATE* DtFecha,
        /* [out, retval] */ DATE* result) = 0;
    /// Texto con el lunes y el domingo de la semana de la fecha.
    virtual HRESULT STDMETHODCALLTYPE SemanaDel(
        /* [in, out] */ DATE* DtFecha,
        /* [out, retval] */ BSTR* result) = 0;
    /// Primer día del mes; los valores 0 se sustituyen por el mes y el año de hoy, también en las variables recibidas.
    /// Puede cambiar: Mes, Año.
    virtual HRESULT STDMETHODCALLTYPE PrimerDiaMesActual(
        /* [in, out, optional, defaultvalue(0)] */ short* Mes,
        /* [in, out, optional, defaultvalue(0)] */ short* Año,
        /* [out, retval] */ DATE* result) = 0;
    /// Último día del mes; los valores 0 se sustituyen por el mes y el año de hoy, también en las variables recibidas.
    /// Puede cambiar: Mes, Año.
    virtual HRESULT STDMETHODCALLTYPE UltimoDiaMesActual(
        /* [in, out, optional, defaultvalue(0)] */ short* Mes,
        /* [in, out, optional, defaultvalue(0)] */ short* Año,
        /* [out, retval] */ DATE* result) = 0;
    /// Primer día del mes anterior.
    virtual HRESULT STDMETHODCALLTYPE primerdia_mesanterior(
        /* [in, out] */ BYTE* Mes,
        /* [in, out] */ short* Año,
        /* [out, retval] */ DATE* result) = 0;
    /// Último día del mes anterior.
    virtual HRESULT STDMETHODCALLTYPE ultimodia_mesanterior(
        /* [in, out] */ BYTE* Mes,
        /* [in, out] */ short* Año,
        /* [out, retval] */ DATE* result) = 0;
    /// Nombre del mes en mayúsculas.
    virtual HRESULT STDMETHODCALLTYPE mes_letra(
        /* [in, out] */ BYTE* n_mes,
        /* [out, retval] */ BSTR* result) = 0;
    /// Pide una fecha al usuario en una ventana; una fecha propuesta 0 se sustituye por la de hoy, también en la variable recibida.
    /// Puede cambiar: DtFechaDefecto.
    virtual HRESULT STDMETHODCALLTYPE PideFecha(
        /* [in, out] */ BSTR* strMensaje,
        /* [in, out, optional, defaultvalue("Fecha")] */ BSTR* strCaption,
        /* [in, out, optional, defaultvalue(0)] */ DATE* DtFechaDefecto,
        /* [out, retval] */ DATE* result) = 0;
};

class DECLSPEC_UUID("B502DFFC-3580-43AF-ADA3-BD0997374DF0") clsFFechas;

/// Imágenes y archivos en campos binarios de un Recordset de ADO.
MIDL_INTERFACE("96A96848-4A30-4387-B101-F95A0CE7F27A") _clsADODBServices : public IDispatch {
    /// Nombre de la aplicación anfitriona; titula los mensajes que lo indican.
    virtual HRESULT STDMETHODCALLTYPE get_AppOrigen(
        /* [out, retval] */ BSTR* result) = 0;
    /// Nombre de la aplicación anfitriona; titula los mensajes que lo indican.
    virtual HRESULT STDMETHODCALLTYPE put_AppOrigen(
        /* [in, out] */ BSTR* value) = 0;
    /// Guarda un archivo entero en el campo.
    virtual HRESULT STDMETHODCALLTYPE PutImageInField(
        /* [in, out] */ IDispatch** f,
        /* [in, out] */ BSTR* File) = 0;
    /// Imagen guardada en el campo.
    virtual HRESULT STDMETHODCALLTYPE GetImageFromField(
        /* [in, out] */ IDispatch** f,
        /* [out, retval] */ IPictureDisp** result) = 0;
    /// Guarda un archivo en el campo por trozos.
    virtual HRESULT STDMETHODCALLTYPE PutLargeImageInField(
        /* [in, out] */ IDispatch** f,
        /* [in, out] */ BSTR* File) = 0;
    /// Imagen guardada en el campo, leída por trozos.
    virtual HRESULT STDMETHODCALLTYPE GetLargeImageFromField(
        /* [in, out] */ IDispatch** f,
        /* [out, retval] */ IPictureDisp** result) = 0;
    /// Texto con la posición del registro y el número de registros.
    virtual HRESULT STDMETHODCALLTYPE RecordLocation(
        /* [in, out] */ IDispatch** adoRs,
        /* [in, out, optional, defaultvalue("")] */ BSTR* Title,
        /* [out, retval] */ VARIANT* result) = 0;
    /// Guarda una imagen en el campo.
    virtual HRESULT STDMETHODCALLTYPE PutPictureInField(
        /* [in, out] */ IDispatch** f,
        /* [in, out] */ IPictureDisp** pic) = 0;
};

class DECLSPEC_UUID("26F03347-4C52-4C18-A855-2214E916672A") clsADODBServices;

/// Archivos INI, textos de rutas y el diálogo de abrir archivo.
MIDL_INTERFACE("48979160-1712-42DB-9413-412DDB41B8C0") _cgsFileOpR : public IDispatch {
    /// Ventana propietaria del diálogo.
    virtual HRESULT STDMETHODCALLTYPE get_hWnd(
        /* [out, retval] */ long* result) = 0;
    /// Ventana propietaria del diálogo.
    virtual HRESULT STDMETHODCALLTYPE put_hWnd(
        /* [in] */ long value) = 0;
    /// Título del diálogo; vacío se convierte en "Abrir".
    virtual HRESULT STDMETHODCALLTYPE get_DialogTitle(
        /* [out, retval] */ BSTR* result) = 0;
    /// Título del diálogo; vacío se convierte en "Abrir".
    virtual HRESULT STDMETHODCALLTYPE put_DialogTitle(
        /* [in] */ BSTR value) = 0;
    /// Indica si la cancelación queda anotada como error 32755.
    virtual HRESULT STDMETHODCALLTYPE get_CancelError(
        /* [out, retval] */ VARIANT_BOOL* result) = 0;
    /// Indica si la cancelación queda anotada como error 32755.
    virtual HRESULT STDMETHODCALLTYPE put_CancelError(
        /* [in] */ VARIANT_BOOL value) = 0;
    /// Opciones del diálogo.
    virtual HRESULT STDMETHODCALLTYPE get_Flags(
        /* [out, retval] */ eOFN* result) = 0;
    /// Opciones del diálogo.
    virtual HRESULT STDMETHODCALLTYPE put_Flags(
        /* [in] */ eOFN value) = 0;
    /// Se conserva, pero no se pasa al diálogo.
    virtual HRESULT STDMETHODCALLTYPE get_DefaultExt(
        /* [out, retval] */ BSTR* result) = 0;
    /// Se conserva, pero no se pasa al diálogo.
    virtual HRESULT STDMETHODCALLTYPE put_DefaultExt(
        /* [in] */ BSTR value) = 0;
    /// Archivo propuesto y archivo elegido.
    virtual HRESULT STDMETHODCALLTYPE get_FileName(
        /* [out, retval] */ BSTR* result) = 0;
    /// Archivo propuesto y archivo elegido.
    virtual HRESULT STDMETHODCALLTYPE put_FileName(
        /* [in] */ BSTR value) = 0;
    /// Nombre sin carpeta del archivo elegido.
    virtual HRESULT STDMETHODCALLTYPE get_FileTitle(
        /* [out, retval] */ BSTR* result) = 0;
    /// Nombre sin carpeta del archivo elegido.
    virtual HRESULT STDMETHODCALLTYPE put_FileTitle(
        /* [in] */ BSTR value) = 0;
    /// Número del filtro elegido al abrir el diálogo.
    virtual HRESULT STDMETHODCALLTYPE get_FilterIndex(
        /* [out, retval] */ long* result) = 0;
    /// Número del filtro elegido al abrir el diálogo.
    virtual HRESULT STDMETHODCALLTYPE put_FilterIndex(
        /* [in] */ long value) = 0;
    /// Carpeta inicial del diálogo.
    virtual HRESULT STDMETHODCALLTYPE get_InitDir(
        /* [out, retval] */ BSTR* result) = 0;
    /// Carpeta inicial del diálogo.
    virtual HRESULT STDMETHODCALLTYPE put_InitDir(
        /* [in] */ BSTR value) = 0;
    /// Borra una clave de un archivo INI, o la sección entera.
    virtual HRESULT STDMETHODCALLTYPE DeleteSetting(
        /* [in] */ BSTR sIniFile,
        /* [in] */ BSTR sSection,
        /* [in, optional, defaultvalue("")] */ BSTR sKey) = 0;
    /// Separa una ruta en carpeta, nombre y extensión.
    /// Puede cambiar: sPath, vNombre, vExt.
    virtual HRESULT STDMETHODCALLTYPE SplitPath(
        /* [in] */ BSTR sTodo,
        /* [in, out] */ BSTR* sPath,
        /* [in, out, optional] */ VARIANT* vNombre,
        /* [in, out, optional] */ VARIANT* vExt) = 0;
    /// Quita un carácter o texto de otro, o lo sustituye.
    virtual HRESULT STDMETHODCALLTYPE QuitarCaracterEx(
        /* [in] */ BSTR sValor,
        /* [in] */ BSTR sCaracter,
        /* [in, optional] */ VARIANT sPoner,
        /* [out, retval] */ BSTR* result) = 0;
    /// Muestra el diálogo de abrir archivo; verdadero si se eligió alguno.
    virtual HRESULT STDMETHODCALLTYPE ShowOpen(
        /* [in, optional] */ VARIANT vFileName,
        /* [in, optional] */ VARIANT vTitle,
        /* [in, optional] */ VARIANT vFilter,
        /* [in, out, optional] */ VARIANT* vFlags,
        /* [in, optional] */ VARIANT vhWnd,
        /* [out, retval] */ VARIANT_BOOL* result) = 0;
    /// El valor 1 muestra el diálogo de abrir archivo.
    virtual HRESULT STDMETHODCALLTYPE put_Action(
        /* [in, out] */ short* value) = 0;
    /// Filtro del diálogo: descripciones y patrones separados por "|".
    virtual HRESULT STDMETHODCALLTYPE put_Filter(
        /* [in] */ BSTR value) = 0;
    /// Lee un valor de un archivo INI.
    virtual HRESULT STDMETHODCALLTYPE LeerIni(
        /* [in] */ BSTR lpFileName,
        /* [in] */ BSTR lpAppName,
        /* [in] */ BSTR lpKeyName,
        /* [in, optional] */ VARIANT vDefault,
        /* [out, retval] */ BSTR* result) = 0;
    /// Lee un valor de un archivo INI.
    virtual HRESULT STDMETHODCALLTYPE GetSetting(
        /* [in] */ BSTR lpFileName,
        /* [in] */ BSTR lpAppName,
        /* [in] */ BSTR lpKeyName,
        /* [in, optional] */ VARIANT vDefault,
        /* [out, retval] */ BSTR* result) = 0;
    /// Guarda un valor en un archivo INI.
    virtual HRESULT STDMETHODCALLTYPE GuardarIni(
        /* [in] */ BSTR lpFileName,
        /* [in] */ BSTR lpAppName,
        /* [in] */ BSTR lpKeyName,
        /* [in] */ BSTR lpString) = 0;
    /// Guarda un valor en un archivo INI.
    virtual HRESULT STDMETHODCALLTYPE SaveSetting(
        /* [in] */ BSTR lpFileName,
        /* [in] */ BSTR lpAppName,
        /* [in] */ BSTR lpKeyName,
        /* [in] */ BSTR lpString) = 0;
    /// La ruta con una barra invertida al final.
    virtual HRESULT STDMETHODCALLTYPE AddBackSlash(
        /* [in] */ BSTR sPath,
        /* [out, retval] */ BSTR* result) = 0;
    /// La ruta sin la barra invertida del final.
    virtual HRESULT STDMETHODCALLTYPE QuitarBackSlash(
        /* [in] */ BSTR sPath,
        /* [out, retval] */ BSTR* result) = 0;
};

class DECLSPEC_UUID("A30B4E1E-B14C-4D78-B079-95F19277D1BA") cgsFileOpR;

/// Carpetas y archivos INI de una pantalla de opciones.
MIDL_INTERFACE("676CCD3C-548E-4500-B1F8-FF37CCFA406F") _clsProfile : public IDispatch {
    /// Nombre de la aplicación anfitriona; titula los mensajes que lo indican.
    virtual HRESULT STDMETHODCALLTYPE get_AppOrigen(
        /* [out, retval] */ BSTR* result) = 0;
    /// Nombre de la aplicación anfitriona; titula los mensajes que lo indican.
    virtual HRESULT STDMETHODCALLTYPE put_AppOrigen(
        /* [in, out] */ BSTR* value) = 0;
    /// Carpeta elegida por el usuario; vacío si cancela.
    virtual HRESULT STDMETHODCALLTYPE BrowseForFolder(
        /* [in] */ long hWndOwner,
        /* [in] */ BSTR sPrompt,
        /* [in, out, optional, defaultvalue("")] */ BSTR* sInitDir,
        /* [out, retval] */ BSTR* result) = 0;
    /// Lee un valor de un archivo INI; las variables reciben el texto en la página de códigos del sistema.
    /// Puede cambiar: lpFileName, lpAppName, lpKeyName.
    virtual HRESULT STDMETHODCALLTYPE LeerIni(
        /* [in, out] */ BSTR* lpFileName,
        /* [in, out] */ BSTR* lpAppName,
        /* [in, out] */ BSTR* lpKeyName,
        /* [in, out, optional] */ VARIANT* vDefault,
        /* [out, retval] */ BSTR* result) = 0;
    /// Guarda un valor en un archivo INI; las variables reciben el texto en la página de códigos del sistema.
    /// Puede cambiar: lpFileName, lpAppName, lpKeyName, lpString.
    virtual HRESULT STDMETHODCALLTYPE GuardarIni(
        /* [in, out] */ BSTR* lpFileName,
        /* [in, out] */ BSTR* lpAppName,
        /* [in, out] */ BSTR* lpKeyName,
        /* [in, out] */ BSTR* lpString) = 0;
    /// La ruta con una barra invertida al final.
    virtual HRESULT STDMETHODCALLTYPE AñadirBackSlash(
        /* [in] */ BSTR sPath,
        /* [out, retval] */ BSTR* result) = 0;
    /// La ruta sin la barra invertida del final.
    virtual HRESULT STDMETHODCALLTYPE QuitarBackSlash(
        /* [in] */ BSTR sPath,
        /* [out, retval] */ BSTR* result) = 0;
    /// Carpeta de un archivo, con una barra invertida al final.
    virtual HRESULT STDMETHODCALLTYPE RutadeArchivo(
        /* [in, out] */ BSTR* PathFile,
        /* [out, retval] */ BSTR* result) = 0;
    /// Indica si la carpeta existe y, si se pide, la crea. Los argumentos omitidos equivalen a falso en llamadas por nombre; a verdadero en las compiladas.
    virtual HRESULT STDMETHODCALLTYPE ExisteCarpeta(
        /* [in, out] */ BSTR* strPath,
        /* [in, out, optional, defaultvalue(VARIANT_TRUE)] */ VARIANT_BOOL* boCreaCarpeta,
        /* [in, out, optional, defaultvalue(VARIANT_TRUE)] */ VARIANT_BOOL* boMensaje,
        /* [out, retval] */ VARIANT_BOOL* result) = 0;
};

class DECLSPEC_UUID("1E7ABFEF-6918-446F-9292-79D28E29BAE4") clsProfile;

/// Literales de SQL a partir de números, fechas, booleanos y textos.
MIDL_INTERFACE("3595BC35-8BDF-4492-B43A-5953008EE0CF") _clsCSQL : public IDispatch {
    /// Nombre de la aplicación anfitriona; titula los mensajes que lo indican.
    virtual HRESULT STDMETHODCALLTYPE get_AppOrigen(
        /* [out, retval] */ BSTR* result) = 0;
    /// Nombre de la aplicación anfitriona; titula los mensajes que lo indican.
    virtual HRESULT STDMETHODCALLTYPE put_AppOrigen(
        /* [in, out] */ BSTR* value) = 0;
    /// Número con dos decimales y punto decimal.
    virtual HRESULT STDMETHODCALLTYPE Conv_Double(
        /* [in, out] */ VARIANT* Numero,
        /* [out, retval] */ BSTR* result) = 0;
    /// Número con dos decimales y punto decimal.
    virtual HRESULT STDMETHODCALLTYPE Conv_DoubleDeDouble(
        /* [in, out] */ double* Numero,
        /* [out, retval] */ BSTR* result) = 0;
    /// Número con cuatro decimales y punto decimal.
    virtual HRESULT STDMETHODCALLTYPE Conv_Double4(
        /* [in, out] */ VARIANT* Numero,
        /* [out, retval] */ BSTR* result) = 0;
    /// Texto de fecha entre "#", en el orden mes, día y año.
    virtual HRESULT STDMETHODCALLTYPE Conv_Date(
        /* [in, out] */ BSTR* Fecha,
        /* [out, retval] */ BSTR* result) = 0;
    /// Fecha entre "#", en el orden mes, día y año.
    virtual HRESULT STDMETHODCALLTYPE Conv_Date_Date(
        /* [in, out] */ DATE* Fecha,
        /* [out, retval] */ BSTR* result) = 0;
    /// -1 para verdadero y 0 para falso.
    virtual HRESULT STDMETHODCALLTYPE Conv_Boolean(
        /* [in, out] */ VARIANT_BOOL* BooDato,
        /* [out, retval] */ short* result) = 0;
    /// Texto entre comillas simples, tal como se recibe.
    virtual HRESULT STDMETHODCALLTYPE Conv_String(
        /* [in, out] */ BSTR* StrCadena,
        /* [out, retval] */ BSTR* result) = 0;
};

class DECLSPEC_UUID("5C64153B-570A-410C-9782-E2290340E281") clsCSQL;

/// Archivos comprimidos zip.
MIDL_INTERFACE("45411D2B-08DF-4228-8672-0C967ED8043A") _clsFZip : public IDispatch {
    /// Nombre de la aplicación anfitriona; titula los mensajes que lo indican.
    virtual HRESULT STDMETHODCALLTYPE get_AppOrigen(
        /* [out, retval] */ BSTR* result) = 0;
    /// Nombre de la aplicación anfitriona; titula los mensajes que lo indican.
    virtual HRESULT STDMETHODCALLTYPE put_AppOrigen(
        /* [in, out] */ BSTR* value) = 0;
    /// Comprime una lista de archivos en un zip; ruta del zip, o vacío si no se hizo.
    virtual HRESULT STDMETHODCALLTYPE GenerarZip(
        /* [in, out] */ BSTR* strNombreFicheroZip,
        /* [in, out] */ BSTR* strRutaSalida,
        /* [in, out] */ ZIPnames* NombresFicheros1,
        /* [out, retval] */ BSTR* result) = 0;
};

class DECLSPEC_UUID("4FEA3AAC-49BB-4527-878A-AF2628364A4D") clsFZip;

/// Funciones generales: identificadores fiscales, cuentas, números, validación de campos y progreso.
MIDL_INTERFACE("513D12C4-D877-4855-8F0E-B24104046233") _clsFGen : public IDispatch {
    /// Catálogo de mensajes con el que la clase habla al usuario.
    virtual HRESULT STDMETHODCALLTYPE get_Mensajes(
        /* [out, retval] */ _clsMensajes** result) = 0;
    /// Catálogo de mensajes con el que la clase habla al usuario.
    virtual HRESULT STDMETHODCALLTYPE putref_Mensajes(
        /* [in] */ _clsMensajes* value) = 0;
    /// Nombre de la aplicación anfitriona; titula los mensajes que lo indican.
    virtual HRESULT STDMETHODCALLTYPE get_AppOrigen(
        /* [out, retval] */ BSTR* result) = 0;
    /// Nombre de la aplicación anfitriona; titula los mensajes que lo indican.
    virtual HRESULT STDMETHODCALLTYPE put_AppOrigen(
        /* [in, out] */ BSTR* value) = 0;
    /// Abre la ventana de progreso.
    virtual HRESULT STDMETHODCALLTYPE BarraProgresoInicia(
        /* [in] */ BSTR strCaption,
        /* [in] */ BSTR strMensaje,
        /* [in, optional, defaultvalue(VARIANT_FALSE)] */ VARIANT_BOOL boBotones,
        /* [in, optional, defaultvalue(-1)] */ long lgAltoMensaje,
        /* [in, optional, defaultvalue(-1)] */ long lgAnchoFrm,
        /* [in, optional, defaultvalue(-1)] */ long lgTopFrm,
        /* [in, optional, defaultvalue(-1)] */ long lgLeftFrm,
        /* [in, optional, defaultvalue(-1)] */ long lgForeColor) = 0;
    /// Cierra la ventana de progreso.
    virtual HRESULT STDMETHODCALLTYPE BarraProgresoFinaliza() = 0;
    /// Mueve la barra de la ventana de progreso y cambia su mensaje.
    virtual HRESULT STDMETHODCALLTYPE BarraProgresoActualiza(
        /* [in, out] */ long* Porcentaje,
        /* [in, out, optional, defaultvalue("")] */ BSTR* strMensaje) = 0;
    /// Dibuja una barra de progreso en una imagen del anfitrión.
    virtual HRESULT STDMETHODCALLTYPE BarraProgreso(
        /* [in, out] */ IDispatch** Picture,
        /* [in, out] */ long* Porcentaje) = 0;
    /// El valor, o el sustituto cuando es nulo, vacío o de error.
    virtual HRESULT STDMETHODCALLTYPE Nz(
        /* [in, out] */ VARIANT* Value,
        /* [in, out, optional, defaultvalue(0)] */ VARIANT* ValueNull,
        /* [out, retval] */ VARIANT* result) = 0;
    /// 1 para verdadero y 0 para falso.
    virtual HRESULT STDMETHODCALLTYPE CBolNum(
        /* [in, out] */ VARIANT* Value,
        /* [out, retval] */ short* result) = 0;
    /// Espera los segundos indicados atendiendo los sucesos pendientes.
    virtual HRESULT STDMETHODCALLTYPE Espera(
        /* [in, out] */ float* Segundos) = 0;
    /// Cantidad con dos decimales.
    virtual HRESULT STDMETHODCALLTYPE redondeoa2(
        /* [in, out] */ VARIANT* Cantidad,
        /* [out, retval] */ BSTR* result) = 0;
    /// Cantidad con cuatro decimales.
    virtual HRESULT STDMETHODCALLTYPE redondeoa4(
        /* [in, out] */ VARIANT* Cantidad,
        /* [out, retval] */ BSTR* result) = 0;
    /// Verdadero si el texto del combo no está en su lista.
    virtual HRESULT STDMETHODCALLTYPE ValidateComboALista(
        /* [in, out] */ IDispatch** Cmb,
        /* [in, out, optional, defaultvalue(VARIANT_FALSE)] */ VARIANT_BOOL* BoRequerido,
        /* [out, retval] */ VARIANT_BOOL* result) = 0;
    /// Verdadero si el texto del combo enlazado no está en su lista.
    virtual HRESULT STDMETHODCALLTYPE ValidateDataComboALista(
        /* [in, out] */ IDispatch** DtCmb,
        /* [in, out, optional, defaultvalue(VARIANT_FALSE)] */ VARIANT_BOOL* BoRequerido,
        /* [out, retval] */ VARIANT_BOOL* result) = 0;
    /// Verdadero si el campo está vacío.
    virtual HRESULT STDMETHODCALLTYPE Requerido(
        /* [in, out] */ IDispatch** Obj,
        /* [out, retval] */ VARIANT_BOOL* result) = 0;
    /// Verdadero si el campo no tiene la longitud exacta. PermitirLenCero omitido equivale a falso en llamadas por nombre; a verdadero en las compiladas.
    virtual HRESULT STDMETHODCALLTYPE LongitudExacta(
        /* [in, out] */ IDispatch** Obj,
        /* [in, out, optional, defaultvalue(VARIANT_TRUE)] */ VARIANT_BOOL* PermitirLenCero,
        /* [in, out, optional, defaultvalue(0)] */ short* IntSumaLen,
        /* [out, retval] */ VARIANT_BOOL* result) = 0;
    /// Verdadero si el campo no contiene una fecha. PermitirLenCero omitido equivale a falso en llamadas por nombre; a verdadero en las compiladas.
    virtual HRESULT STDMETHODCALLTYPE FechaCorrecta(
        /* [in, out] */ IDispatch** Obj,
        /* [in, out, optional, defaultvalue(VARIANT_TRUE)] */ VARIANT_BOOL* PermitirLenCero,
        /* [out, retval] */ VARIANT_BOOL* result) = 0;
    /// Verdadero si la fecha del campo no es posterior a la del otro.
    virtual HRESULT STDMETHODCALLTYPE FechaMayorQue(
        /* [in, out] */ IDispatch** Obj,
        /* [in, out] */ VARIANT* ObjFechaMenor,
        /* [out, retval] */ VARIANT_BOOL* result) = 0;
    /// Verdadero si la fecha del campo es anterior a la del otro.
    virtual HRESULT STDMETHODCALLTYPE FechaMayorIgualQue(
        /* [in, out] */ IDispatch** Obj,
        /* [in, out] */ VARIANT* ObjFechaMenor,
        /* [out, retval] */ VARIANT_BOOL* result) = 0;
    /// Verdadero si la fecha del campo no es anterior a la del otro.
    virtual HRESULT STDMETHODCALLTYPE FechaMenorQue(
        /* [in, out] */ IDispatch** Obj,
        /* [in, out] */ VARIANT* ObjFechaMayor,
        /* [out, retval] */ VARIANT_BOOL* result) = 0;
    /// Verdadero si la fecha del campo es posterior a la del otro.
    virtual HRESULT STDMETHODCALLTYPE FechaMenorIgualQue(
        /* [in, out] */ IDispatch** Obj,
        /* [in, out] */ VARIANT* ObjFechaMayor,
        /* [out, retval] */ VARIANT_BOOL* result) = 0;
    /// Número de provincia de un código postal.
    virtual HRESULT STDMETHODCALLTYPE ProvinciaDeCP(
        /* [in] */ BSTR CP,
        /* [out, retval] */ BYTE* result) = 0;
    /// Filtro de teclas para campos numéricos; pone a 0 la tecla rechazada.
    /// Puede cambiar: pulsa.
    virtual HRESULT STDMETHODCALLTYPE Solo_Numero(
        /* [in, out] */ short* pulsa,
        /* [in, out, optional, defaultvalue(VARIANT_FALSE)] */ VARIANT_BOOL* SoloPositivos,
        /* [in, out, optional, defaultvalue(VARIANT_FALSE)] */ VARIANT_BOOL* boPuntoAComa,
        /* [out, retval] */ short* result) = 0;
    /// Filtro de teclas para campos de fecha; pone a 0 la tecla rechazada.
    /// Puede cambiar: pulsa.
    virtual HRESULT STDMETHODCALLTYPE Solo_Fecha(
        /* [in, out] */ short* pulsa,
        /* [out, retval] */ short* result) = 0;
    /// Filtro de teclas que convierte a mayúsculas.
    /// Puede cambiar: pulsa.
    virtual HRESULT STDMETHODCALLTYPE Convierte_May(
        /* [in, out] */ short* pulsa,
        /* [out, retval] */ short* result) = 0;
    /// Identificador fiscal comprobado y corregido; vacío si se rechaza.
    virtual HRESULT STDMETHODCALLTYPE Verifica_NIF(
        /* [in] */ BSTR Nif,
        /* [in, out, optional, defaultvalue(VARIANT_TRUE)] */ VARIANT_BOOL* Mensajes,
        /* [out, retval] */ BSTR* result) = 0;
    /// Letra que corresponde a un número de identificación fiscal.
    virtual HRESULT STDMETHODCALLTYPE LetraNIF(
        /* [in, out] */ long* DNI,
        /* [out, retval] */ BSTR* result) = 0;
    /// Verdadero si el código de cuenta es correcto.
    virtual HRESULT STDMETHODCALLTYPE Verifica_CC(
        /* [in, out] */ BSTR* CCC,
        /* [in, out, optional, defaultvalue(VARIANT_FALSE)] */ VARIANT_BOOL* BoRequerido,
        /* [in, out, optional, defaultvalue(VARIANT_FALSE)] */ VARIANT_BOOL* BoMsj,
        /* [out, retval] */ VARIANT_BOOL* result) = 0;
    /// Los dos dígitos de control de una cuenta.
    virtual HRESULT STDMETHODCALLTYPE DC(
        /* [in, out] */ BSTR* banco,
        /* [in, out] */ BSTR* sucursal,
        /* [in, out] */ BSTR* cuenta,
        /* [out, retval] */ BSTR* result) = 0;
    /// Banco de un código de cuenta.
    virtual HRESULT STDMETHODCALLTYPE Banco_CC(
        /* [in, out] */ BSTR* CCC,
        /* [out, retval] */ BSTR* result) = 0;
    /// Sucursal de un código de cuenta.
    virtual HRESULT STDMETHODCALLTYPE Sucursal_CC(
        /* [in, out] */ BSTR* CCC,
        /* [out, retval] */ BSTR* result) = 0;
    /// Dígitos de control de un código de cuenta.
    virtual HRESULT STDMETHODCALLTYPE DC_CC(
        /* [in, out] */ BSTR* CCC,
        /* [out, retval] */ BSTR* result) = 0;
    /// Número de cuenta de un código de cuenta.
    virtual HRESULT STDMETHODCALLTYPE Cuenta_CC(
        /* [in, out] */ BSTR* CCC,
        /* [out, retval] */ BSTR* result) = 0;
    /// Llena un combo de varias columnas con un Recordset.
    virtual HRESULT STDMETHODCALLTYPE cargaComboMSFormsDeRecordset(
        /* [in, out] */ IDispatch** cmbCombo,
        /* [in, out] */ IDispatch** rsRecordset,
        /* [in, optional, defaultvalue(0)] */ short intNumCampos,
        /* [out, retval] */ VARIANT_BOOL* result) = 0;
    /// Llena un combo con el primer campo de un Recordset.
    virtual HRESULT STDMETHODCALLTYPE CargaComboDeRecordset(
        /* [in, out] */ IDispatch** cmbCombo,
        /* [in, out] */ IDispatch** rsRecordset,
        /* [out, retval] */ VARIANT_BOOL* result) = 0;
    /// Quita guiones, barras, espacios y puntos de la variable recibida.
    /// Puede cambiar: strCifNif.
    virtual HRESULT STDMETHODCALLTYPE QuitaCaracteresyEspacios(
        /* [in, out] */ BSTR* strCifNif) = 0;
    /// Abre el verificador de identificadores fiscales y cuentas.
    virtual HRESULT STDMETHODCALLTYPE LanzaVerificadorNIFyCCC(
        /* [out, retval] */ VARIANT* result) = 0;
    /// Número, o texto con números, en palabras.
    virtual HRESULT STDMETHODCALLTYPE ConvNumeroALetra(
        /* [in] */ VARIANT Numero,
        /* [in, out, optional, defaultvalue("")] */ BSTR* TipoCambioSingular,
        /* [in, out, optional] */ BSTR* TipoCambioPlural,
        /* [in, out, optional] */ BSTR* subTipoCambioSingular,
        /* [in, out, optional] */ BSTR* subTipoCambioPlural,
        /* [in, out, optional, defaultvalue(0)] */ long* xInternal,
        /* [out, retval] */ BSTR* result) = 0;
    /// Importe en euros en palabras y mayúsculas.
    virtual HRESULT STDMETHODCALLTYPE ConvEurosALetra(
        /* [in, out] */ double* dblNumero,
        /* [out, retval] */ BSTR* result) = 0;
    /// Descripción de la letra de un identificador fiscal.
    virtual HRESULT STDMETHODCALLTYPE DescripNIFCIF(
        /* [in] */ BSTR strLetra,
        /* [out, retval] */ BSTR* result) = 0;
    /// Verdadero si el usuario ha pulsado el botón de cancelar de la ventana de progreso.
    virtual HRESULT STDMETHODCALLTYPE BarraProgresoCancelada(
        /* [out, retval] */ VARIANT_BOOL* result) = 0;
};

class DECLSPEC_UUID("20A24250-90C1-4802-8098-D68C3B2C84EC") clsFGen;

/// Mensajes habituales de una aplicación de base de datos, e información de la biblioteca.
MIDL_INTERFACE("36CA0814-7BFB-4448-9148-42A47B8B0967") _clsMensajes : public IDispatch {
    /// Versión de la biblioteca.
    virtual HRESULT STDMETHODCALLTYPE get_ArchiVersion(
        /* [out, retval] */ BSTR* result) = 0;
    /// Título, versión y archivo de la biblioteca.
    virtual HRESULT STDMETHODCALLTYPE get_ArchiInformacion(
        /* [out, retval] */ BSTR* result) = 0;
    /// Nombre de la aplicación anfitriona; titula los mensajes que lo indican.
    virtual HRESULT STDMETHODCALLTYPE get_AppOrigen(
        /* [out, retval] */ BSTR* result) = 0;
    /// Nombre de la aplicación anfitriona; titula los mensajes que lo indican.
    virtual HRESULT STDMETHODCALLTYPE put_AppOrigen(
        /* [in, out] */ BSTR* value) = 0;
    /// Muestra un texto largo en una ventana que se puede agrandar. BoFuenteTT omitido equivale a falso en llamadas por nombre; a verdadero en las compiladas.
    virtual HRESULT STDMETHODCALLTYPE MsgFormA(
        /* [in, out] */ BSTR* strCaption,
        /* [in, out] */ BSTR* strMensaje,
        /* [in, out, optional, defaultvalue(VARIANT_TRUE)] */ VARIANT_BOOL* BoFuenteTT) = 0;
    /// Avisa de que el formulario no se puede abrir.
    virtual HRESULT STDMETHODCALLTYPE MsjNoEsPosibleAbrirFormulario() = 0;
    /// Avisa de que el formulario no se puede abrir porque no hay datos.
    virtual HRESULT STDMETHODCALLTYPE MsjNoEsPosibleAbrirFormulario_NoDatos(
        /* [in, out] */ VARIANT* StrNombreFila) = 0;
    /// Avisa de que el formulario ya está abierto.
    virtual HRESULT STDMETHODCALLTYPE MsjFormularioEstaAbierto() = 0;
    /// Pregunta si se vuelve a abrir un formulario abierto: 6 sí, 7 no.
    virtual HRESULT STDMETHODCALLTYPE MsjFormularioEstaAbiertoDeseaVolverAAbrirlo(
        /* [out, retval] */ long* result) = 0;
    /// Pide que se elija un elemento de la lista.
    virtual HRESULT STDMETHODCALLTYPE MsjElegirElementoDeLista() = 0;
    /// Pide que se escriba bien un dato.
    virtual HRESULT STDMETHODCALLTYPE MsjEscribaElDatoCorrectamente(
        /* [in, out, optional, defaultvalue("")] */ BSTR* strNombreDato) = 0;
    /// Avisa de que un dato no puede quedar vacío.
    virtual HRESULT STDMETHODCALLTYPE MsjDatoNoVacio(
        /* [in, out, optional, defaultvalue("")] */ BSTR* strNombreDato) = 0;
    /// Pide que se escriba bien la fecha.
    virtual HRESULT STDMETHODCALLTYPE MsjFechaIncorrecta() = 0;
    /// Avisa de que una fecha debe ser posterior a otra.
    virtual HRESULT STDMETHODCALLTYPE MsjFechaMayorQue(
        /* [in, out] */ BSTR* Fecha,
        /* [in, out] */ BSTR* FechaMenor) = 0;
    /// Avisa de que una fecha debe ser posterior o igual a otra.
    virtual HRESULT STDMETHODCALLTYPE MsjFechaMayorIgualQue(
        /* [in, out] */ BSTR* Fecha,
        /* [in, out] */ BSTR* FechaMenor) = 0;
    /// Avisa de que una fecha debe ser anterior a otra.
    virtual HRESULT STDMETHODCALLTYPE MsjFechaMenorQue(
        /* [in, out] */ BSTR* Fecha,
        /* [in, out] */ BSTR* FechaMayor) = 0;
    /// Avisa de que una fecha debe ser anterior o igual a otra.
    virtual HRESULT STDMETHODCALLTYPE MsjFechaMenorIgualQue(
        /* [in, out] */ BSTR* Fecha,
        /* [in, out] */ BSTR* FechaMayor) = 0;
    /// Pide que se guarden o deshagan los cambios del registro.
    virtual HRESULT STDMETHODCALLTYPE MsjGuardarCambiosAntesdeOperacion() = 0;
    /// Pide que se guarden o deshagan los cambios del registro principal.
    virtual HRESULT STDMETHODCALLTYPE MsjGuardarCambiosRegistroPrincipal() = 0;
    /// Pide que se guarden o deshagan los cambios de una tabla.
    virtual HRESULT STDMETHODCALLTYPE MsjGuardarCambiosRegistroSecundario(
        /* [in, out] */ BSTR* NombreRegSecundario) = 0;
    /// Avisa de que el proceso se ha cancelado.
    virtual HRESULT STDMETHODCALLTYPE MsjProcesoCancelado() = 0;
    /// Avisa de que el usuario ha cancelado la operación.
    virtual HRESULT STDMETHODCALLTYPE MsjOperacionCanceladaUsuario() = 0;
    /// Avisa de que la operación ha fallado y remite al proveedor.
    virtual HRESULT STDMETHODCALLTYPE MsjNoEsPosibleRealizarOperacionConsulteProveeedor(
        /* [in, out, optional, defaultvalue("")] */ BSTR* strError) = 0;
    /// Avisa de que la operación ha fallado, con un texto añadido.
    virtual HRESULT STDMETHODCALLTYPE MsjNoEsPosibleRealizarOperacionMasTexto(
        /* [in, out, optional, defaultvalue("")] */ BSTR* strTexto) = 0;
    /// Avisa de que ningún registro cumple el filtro.
    virtual HRESULT STDMETHODCALLTYPE MsjFiltro_NoExistenResgistrosParaFiltro() = 0;
    /// Avisa de que no hay registros en los que buscar.
    virtual HRESULT STDMETHODCALLTYPE MsjBus_NoExistenRegistrosParaBusqueda() = 0;
    /// Avisa de que no se ha encontrado ningún registro.
    virtual HRESULT STDMETHODCALLTYPE MsjBus_RegistroNoEncontrado() = 0;
    /// Pregunta si se va al siguiente registro encontrado: 6 sí, 7 no.
    virtual HRESULT STDMETHODCALLTYPE MsjBus_IrAlSiguienteRegistro(
        /* [in, out] */ short* IntNReg,
        /* [in, out] */ short* IntRegAct,
        /* [out, retval] */ long* result) = 0;
    /// Avisa de que el periodo no se puede facturar.
    virtual HRESULT STDMETHODCALLTYPE MsjFact_NoFacturacionPeriodoReviseFechas() = 0;
    /// Avisa de que el usuario ha cancelado la facturación.
    virtual HRESULT STDMETHODCALLTYPE MsjFact_ProcesoCanceladoUsuario() = 0;
    /// Pregunta si se edita la facturación generada: 6 sí, 7 no.
    virtual HRESULT STDMETHODCALLTYPE MsjFact_DeseaEditarFacturacion(
        /* [out, retval] */ long* result) = 0;
    /// Avisa de que no se han podido eliminar las facturas de pagador.
    virtual HRESULT STDMETHODCALLTYPE MsjFact_ErrorAlEliminarFacturasPag() = 0;
    /// Avisa de que no se ha podido actualizar la numeración de las facturas.
    virtual HRESULT STDMETHODCALLTYPE MsjFact_ErrorAlActualizarNumeracionFacturas() = 0;
    /// Avisa de que no se puede acceder a la base de datos.
    virtual HRESULT STDMETHODCALLTYPE MsjBD_ErrorAlAbrirBaseDatos(
        /* [in, out, optional, defaultvalue("")] */ BSTR* StrDescripcion) = 0;
    /// Muestra los errores de una conexión de ADO.
    virtual HRESULT STDMETHODCALLTYPE MensajeErroresADO(
        /* [in, out] */ BSTR* strErrorTextoGenerico,
        /* [in, out] */ IDispatch** colecErrors) = 0;
    /// Número de errores de una conexión de ADO.
    virtual HRESULT STDMETHODCALLTYPE ExistenErroresADO(
        /* [in, out] */ IDispatch** Cnn,
        /* [in, out, optional, defaultvalue(VARIANT_FALSE)] */ VARIANT_BOOL* boMensajes,
        /* [out, retval] */ short* result) = 0;
};

class DECLSPEC_UUID("3F3419CF-3EE3-40D7-8D9E-4B1688BFF94D") clsMensajes;

extern "C++" const GUID DECLSPEC_SELECTANY LIBID_Kovrel = {
    0x5f3d33d3, 0x6df8, 0x47bb, {0x97, 0x28, 0x0a, 0xa1, 0x84, 0x48, 0xb6, 0x4f}};
extern "C++" const GUID DECLSPEC_SELECTANY CLSID_clsFFechas = {
    0xb502dffc, 0x3580, 0x43af, {0xad, 0xa3, 0xbd, 0x09, 0x97, 0x37, 0x4d, 0xf0}};
extern "C++" const GUID DECLSPEC_SELECTANY IID__clsFFechas = {
    0x14d1652c, 0xbb05, 0x49ab, {0x87, 0x6c, 0x17, 0x07, 0x56, 0x52, 0x4f, 0x3f}};
constexpr wchar_t ProgID_clsFFechas[] = L"Kovrel.clsFFechas";
extern "C++" const GUID DECLSPEC_SELECTANY CLSID_clsADODBServices = {
    0x26f03347, 0x4c52, 0x4c18, {0xa8, 0x55, 0x22, 0x14, 0xe9, 0x16, 0x67, 0x2a}};
extern "C++" const GUID DECLSPEC_SELECTANY IID__clsADODBServices = {
    0x96a96848, 0x4a30, 0x4387, {0xb1, 0x01, 0xf9, 0x5a, 0x0c, 0xe7, 0xf2, 0x7a}};
constexpr wchar_t ProgID_clsADODBServices[] = L"Kovrel.clsADODBServices";
extern "C++" const GUID DECLSPEC_SELECTANY CLSID_cgsFileOpR = {
    0xa30b4e1e, 0xb14c, 0x4d78, {0xb0, 0x79, 0x95, 0xf1, 0x92, 0x77, 0xd1, 0xba}};
extern "C++" const GUID DECLSPEC_SELECTANY IID__cgsFileOpR = {
    0x48979160, 0x1712, 0x42db, {0x94, 0x13, 0x41, 0x2d, 0xdb, 0x41, 0xb8, 0xc0}};
constexpr wchar_t ProgID_cgsFileOpR[] = L"Kovrel.cgsFileOpR";
extern "C++" const GUID DECLSPEC_SELECTANY CLSID_clsProfile = {
    0x1e7abfef, 0x6918, 0x446f, {0x92, 0x92, 0x79, 0xd2, 0x8e, 0x29, 0xba, 0xe4}};
extern "C++" const GUID DECLSPEC_SELECTANY IID__clsProfile = {
    0x676ccd3c, 0x548e, 0x4500, {0xb1, 0xf8, 0xff, 0x37, 0xcc, 0xfa, 0x40, 0x6f}};
constexpr wchar_t ProgID_clsProfile[] = L"Kovrel.clsProfile";
extern "C++" const GUID DECLSPEC_SELECTANY CLSID_clsCSQL = {
    0x5c64153b, 0x570a, 0x410c, {0x97, 0x82, 0xe2, 0x29, 0x03, 0x40, 0xe2, 0x81}};
extern "C++" const GUID DECLSPEC_SELECTANY IID__clsCSQL = {
    0x3595bc35, 0x8bdf, 0x4492, {0xb4, 0x3a, 0x59, 0x53, 0x00, 0x8e, 0xe0, 0xcf}};
constexpr wchar_t ProgID_clsCSQL[] = L"Kovrel.clsCSQL";
extern "C++" const GUID DECLSPEC_SELECTANY CLSID_clsFZip = {
    0x4fea3aac, 0x49bb, 0x4527, {0x87, 0x8a, 0xaf, 0x26, 0x28, 0x36, 0x4a, 0x4d}};
extern "C++" const GUID DECLSPEC_SELECTANY IID__clsFZip = {
    0x45411d2b, 0x08df, 0x4228, {0x86, 0x72, 0x0c, 0x96, 0x7e, 0xd8, 0x04, 0x3a}};
constexpr wchar_t ProgID_clsFZip[] = L"Kovrel.clsFZip";
extern "C++" const GUID DECLSPEC_SELECTANY CLSID_clsFGen = {
    0x20a24250, 0x90c1, 0x4802, {0x80, 0x98, 0xd6, 0x8c, 0x3b, 0x2c, 0x84, 0xec}};
extern "C++" const GUID DECLSPEC_SELECTANY IID__clsFGen = {
    0x513d12c4, 0xd877, 0x4855, {0x8f, 0x0e, 0xb2, 0x41, 0x04, 0x04, 0x62, 0x33}};
constexpr wchar_t ProgID_clsFGen[] = L"Kovrel.clsFGen";
extern "C++" const GUID DECLSPEC_SELECTANY CLSID_clsMensajes = {
    0x3f3419cf, 0x3ee3, 0x40d7, {0x8d, 0x9e, 0x4b, 0x16, 0x88, 0xbf, 0xf9, 0x4d}};
extern "C++" const GUID DECLSPEC_SELECTANY IID__clsMensajes = {
    0x36ca0814, 0x7bfb, 0x4448, {0x91, 0x48, 0x42, 0xa4, 0x7b, 0x8b, 0x09, 0x67}};
constexpr wchar_t ProgID_clsMensajes[] = L"Kovrel.clsMensajes";
extern "C++" const GUID DECLSPEC_SELECTANY GUID_ZIPnames = {
    0x15bb8312, 0x9bf7, 0x4b46, {0x8a, 0x75, 0xac, 0xf9, 0xef, 0xcf, 0x3a, 0xd2}};

}  // namespace Kovrel

#ifdef __CRT_UUID_DECL
__CRT_UUID_DECL(Kovrel::clsFFechas,
                0xb502dffc, 0x3580, 0x43af, 0xad, 0xa3, 0xbd, 0x09, 0x97, 0x37, 0x4d, 0xf0)
__CRT_UUID_DECL(Kovrel::_clsFFechas,
                0x14d1652c, 0xbb05, 0x49ab, 0x87, 0x6c, 0x17, 0x07, 0x56, 0x52, 0x4f, 0x3f)
__CRT_UUID_DECL(Kovrel::clsADODBServices,
                0x26f03347, 0x4c52, 0x4c18, 0xa8, 0x55, 0x22, 0x14, 0xe9, 0x16, 0x67, 0x2a)
__CRT_UUID_DECL(Kovrel::_clsADODBServices,
                0x96a96848, 0x4a30, 0x4387, 0xb1, 0x01, 0xf9, 0x5a, 0x0c, 0xe7, 0xf2, 0x7a)
__CRT_UUID_DECL(Kovrel::cgsFileOpR,
                0xa30b4e1e, 0xb14c, 0x4d78, 0xb0, 0x79, 0x95, 0xf1, 0x92, 0x77, 0xd1, 0xba)
__CRT_UUID_DECL(Kovrel::_cgsFileOpR,
                0x48979160, 0x1712, 0x42db, 0x94, 0x13, 0x41, 0x2d, 0xdb, 0x41, 0xb8, 0xc0)
__CRT_UUID_DECL(Kovrel::clsProfile,
                0x1e7abfef, 0x6918, 0x446f, 0x92, 0x92, 0x79, 0xd2, 0x8e, 0x29, 0xba, 0xe4)
__CRT_UUID_DECL(Kovrel::_clsProfile,
                0x676ccd3c, 0x548e, 0x4500, 0xb1, 0xf8, 0xff, 0x37, 0xcc, 0xfa, 0x40, 0x6f)
__CRT_UUID_DECL(Kovrel::clsCSQL,
                0x5c64153b, 0x570a, 0x410c, 0x97, 0x82, 0xe2, 0x29, 0x03, 0x40, 0xe2, 0x81)
__CRT_UUID_DECL(Kovrel::_clsCSQL,
                0x3595bc35, 0x8bdf, 0x4492, 0xb4, 0x3a, 0x59, 0x53, 0x00, 0x8e, 0xe0, 0xcf)
__CRT_UUID_DECL(Kovrel::clsFZip,
                0x4fea3aac, 0x49bb, 0x4527, 0x87, 0x8a, 0xaf, 0x26, 0x28, 0x36, 0x4a, 0x4d)
__CRT_UUID_DECL(Kovrel::_clsFZip,
                0x45411d2b, 0x08df, 0x4228, 0x86, 0x72, 0x0c, 0x96, 0x7e, 0xd8, 0x04, 0x3a)
__CRT_UUID_DECL(Kovrel::clsFGen,
                0x20a24250, 0x90c1, 0x4802, 0x80, 0x98, 0xd6, 0x8c, 0x3b, 0x2c, 0x84, 0xec)
__CRT_UUID_DECL(Kovrel::_clsFGen,
                0x513d12c4, 0xd877, 0x4855, 0x8f, 0x0e, 0xb2, 0x41, 0x04, 0x04, 0x62, 0x33)
__CRT_UUID_DECL(Kovrel::clsMensajes,
                0x3f3419cf, 0x3ee3, 0x40d7, 0x8d, 0x9e, 0x4b, 0x16, 0x88, 0xbf, 0xf9, 0x4d)
__CRT_UUID_DECL(Kovrel::_clsMensajes,
                0x36ca0814, 0x7bfb, 0x4448, 0x91, 0x48, 0x42, 0xa4, 0x7b, 0x8b, 0x09, 0x67)
__CRT_UUID_DECL(Kovrel::ZIPnames,
                0x15bb8312, 0x9bf7, 0x4b46, 0x8a, 0x75, 0xac, 0xf9, 0xef, 0xcf, 0x3a, 0xd2)
#endif
