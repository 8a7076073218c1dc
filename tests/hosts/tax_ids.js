// Tax identifiers and bank codes from JScript.
var classes = ["clsFGen", "clsFFechas", "clsCSQL", "clsMensajes", "cgsFileOpR", "clsProfile",
               "clsADODBServices", "clsFZip"];
for (var i = 0; i < classes.length; i++) {
    check(classes[i], typeof new ActiveXObject("Kovrel." + classes[i]), "object");
}

var general = new ActiveXObject("Kovrel.clsFGen");
general.AppOrigen = "Clientes";
check("AppOrigen", general.AppOrigen, "Clientes");
check("AppOrigen del catálogo", general.Mensajes.AppOrigen, "Clientes");
check("NIF corregido", general.Verifica_NIF("12345678A"), "12345678Z");
check("NIF sin mensajes", general.Verifica_NIF("12345678A", false), "12345678Z");
check("NIE", general.Verifica_NIF("x-1234567-l", false), "X1234567L");
check("CIF", general.Verifica_NIF("B12345674"), "B12345674");
check("LetraNIF", general.LetraNIF(12345678), "Z");
check("DescripNIFCIF", general.DescripNIFCIF("Z"), "ERROR");
check("Verifica_CC", general.Verifica_CC("20770024003102575766"), true);
check("Verifica_CC vacía", general.Verifica_CC(""), true);
check("DC", general.DC("2085", "0103", "0000000000"), "90");
check("nombre sin atender a mayúsculas", general.dc_cc("20770024003102575766"), "00");

WScript.Echo(count + " comprobaciones correctas");
