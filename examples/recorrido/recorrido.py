"""Kovrel desde Python con pywin32: todas sus clases, con argumentos de todos los tipos.

    python recorrido.py CARPETA

No muestra nada en pantalla: clsAvisos lo anota todo. Escribe sus archivos en la carpeta.

DumbDispatch llama por nombre y pasa copias: lo que un miembro cambia en sus argumentos no vuelve, y se usa su
resultado. Los argumentos opcionales se omiten. (Con Dispatch, que consulta la biblioteca de tipos, un miembro
con argumentos por referencia devuelve una tupla: su resultado y, detrás, esos argumentos como quedan.) Los
eventos los recibe una clase con métodos On y el nombre del evento.
"""
import datetime
import sys

from win32com.client import DispatchWithEvents
from win32com.client.dynamic import DumbDispatch

ID_NIF, ID_DNI = 1, 2
DI_SQLITE = 4
AR_NUEVO = 0
SI_NO, NO = 4, 7
OFN_HIDEREADONLY, OFN_FILEMUSTEXIST = 0x4, 0x1000


class Oyente:
    def OnAviso(self, aviso, respuesta, mostrar):
        print("Evento:", DumbDispatch(aviso).Miembro)

    def OnProgreso(self, porcentaje, mensaje, cancelar):
        print("Evento: progreso", porcentaje)


def si_no(valor):
    return "sí" if valor else "no"


def generales(general):
    general.AppOrigen = "Recorrido"
    print("Título:", general.AppOrigen)
    print("NIF:", general.Verifica_NIF("12345678A"))
    print("Letra:", general.LetraNIF(12345678))
    print("Nulo:", general.Nz(None, "ninguno"))
    print("Importe:", general.ConvEurosALetra(12.5))
    print("Número:", general.ConvNumeroALetra(21, "factura", "facturas"))
    general.BarraProgresoInicia("Recorrido", "Se recorre", True)
    general.BarraProgresoActualiza(50)
    print("Cancelada:", si_no(general.BarraProgresoCancelada()))
    general.BarraProgresoFinaliza()


def mensajes(avisos):
    catalogo = DumbDispatch("Kovrel.clsMensajes")
    catalogo.AppOrigen = "Avisos"
    print("Catálogo:", catalogo.AppOrigen)
    avisos.Respuestas(SI_NO, NO, "editar")
    print("Editar:", catalogo.MsjFact_DeseaEditarFacturacion())


def fechas():
    calendario = DumbDispatch("Kovrel.clsFFechas")
    ultimo = calendario.UltimoDiaMesActual(2, 2024)
    print("Último día:", ultimo.day)
    print("Semana del mes:", calendario.SemanaEnElMes(ultimo))
    print("Mes:", calendario.mes_letra(2))
    print("Año:", calendario.ConvierteAñoA4(24))
    print("Bisiesto:", si_no(calendario.EsBisiesto(2024)))


def textos():
    sql = DumbDispatch("Kovrel.clsCSQL")
    dia = datetime.datetime(2024, 2, 29)
    print("SQL:", sql.Conv_String("O'Donnell"), sql.Conv_Boolean(True), sql.Conv_DoubleDeDouble(12.5),
          sql.Conv_Date_Date(dia), sep=", ")
    dialectos = DumbDispatch("Kovrel.clsFSQL")
    dialectos.Dialecto = DI_SQLITE
    print("SQLite:", dialectos.Texto("O'Donnell"), dialectos.Numero(12.5), dialectos.Booleano(True), sep=", ")


def carpetas(carpeta):
    perfil = DumbDispatch("Kovrel.clsProfile")
    ini = carpeta + r"\recorrido.ini"
    print("Ruta:", perfil.AñadirBackSlash(r"C:\Datos"))
    print("Carpeta creada:", si_no(perfil.ExisteCarpeta(carpeta + r"\copias", True, False)))
    perfil.GuardarIni(ini, "Empresa", "Nombre", "Peña")
    print("Leído:", perfil.LeerIni(ini, "Empresa", "Nombre"))
    print("Sin valor:", perfil.LeerIni(ini, "Empresa", "Fax", "no tiene"))


def dialogo():
    archivo = DumbDispatch("Kovrel.cgsFileOpR")
    archivo.Flags = OFN_FILEMUSTEXIST | OFN_HIDEREADONLY
    print("Opciones:", archivo.Flags)


def identificadores():
    ident = DumbDispatch("Kovrel.clsFIdent")
    print("DNI correcto:", si_no(ident.Comprueba(ID_DNI, "12345678A")))
    print("Motivo:", ident.TextoMotivo(ident.MotivoDe(ID_DNI, "12345678A")))
    motivos = ident.CompruebaLista(ID_NIF, ["12345678Z", "12345678A"])
    print("Motivos:", *motivos)


def registros(general, carpeta):
    datos = DumbDispatch("Kovrel.clsADODBServices")
    print("Registro:", datos.RecordLocation(general))
    datos.PutImageInField(general, carpeta + r"\no hay.bmp")


def anotado(avisos):
    print("Avisos:", avisos.Count)
    for aviso in avisos:
        print("Aviso:", aviso.Clase, aviso.Miembro, aviso.Respuesta)


def archivos(general, carpeta):
    zip_de_cien = DumbDispatch("Kovrel.clsFZip")
    uno = zip_de_cien.GenerarZip("uno.zip", carpeta, [carpeta + r"\recorrido.ini"])
    print("Zip:", si_no(uno == carpeta + r"\uno.zip"))
    comprimidos = DumbDispatch("Kovrel.clsFArchivo")
    comprimidos.Nivel = 9
    general.BarraProgresoInicia("Recorrido", "Se comprime", True)
    entradas = comprimidos.Comprime(carpeta + r"\dos.zip", [carpeta + r"\recorrido.ini", uno], "",
                                    AR_NUEVO, general)
    general.BarraProgresoFinaliza()
    print("Completo:", si_no(entradas.Completo))
    for entrada in entradas:
        print(f"Entrada: {entrada.Nombre}, estado {entrada.Estado}")


def main():
    carpeta = sys.argv[1]
    avisos = DispatchWithEvents("Kovrel.clsAvisos", Oyente)
    avisos.Modo = 1  # maSilencio
    general = DumbDispatch("Kovrel.clsFGen")
    generales(general)
    mensajes(avisos)
    fechas()
    textos()
    carpetas(carpeta)
    dialogo()
    identificadores()
    registros(general, carpeta)
    anotado(avisos)
    archivos(general, carpeta)


if __name__ == "__main__":
    main()
