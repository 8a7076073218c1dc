// Kovrel desde C: todas sus clases, con argumentos de todos los tipos.
//
//   recorrido CARPETA
//
// No muestra nada en pantalla: clsAvisos lo anota todo. Escribe sus archivos en la carpeta. Cada miembro
// se llama con la macro de su nombre; las propiedades, con get_, put_ y putref_.
#define COBJMACROS
#include <kovrel.h>
#include <stdio.h>
#include <stdlib.h>

// Un fallo termina el programa con su descripción, que deja la biblioteca.
static void Comprueba(HRESULT resultado) {
    IErrorInfo* informacion = NULL;
    BSTR descripcion = NULL;
    if (SUCCEEDED(resultado)) return;
    if (GetErrorInfo(0, &informacion) == S_OK) {
        IErrorInfo_GetDescription(informacion, &descripcion);
        IErrorInfo_Release(informacion);
    }
    printf("Fallo 0x%08lX: %ls\n", (unsigned long)resultado, descripcion ? descripcion : L"");
    exit(1);
}

// Escribe un texto en UTF-8 y lo libera.
static void Escribe(const char* antes, BSTR texto) {
    char utf8[1000];
    const int usados = WideCharToMultiByte(CP_UTF8, 0, texto, (int)SysStringLen(texto), utf8,
                                           (int)sizeof utf8, NULL, NULL);
    printf("%s%.*s\n", antes, usados, utf8);
    SysFreeString(texto);
}

static const char* SiNo(VARIANT_BOOL valor) {
    return valor != VARIANT_FALSE ? "sí" : "no";
}

static void* Crea(const CLSID* clase, const IID* interfaz) {
    void* instancia = NULL;
    Comprueba(CoCreateInstance(clase, NULL, CLSCTX_INPROC_SERVER, interfaz, &instancia));
    return instancia;
}

// Un texto que empieza por la carpeta del programa.
static BSTR EnCarpeta(BSTR carpeta, const wchar_t* nombre) {
    BSTR texto = NULL;
    BSTR resto = SysAllocString(nombre);
    Comprueba(VarBstrCat(carpeta, resto, &texto));
    SysFreeString(resto);
    return texto;
}

static VARIANT Variante(VARTYPE tipo) {
    VARIANT valor;
    VariantInit(&valor);
    V_VT(&valor) = tipo;
    return valor;
}

// El argumento opcional que falta.
static VARIANT QueFalta(void) {
    VARIANT valor = Variante(VT_ERROR);
    V_ERROR(&valor) = DISP_E_PARAMNOTFOUND;
    return valor;
}

static VARIANT DeTexto(const wchar_t* texto) {
    VARIANT valor = Variante(VT_BSTR);
    V_BSTR(&valor) = SysAllocString(texto);
    return valor;
}

// Una matriz de dos textos, que pasan a ser suyos.
static VARIANT DeTextos(BSTR uno, BSTR otro) {
    VARIANT valor = Variante(VT_ARRAY | VT_VARIANT);
    VARIANT* elementos = NULL;
    V_ARRAY(&valor) = SafeArrayCreateVector(VT_VARIANT, 0, 2);
    Comprueba(SafeArrayAccessData(V_ARRAY(&valor), (void**)&elementos));
    V_VT(&elementos[0]) = V_VT(&elementos[1]) = VT_BSTR;
    V_BSTR(&elementos[0]) = uno;
    V_BSTR(&elementos[1]) = otro;
    Comprueba(SafeArrayUnaccessData(V_ARRAY(&valor)));
    return valor;
}

// Quien recibe los eventos de clsAvisos. Vive más que la conexión, así que no cuenta referencias.
static HRESULT STDMETHODCALLTYPE Pide(IDispatch* este, REFIID interfaz, void** objeto) {
    if (!IsEqualIID(interfaz, &IID_IUnknown) && !IsEqualIID(interfaz, &IID_IDispatch) &&
        !IsEqualIID(interfaz, &DIID__clsAvisosEvents)) {
        *objeto = NULL;
        return E_NOINTERFACE;
    }
    *objeto = este;
    return S_OK;
}

static ULONG STDMETHODCALLTYPE Cuenta(IDispatch* este) {
    (void)este;
    return 1;
}

static HRESULT STDMETHODCALLTYPE SinTipos(IDispatch* este, UINT* cuantos) {
    (void)este;
    *cuantos = 0;
    return S_OK;
}

static HRESULT STDMETHODCALLTYPE SinTipo(IDispatch* este, UINT indice, LCID idioma, ITypeInfo** tipo) {
    (void)este, (void)indice, (void)idioma;
    *tipo = NULL;
    return DISP_E_BADINDEX;
}

static HRESULT STDMETHODCALLTYPE SinNombres(IDispatch* este, REFIID nulo, LPOLESTR* nombres, UINT cuantos,
                                            LCID idioma, DISPID* numeros) {
    (void)este, (void)nulo, (void)nombres, (void)cuantos, (void)idioma, (void)numeros;
    return DISP_E_UNKNOWNNAME;
}

// Los argumentos vienen del último al primero.
static HRESULT STDMETHODCALLTYPE Recibe(IDispatch* este, DISPID evento, REFIID nulo, LCID idioma, WORD clase,
                                        DISPPARAMS* datos, VARIANT* resultado, EXCEPINFO* excepcion,
                                        UINT* erroneo) {
    (void)este, (void)nulo, (void)idioma, (void)clase, (void)resultado, (void)excepcion, (void)erroneo;
    if (evento == _clsAvisosEvents_id_Aviso) {
        IDispatch* const objeto = V_DISPATCH(&datos->rgvarg[2]);
        _clsAviso* aviso = NULL;
        BSTR miembro = NULL;
        Comprueba(IDispatch_QueryInterface(objeto, &IID__clsAviso, (void**)&aviso));
        Comprueba(_clsAviso_get_Miembro(aviso, &miembro));
        Escribe("Evento: ", miembro);
        _clsAviso_Release(aviso);
    } else if (evento == _clsAvisosEvents_id_Progreso) {
        printf("Evento: progreso %ld\n", V_I4(&datos->rgvarg[2]));
        if (V_I4(&datos->rgvarg[2]) > 90) *V_BOOLREF(&datos->rgvarg[0]) = VARIANT_TRUE;
    }
    return S_OK;
}

static IDispatchVtbl funciones_de_eventos = {Pide,    Cuenta,     Cuenta, SinTipos,
                                             SinTipo, SinNombres, Recibe};
static IDispatch receptor = {&funciones_de_eventos};

// El punto de conexión de los eventos, y en numero la conexión.
static IConnectionPoint* Conecta(_clsAvisos* avisos, DWORD* numero) {
    IConnectionPointContainer* puntos = NULL;
    IConnectionPoint* punto = NULL;
    Comprueba(_clsAvisos_QueryInterface(avisos, &IID_IConnectionPointContainer, (void**)&puntos));
    Comprueba(IConnectionPointContainer_FindConnectionPoint(puntos, &DIID__clsAvisosEvents, &punto));
    Comprueba(IConnectionPoint_Advise(punto, (IUnknown*)&receptor, numero));
    IConnectionPointContainer_Release(puntos);
    return punto;
}

static void Generales(_clsFGen* general) {
    BSTR texto = SysAllocString(L"Recorrido");
    BSTR resultado = NULL;
    BSTR plural = NULL;
    BSTR vacio = NULL;
    VARIANT_BOOL si = VARIANT_TRUE;
    long numero = 12345678;
    short tecla = 'a';
    short resultante = 0;
    double importe = 12.5;
    VARIANT nulo = Variante(VT_NULL);
    VARIANT sustituto = DeTexto(L"ninguno");
    VARIANT valor = Variante(VT_EMPTY);
    Comprueba(_clsFGen_put_AppOrigen(general, &texto));
    SysFreeString(texto);
    Comprueba(_clsFGen_get_AppOrigen(general, &resultado));
    Escribe("Título: ", resultado);
    texto = SysAllocString(L"12345678A");
    Comprueba(_clsFGen_Verifica_NIF(general, texto, &si, &resultado));
    Escribe("NIF: ", resultado);
    SysFreeString(texto);
    Comprueba(_clsFGen_LetraNIF(general, &numero, &resultado));
    Escribe("Letra: ", resultado);
    // Las variables vuelven cambiadas.
    texto = SysAllocString(L"12.345.678-Z");
    Comprueba(_clsFGen_QuitaCaracteresyEspacios(general, &texto));
    Escribe("Por referencia, texto: ", texto);
    Comprueba(_clsFGen_Convierte_May(general, &tecla, &resultante));
    printf("Por referencia, número: %d\n", tecla);
    Comprueba(_clsFGen_Nz(general, &nulo, &sustituto, &valor));
    Escribe("Nulo: ", V_BSTR(&valor));
    VariantClear(&sustituto);
    Comprueba(_clsFGen_ConvEurosALetra(general, &importe, &resultado));
    Escribe("Importe: ", resultado);
    valor = Variante(VT_I4);
    V_I4(&valor) = 21;
    texto = SysAllocString(L"factura");
    plural = SysAllocString(L"facturas");
    numero = 0;
    Comprueba(_clsFGen_ConvNumeroALetra(general, valor, &texto, &plural, &vacio, &vacio, &numero,
                                        &resultado));
    Escribe("Número: ", resultado);
    SysFreeString(plural);
    SysFreeString(texto);
}

static void Progreso(_clsFGen* general, const wchar_t* mensaje) {
    BSTR titulo = SysAllocString(L"Recorrido");
    BSTR texto = SysAllocString(mensaje);
    Comprueba(_clsFGen_BarraProgresoInicia(general, titulo, texto, VARIANT_TRUE, -1, -1, -1, -1, -1));
    SysFreeString(texto);
    SysFreeString(titulo);
}

static void Mitad(_clsFGen* general) {
    long porcentaje = 50;
    BSTR vacio = NULL;
    VARIANT_BOOL cancelada = VARIANT_FALSE;
    Progreso(general, L"Se recorre");
    Comprueba(_clsFGen_BarraProgresoActualiza(general, &porcentaje, &vacio));
    Comprueba(_clsFGen_BarraProgresoCancelada(general, &cancelada));
    printf("Cancelada: %s\n", SiNo(cancelada));
    Comprueba(_clsFGen_BarraProgresoFinaliza(general));
}

static void Mensajes(_clsFGen* general, _clsAvisos* avisos) {
    _clsMensajes* catalogo = Crea(&CLSID_clsMensajes, &IID__clsMensajes);
    _clsMensajes* el_mismo = NULL;
    BSTR texto = SysAllocString(L"Avisos");
    long respuesta = 0;
    Comprueba(_clsMensajes_put_AppOrigen(catalogo, &texto));
    SysFreeString(texto);
    // Una propiedad que es un objeto.
    Comprueba(_clsFGen_putref_Mensajes(general, catalogo));
    Comprueba(_clsFGen_get_Mensajes(general, &el_mismo));
    Comprueba(_clsMensajes_get_AppOrigen(el_mismo, &texto));
    Escribe("Catálogo: ", texto);
    _clsMensajes_Release(el_mismo);
    texto = SysAllocString(L"editar");
    Comprueba(_clsAvisos_Respuestas(avisos, MB_YESNO, IDNO, texto));
    SysFreeString(texto);
    Comprueba(_clsMensajes_MsjFact_DeseaEditarFacturacion(catalogo, &respuesta));
    printf("Editar: %ld\n", respuesta);
    _clsMensajes_Release(catalogo);
}

static void Fechas(void) {
    _clsFFechas* calendario = Crea(&CLSID_clsFFechas, &IID__clsFFechas);
    short mes = 2;
    short anyo = 2024;
    short semana = 0;
    BYTE numero_de_mes = 2;
    DATE ultimo = 0;
    SYSTEMTIME partes = {0};
    BSTR texto = NULL;
    VARIANT_BOOL bisiesto = VARIANT_FALSE;
    Comprueba(_clsFFechas_UltimoDiaMesActual(calendario, &mes, &anyo, &ultimo));
    VariantTimeToSystemTime(ultimo, &partes);
    printf("Último día: %d\n", partes.wDay);
    Comprueba(_clsFFechas_SemanaEnElMes(calendario, ultimo, &semana));
    printf("Semana del mes: %d\n", semana);
    Comprueba(_clsFFechas_mes_letra(calendario, &numero_de_mes, &texto));
    Escribe("Mes: ", texto);
    anyo = 24;
    Comprueba(_clsFFechas_ConvierteAñoA4(calendario, &anyo, &texto));
    Escribe("Año: ", texto);
    Comprueba(_clsFFechas_EsBisiesto(calendario, 2024, &bisiesto));
    printf("Bisiesto: %s\n", SiNo(bisiesto));
    _clsFFechas_Release(calendario);
}

static void Textos(void) {
    _clsCSQL* sql = Crea(&CLSID_clsCSQL, &IID__clsCSQL);
    BSTR cadena = SysAllocString(L"O'Donnell");
    BSTR literal = NULL;
    BSTR numero = NULL;
    BSTR fecha = NULL;
    VARIANT_BOOL si = VARIANT_TRUE;
    short entero = 0;
    double importe = 12.5;
    DATE dia = 45351;  // el 29 de febrero de 2024
    Comprueba(_clsCSQL_Conv_String(sql, &cadena, &literal));
    Comprueba(_clsCSQL_Conv_Boolean(sql, &si, &entero));
    Comprueba(_clsCSQL_Conv_DoubleDeDouble(sql, &importe, &numero));
    Comprueba(_clsCSQL_Conv_Date_Date(sql, &dia, &fecha));
    printf("SQL: %ls, %d, %ls, %ls\n", literal, entero, numero, fecha);
    SysFreeString(fecha);
    SysFreeString(numero);
    SysFreeString(literal);
    SysFreeString(cadena);
    _clsCSQL_Release(sql);
}

static void TextosDeSQLite(void) {
    _clsFSQL* dialectos = Crea(&CLSID_clsFSQL, &IID__clsFSQL);
    BSTR texto = NULL;
    BSTR numero = NULL;
    BSTR booleano = NULL;
    VARIANT cadena = Variante(VT_BSTR);
    VARIANT importe = Variante(VT_R8);
    VARIANT si = Variante(VT_BOOL);
    V_BSTR(&cadena) = SysAllocString(L"O'Donnell");
    V_R8(&importe) = 12.5;
    V_BOOL(&si) = VARIANT_TRUE;
    Comprueba(_clsFSQL_put_Dialecto(dialectos, diSQLite));
    Comprueba(_clsFSQL_Texto(dialectos, cadena, &texto));
    Comprueba(_clsFSQL_Numero(dialectos, importe, &numero));
    Comprueba(_clsFSQL_Booleano(dialectos, si, &booleano));
    printf("SQLite: %ls, %ls, %ls\n", texto, numero, booleano);
    SysFreeString(booleano);
    SysFreeString(numero);
    SysFreeString(texto);
    VariantClear(&cadena);
    _clsFSQL_Release(dialectos);
}

static void Carpetas(BSTR carpeta) {
    _clsProfile* perfil = Crea(&CLSID_clsProfile, &IID__clsProfile);
    BSTR texto = SysAllocString(L"C:\\Datos");
    BSTR resultado = NULL;
    BSTR ruta = EnCarpeta(carpeta, L"\\copias");
    BSTR seccion = SysAllocString(L"Empresa");
    BSTR clave = SysAllocString(L"Nombre");
    VARIANT_BOOL crea = VARIANT_TRUE;
    VARIANT_BOOL mensaje = VARIANT_FALSE;
    VARIANT_BOOL existe = VARIANT_FALSE;
    VARIANT si_falta = QueFalta();
    Comprueba(_clsProfile_AñadirBackSlash(perfil, texto, &resultado));
    Escribe("Ruta: ", resultado);
    SysFreeString(texto);
    Comprueba(_clsProfile_ExisteCarpeta(perfil, &ruta, &crea, &mensaje, &existe));
    printf("Carpeta creada: %s\n", SiNo(existe));
    SysFreeString(ruta);
    ruta = EnCarpeta(carpeta, L"\\recorrido.ini");
    texto = SysAllocString(L"Peña");
    Comprueba(_clsProfile_GuardarIni(perfil, &ruta, &seccion, &clave, &texto));
    SysFreeString(texto);
    Comprueba(_clsProfile_LeerIni(perfil, &ruta, &seccion, &clave, &si_falta, &resultado));
    Escribe("Leído: ", resultado);
    SysReAllocString(&clave, L"Fax");
    si_falta = DeTexto(L"no tiene");
    Comprueba(_clsProfile_LeerIni(perfil, &ruta, &seccion, &clave, &si_falta, &resultado));
    Escribe("Sin valor: ", resultado);
    VariantClear(&si_falta);
    SysFreeString(clave);
    SysFreeString(seccion);
    SysFreeString(ruta);
    _clsProfile_Release(perfil);
}

static void Dialogo(void) {
    _cgsFileOpR* archivo = Crea(&CLSID_cgsFileOpR, &IID__cgsFileOpR);
    eOFN opciones = OFN_FILEMUSTEXIST;
    BSTR todo = SysAllocString(L"C:\\Datos\\carta.txt");
    BSTR ruta = NULL;
    VARIANT nombre = Variante(VT_EMPTY);
    VARIANT extension = Variante(VT_EMPTY);
    Comprueba(_cgsFileOpR_put_Flags(archivo, OFN_FILEMUSTEXIST | OFN_HIDEREADONLY));
    Comprueba(_cgsFileOpR_get_Flags(archivo, &opciones));
    printf("Opciones: %d\n", (int)opciones);
    Comprueba(_cgsFileOpR_SplitPath(archivo, todo, &ruta, &nombre, &extension));
    printf("Por referencia, partes: %ls %ls %ls\n", ruta, V_BSTR(&nombre), V_BSTR(&extension));
    VariantClear(&extension);
    VariantClear(&nombre);
    SysFreeString(ruta);
    SysFreeString(todo);
    _cgsFileOpR_Release(archivo);
}

static void Identificadores(void) {
    _clsFIdent* comprobador = Crea(&CLSID_clsFIdent, &IID__clsFIdent);
    BSTR dni = SysAllocString(L"12345678A");
    BSTR texto = NULL;
    eMotivo motivo = moCorrecto;
    VARIANT_BOOL correcto = VARIANT_TRUE;
    VARIANT lista = DeTextos(SysAllocString(L"12345678Z"), SysAllocString(L"12345678A"));
    VARIANT motivos = Variante(VT_EMPTY);
    VARIANT uno = Variante(VT_EMPTY);
    VARIANT otro = Variante(VT_EMPTY);
    LONG indice = 0;
    Comprueba(_clsFIdent_Comprueba(comprobador, idDNI, dni, &motivo, &correcto));
    printf("DNI correcto: %s\n", SiNo(correcto));
    Comprueba(_clsFIdent_TextoMotivo(comprobador, motivo, &texto));
    Escribe("Por referencia, motivo: ", texto);
    // Una matriz de textos, y otra de vuelta.
    Comprueba(_clsFIdent_CompruebaLista(comprobador, idNIF, lista, 0, NULL, &motivos));
    Comprueba(SafeArrayGetElement(V_ARRAY(&motivos), &indice, &uno));
    indice = 1;
    Comprueba(SafeArrayGetElement(V_ARRAY(&motivos), &indice, &otro));
    printf("Motivos: %ld %ld\n", V_I4(&uno), V_I4(&otro));
    VariantClear(&motivos);
    VariantClear(&lista);
    SysFreeString(dni);
    _clsFIdent_Release(comprobador);
}

static void Registros(_clsFGen* general, BSTR carpeta) {
    _clsADODBServices* base = Crea(&CLSID_clsADODBServices, &IID__clsADODBServices);
    IDispatch* objeto = (IDispatch*)general;
    BSTR imagen = EnCarpeta(carpeta, L"\\no hay.bmp");
    BSTR vacio = NULL;
    VARIANT resultado = Variante(VT_EMPTY);
    // Lo que se pasa no es un Recordset.
    Comprueba(_clsADODBServices_RecordLocation(base, &objeto, &vacio, &resultado));
    Escribe("Registro: ", V_BSTR(&resultado));
    // El archivo no existe: el fallo queda anotado.
    Comprueba(_clsADODBServices_PutImageInField(base, &objeto, &imagen));
    SysFreeString(imagen);
    _clsADODBServices_Release(base);
}

static void Anotado(_clsAvisos* avisos) {
    IUnknown* coleccion = NULL;
    IEnumVARIANT* todos = NULL;
    VARIANT elemento = Variante(VT_EMPTY);
    _clsAviso* ultimo = NULL;
    DATE hora = 0;
    DATE ahora = 0;
    SYSTEMTIME reloj;
    long cuantos = 0;
    Comprueba(_clsAvisos_get_Count(avisos, &cuantos));
    printf("Avisos: %ld\n", cuantos);
    Comprueba(_clsAvisos_get__NewEnum(avisos, &coleccion));
    Comprueba(IUnknown_QueryInterface(coleccion, &IID_IEnumVARIANT, (void**)&todos));
    while (IEnumVARIANT_Next(todos, 1, &elemento, NULL) == S_OK) {
        _clsAviso* aviso = NULL;
        eClaseAviso clase = caMensaje;
        BSTR miembro = NULL;
        long respuesta = 0;
        Comprueba(IDispatch_QueryInterface(V_DISPATCH(&elemento), &IID__clsAviso, (void**)&aviso));
        Comprueba(_clsAviso_get_Clase(aviso, &clase));
        Comprueba(_clsAviso_get_Miembro(aviso, &miembro));
        Comprueba(_clsAviso_get_Respuesta(aviso, &respuesta));
        printf("Aviso: %d %ls %ld\n", (int)clase, miembro, respuesta);
        SysFreeString(miembro);
        _clsAviso_Release(aviso);
        VariantClear(&elemento);
    }
    IEnumVARIANT_Release(todos);
    IUnknown_Release(coleccion);
    Comprueba(_clsAvisos_get_Ultimo(avisos, &ultimo));
    Comprueba(_clsAviso_get_Hora(ultimo, &hora));
    _clsAviso_Release(ultimo);
    GetLocalTime(&reloj);
    SystemTimeToVariantTime(&reloj, &ahora);
    printf("Hoy: %s\n", SiNo(ahora - hora < 1 ? VARIANT_TRUE : VARIANT_FALSE));
}

static void Zip(BSTR carpeta) {
    _clsFZip* zip = Crea(&CLSID_clsFZip, &IID__clsFZip);
    ZIPnames nombres = {{NULL}};
    BSTR nombre = SysAllocString(L"uno.zip");
    BSTR esperado = EnCarpeta(carpeta, L"\\uno.zip");
    BSTR resultado = NULL;
    nombres.Nombres[0] = EnCarpeta(carpeta, L"\\recorrido.ini");
    Comprueba(_clsFZip_GenerarZip(zip, &nombre, &carpeta, &nombres, &resultado));
    printf("Zip: %s\n", SiNo(wcscmp(resultado, esperado) == 0 ? VARIANT_TRUE : VARIANT_FALSE));
    SysFreeString(resultado);
    SysFreeString(esperado);
    SysFreeString(nombre);
    SysFreeString(nombres.Nombres[0]);
    _clsFZip_Release(zip);
}

static void Archivos(_clsFGen* general, BSTR carpeta) {
    _clsFArchivo* archivo = Crea(&CLSID_clsFArchivo, &IID__clsFArchivo);
    _clsEntradas* entradas = NULL;
    BSTR nombre = EnCarpeta(carpeta, L"\\dos.zip");
    VARIANT lista = DeTextos(EnCarpeta(carpeta, L"\\recorrido.ini"), EnCarpeta(carpeta, L"\\uno.zip"));
    VARIANT_BOOL completo = VARIANT_FALSE;
    long cuantas = 0;
    Comprueba(_clsFArchivo_put_Nivel(archivo, 9));
    Progreso(general, L"Se comprime");
    Comprueba(_clsFArchivo_Comprime(archivo, nombre, lista, NULL, arNuevo, (IDispatch*)general, &entradas));
    Comprueba(_clsFGen_BarraProgresoFinaliza(general));
    Comprueba(_clsEntradas_get_Completo(entradas, &completo));
    printf("Completo: %s\n", SiNo(completo));
    Comprueba(_clsEntradas_get_Count(entradas, &cuantas));
    for (long indice = 1; indice <= cuantas; ++indice) {
        VARIANT lugar = Variante(VT_I4);
        _clsEntrada* entrada = NULL;
        eEstadoEntrada estado = esHecha;
        BSTR texto = NULL;
        V_I4(&lugar) = indice;
        Comprueba(_clsEntradas_Item(entradas, lugar, &entrada));
        Comprueba(_clsEntrada_get_Nombre(entrada, &texto));
        Comprueba(_clsEntrada_get_Estado(entrada, &estado));
        printf("Entrada: %ls, estado %d\n", texto, (int)estado);
        SysFreeString(texto);
        _clsEntrada_Release(entrada);
    }
    VariantClear(&lista);
    SysFreeString(nombre);
    _clsEntradas_Release(entradas);
    _clsFArchivo_Release(archivo);
}

int wmain(int cuantos, wchar_t** argumentos) {
    _clsAvisos* avisos = NULL;
    _clsFGen* general = NULL;
    IConnectionPoint* punto = NULL;
    DWORD conexion = 0;
    BSTR carpeta = SysAllocString(cuantos > 1 ? argumentos[1] : L".");
    SetConsoleOutputCP(CP_UTF8);
    CoInitialize(NULL);
    avisos = Crea(&CLSID_clsAvisos, &IID__clsAvisos);
    Comprueba(_clsAvisos_put_Modo(avisos, maSilencio));
    general = Crea(&CLSID_clsFGen, &IID__clsFGen);
    punto = Conecta(avisos, &conexion);
    Generales(general);
    Mitad(general);
    Mensajes(general, avisos);
    Fechas();
    Textos();
    TextosDeSQLite();
    Carpetas(carpeta);
    Dialogo();
    Identificadores();
    Registros(general, carpeta);
    Comprueba(IConnectionPoint_Unadvise(punto, conexion));
    IConnectionPoint_Release(punto);
    Anotado(avisos);
    Zip(carpeta);
    Archivos(general, carpeta);
    _clsFGen_Release(general);
    _clsAvisos_Release(avisos);
    CoUninitialize();
    SysFreeString(carpeta);
    return 0;
}
