// Kovrel desde C#: todas sus clases, con argumentos de todos los tipos.
//
//   csc recorrido.cs Kovrel.cs
//   recorrido CARPETA
//
// No muestra nada en pantalla: clsAvisos lo anota todo. Escribe sus archivos en la carpeta.
using System;
using System.Runtime.InteropServices;
using Kovrel;

static class Recorrido
{
    static string carpeta;
    static clsAvisos avisos;
    static clsFGen general;

    static string SiNo(bool valor)
    {
        return valor ? "sí" : "no";
    }

    static void Generales()
    {
        general.AppOrigen = "Recorrido";
        Console.WriteLine("Título: " + general.AppOrigen);
        bool conMensajes = true;
        Console.WriteLine("NIF: " + general.Verifica_NIF("12345678A", ref conMensajes));
        int dni = 12345678;
        Console.WriteLine("Letra: " + general.LetraNIF(ref dni));
        // Las variables vuelven cambiadas.
        string texto = "12.345.678-Z";
        general.QuitaCaracteresyEspacios(ref texto);
        Console.WriteLine("Por referencia, texto: " + texto);
        short tecla = (short)'a';
        general.Convierte_May(ref tecla);
        Console.WriteLine("Por referencia, número: " + tecla);
        object nulo = DBNull.Value;
        object sustituto = "ninguno";
        Console.WriteLine("Nulo: " + general.Nz(ref nulo, ref sustituto));
        double importe = 12.5;
        Console.WriteLine("Importe: " + general.ConvEurosALetra(ref importe));
        string singular = "factura";
        string plural = "facturas";
        string ninguno = "";
        int interno = 0;
        Console.WriteLine("Número: " + general.ConvNumeroALetra(21, ref singular, ref plural, ref ninguno,
                                                                ref ninguno, ref interno));
        // Los argumentos opcionales que van por valor se omiten.
        general.BarraProgresoInicia("Recorrido", "Se recorre", true);
        int porcentaje = 50;
        string mensaje = "";
        general.BarraProgresoActualiza(ref porcentaje, ref mensaje);
        Console.WriteLine("Cancelada: " + SiNo(general.BarraProgresoCancelada()));
        general.BarraProgresoFinaliza();
    }

    static void Mensajes()
    {
        var catalogo = new clsMensajes();
        catalogo.AppOrigen = "Avisos";
        // Una propiedad que es un objeto.
        general.Mensajes = catalogo;
        Console.WriteLine("Catálogo: " + general.Mensajes.AppOrigen);
        const int siNo = 4, no = 7;
        avisos.Respuestas(siNo, no, "editar");
        Console.WriteLine("Editar: " + catalogo.MsjFact_DeseaEditarFacturacion());
    }

    static void Fechas()
    {
        var calendario = new clsFFechas();
        short mes = 2, año = 2024;
        DateTime ultimo = calendario.UltimoDiaMesActual(ref mes, ref año);
        Console.WriteLine("Último día: " + ultimo.Day);
        Console.WriteLine("Semana del mes: " + calendario.SemanaEnElMes(ultimo));
        byte numeroDeMes = 2;
        Console.WriteLine("Mes: " + calendario.mes_letra(ref numeroDeMes));
        año = 24;
        Console.WriteLine("Año: " + calendario.ConvierteAñoA4(ref año));
        Console.WriteLine("Bisiesto: " + SiNo(calendario.EsBisiesto(2024)));
    }

    static void Textos()
    {
        var sql = new clsCSQL();
        string cadena = "O'Donnell";
        bool si = true;
        double importe = 12.5;
        var dia = new DateTime(2024, 2, 29);
        Console.WriteLine("SQL: " + sql.Conv_String(ref cadena) + ", " + sql.Conv_Boolean(ref si) + ", " +
                          sql.Conv_DoubleDeDouble(ref importe) + ", " + sql.Conv_Date_Date(ref dia));
        var dialectos = new clsFSQL();
        dialectos.Dialecto = eDialecto.diSQLite;
        Console.WriteLine("SQLite: " + dialectos.Texto("O'Donnell") + ", " + dialectos.Numero(12.5) + ", " +
                          dialectos.Booleano(true));
    }

    static void Carpetas()
    {
        var perfil = new clsProfile();
        Console.WriteLine("Ruta: " + perfil.AñadirBackSlash(@"C:\Datos"));
        string ruta = carpeta + @"\copias";
        bool crea = true, conMensaje = false;
        Console.WriteLine("Carpeta creada: " + SiNo(perfil.ExisteCarpeta(ref ruta, ref crea, ref conMensaje)));
        ruta = carpeta + @"\recorrido.ini";
        string seccion = "Empresa", clave = "Nombre", valor = "Peña";
        perfil.GuardarIni(ref ruta, ref seccion, ref clave, ref valor);
        // Un objeto que falta.
        object siFalta = Type.Missing;
        Console.WriteLine("Leído: " + perfil.LeerIni(ref ruta, ref seccion, ref clave, ref siFalta));
        clave = "Fax";
        siFalta = "no tiene";
        Console.WriteLine("Sin valor: " + perfil.LeerIni(ref ruta, ref seccion, ref clave, ref siFalta));
    }

    static void Dialogo()
    {
        var archivo = new cgsFileOpR();
        archivo.Flags = eOFN.OFN_FILEMUSTEXIST | eOFN.OFN_HIDEREADONLY;
        Console.WriteLine("Opciones: " + (int)archivo.Flags);
        string ruta = "";
        object nombre = null, extension = null;
        archivo.SplitPath(@"C:\Datos\carta.txt", ref ruta, ref nombre, ref extension);
        Console.WriteLine("Por referencia, partes: " + ruta + " " + nombre + " " + extension);
    }

    static void Identificadores()
    {
        var comprobador = new clsFIdent();
        eMotivo motivo = eMotivo.moCorrecto;
        Console.WriteLine("DNI correcto: " +
                          SiNo(comprobador.Comprueba(eIdentificador.idDNI, "12345678A", ref motivo)));
        Console.WriteLine("Por referencia, motivo: " + comprobador.TextoMotivo(motivo));
        // Una matriz de textos, y otra de vuelta.
        var motivos = (Array)comprobador.CompruebaLista(eIdentificador.idNIF,
                                                        new[] { "12345678Z", "12345678A" });
        Console.WriteLine("Motivos: " + motivos.GetValue(0) + " " + motivos.GetValue(1));
    }

    static void Registros()
    {
        var datos = new clsADODBServices();
        object objeto = general;
        string titulo = "";
        // Lo que se pasa no es un Recordset.
        Console.WriteLine("Registro: " + datos.RecordLocation(ref objeto, ref titulo));
        // El archivo no existe: el fallo queda anotado.
        string imagen = carpeta + @"\no hay.bmp";
        datos.PutImageInField(ref objeto, ref imagen);
    }

    static void Anotado()
    {
        Console.WriteLine("Avisos: " + avisos.Count);
        foreach (var aviso in avisos.Elementos())
        {
            Console.WriteLine("Aviso: " + (int)aviso.Clase + " " + aviso.Miembro + " " + aviso.Respuesta);
        }
        Console.WriteLine("Hoy: " + SiNo((DateTime.Now - avisos.Ultimo.Hora).TotalDays < 1));
    }

    static void Archivos()
    {
        var zip = new clsFZip();
        string nombre = "uno.zip";
        var nombres = new ZIPnames(carpeta + @"\recorrido.ini");
        Console.WriteLine("Zip: " + SiNo(zip.GenerarZip(ref nombre, ref carpeta, ref nombres) ==
                                         carpeta + @"\uno.zip"));
        var archivo = new clsFArchivo();
        archivo.Nivel = 9;
        general.BarraProgresoInicia("Recorrido", "Se comprime", true);
        var entradas = archivo.Comprime(carpeta + @"\dos.zip",
                                        new[] { carpeta + @"\recorrido.ini", carpeta + @"\uno.zip" }, "",
                                        eModoArchivo.arNuevo, general);
        general.BarraProgresoFinaliza();
        Console.WriteLine("Completo: " + SiNo(entradas.Completo));
        foreach (var entrada in entradas.Elementos())
        {
            Console.WriteLine("Entrada: " + entrada.Nombre + ", estado " + (int)entrada.Estado);
        }
    }

    static void Recorre()
    {
        avisos = new clsAvisos();
        avisos.Modo = eModoAvisos.maSilencio;
        general = new clsFGen();
        using (var eventos = new clsAvisosEventos(avisos))
        {
            eventos.Aviso += delegate(_clsAviso aviso, ref int respuesta, ref bool mostrar)
            {
                Console.WriteLine("Evento: " + aviso.Miembro);
            };
            eventos.Progreso += delegate(int porcentaje, string mensaje, ref bool cancelar)
            {
                Console.WriteLine("Evento: progreso " + porcentaje);
                cancelar = porcentaje > 90;
            };
            Generales();
            Mensajes();
            Fechas();
            Textos();
            Carpetas();
            Dialogo();
            Identificadores();
            Registros();
        }
        Anotado();
        Archivos();
    }

    // Las bibliotecas de automatización piden un hilo de un solo apartamento.
    [STAThread]
    static int Main(string[] argumentos)
    {
        carpeta = argumentos[0];
        try
        {
            Recorre();
            return 0;
        }
        catch (COMException fallo)
        {
            Console.WriteLine("Fallo " + (fallo.ErrorCode & 0xFFFF) + ": " + fallo.Message);
            return 1;
        }
    }
}
