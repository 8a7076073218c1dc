// The events of clsAvisos in JScript, whose procedures cannot write their arguments back: they only
// hear, while the mode decides what is shown, and answers are given beforehand.
var notices = WScript.CreateObject("Kovrel.clsAvisos", "avisos_");
var general = new ActiveXObject("Kovrel.clsFGen");
var messages = new ActiveXObject("Kovrel.clsMensajes");
var task = "";
messages.AppOrigen = "Facturación";

function avisos_Aviso(aviso, respuesta, mostrar) {
    WScript.Echo("aviso " + aviso.Clase + " de " + aviso.Miembro + ", " + respuesta + " " + mostrar +
                 ": " + aviso.Texto);
    respuesta = 7;
    mostrar = !mostrar;
    if (task == "falla") throw new Error(1000, "el receptor falla");
    if (task == "suelta") {
        WScript.DisconnectObject(notices);
        notices = null;
    }
}

function avisos_Progreso(porcentaje, mensaje, cancelar) {
    WScript.Echo("progreso " + porcentaje + ", " + cancelar + ": " + mensaje);
    cancelar = true;
}

notices.Modo = 1;
check("NIF", general.Verifica_NIF("12345678A"), "12345678Z");
check("sí", messages.MsjFact_DeseaEditarFacturacion(), 6);
notices.Respuestas(4, 7, "editar");
check("no", messages.MsjFact_DeseaEditarFacturacion(), 7);
check("anotado", notices(3).Respuesta, 7);
var answers = "";
for (var all = new Enumerator(notices); !all.atEnd(); all.moveNext()) {
    answers += all.item().Respuesta;
}
check("todos", answers, "167");

general.BarraProgresoInicia("Recibos", "Se generan", true);
general.BarraProgresoActualiza(10, "Primero");
check("sigue", general.BarraProgresoCancelada(), false);
general.BarraProgresoFinaliza();

notices.Modo = 0;
check("el usuario", messages.MsjFact_DeseaEditarFacturacion(), 6);

notices.Modo = 1;
task = "falla";
check("pese al fallo", general.Verifica_NIF("12345678A"), "12345678Z");
check("anotado", notices(notices.Count).Miembro, "clsFGen.Verifica_NIF");

task = "suelta";
check("durante el evento", general.Verifica_NIF("12345678A"), "12345678Z");
check("suelto", notices, null);
check("otra vez el usuario", messages.MsjFact_DeseaEditarFacturacion(), 6);

WScript.Echo(count + " comprobaciones correctas");
