// Today's identifiers from JScript, which receives no argument back and whose arrays are objects: a
// list comes from another object, and a result is read through VBArray. No box is shown.
var ident = new ActiveXObject("Kovrel.clsFIdent");

function checkKind(kind, name, right, readable, incomplete, completed, wrong, reason) {
    check(name, ident.TextoTipo(kind), name);
    check(name + " correcto", ident.Comprueba(kind, right), true);
    check(name + " correcto, motivo", ident.MotivoDe(kind, right), 0);
    check(name + " incorrecto", ident.Comprueba(kind, wrong), false);
    check(name + " incorrecto, motivo", ident.MotivoDe(kind, wrong), reason);
    check(name + " TipoDe", ident.TipoDe(right), kind);
    check(name + " Formatea", ident.Formatea(kind, right), readable);
    check(name + " Normaliza", ident.Normaliza(kind, readable.toLowerCase()), right);
    check(name + " Corrige", ident.Corrige(kind, incomplete), completed);
}

checkKind(2, "DNI", "00000000T", "00000000-T", "00000000", "00000000T", "0000000T", 3);
checkKind(3, "NIE", "Y1234567X", "Y-1234567-X", "Y1234567", "Y1234567X", "Y1234567L", 5);
checkKind(4, "NIF de persona física sin DNI ni NIE", "K1234567L", "K-1234567-L", "K1234567",
          "K1234567L", "X1234567L", 4);
checkKind(5, "NIF de entidad", "Q2826000H", "Q-2826000H", "Q28260008", "Q2826000H", "Q28260008", 5);
checkKind(6, "Código de cuenta cliente", "20770024003102575766", "2077 0024 00 3102575766",
          "2077 0024 3102575766", "20770024003102575766", "2077002400", 3);
checkKind(7, "IBAN", "GB29NWBK60161331926819", "GB29 NWBK 6016 1331 9268 19",
          "GB00NWBK60161331926819", "GB29NWBK60161331926819", "US9121000418450200051332", 7);
checkKind(8, "BIC", "CAIXESBB", "CAIXESBB", "CAIXES", "", "CAIXESB", 3);
checkKind(9, "Identificador de acreedor SEPA", "ES11000B12345674", "ES11000B12345674",
          "ES97000B12345674", "ES11000B12345674", "US11000B12345674", 7);
checkKind(10, "NIF-IVA", "ESA28015865", "ESA28015865", "ESA2801586", "ESA28015865", "ESA28015866", 5);
checkKind(11, "Número de la Seguridad Social", "281234567840", "28/12345678/40", "28/12345678/41",
          "281234567840", "001234567840", 6);
checkKind(12, "Código de cuenta de cotización", "28123456742", "28/1234567/42", "28/1234567/43",
          "28123456742", "2812345674Z", 2);
checkKind(13, "Código postal", "52999", "52999", "53000", "", "5299", 3);
checkKind(14, "CUPS", "ES1234123456789012JY1F", "ES 1234 1234 5678 9012 JY 1F",
          "ES1234123456789012AA1F", "ES1234123456789012JY1F", "PT1234123456789012JY", 7);
checkKind(15, "Referencia catastral", "9872023VH5797S0001WX", "9872023 VH5797S 0001 W X",
          "9872023VH5797S0001AA", "9872023VH5797S0001WX", "9872023VH5797S0001XW", 5);
checkKind(16, "Tarjeta de pago", "4111111111111111", "4111 1111 1111 1111", "4111111111111112", "",
          "41111111111", 3);
checkKind(17, "EAN-13", "8412345123450", "8 412345 123450", "8412345123459", "8412345123450",
          "84123451234A", 2);

check("NIF", ident.TextoTipo(1), "NIF");
check("NIF correcto", ident.Comprueba(1, "a-28015865"), true);
check("NIF vacío", ident.MotivoDe(1, ""), 1);
check("NIF TipoDe", ident.TipoDe("a-28015865"), 5);
check("NIF Normaliza", ident.Normaliza(1, "1.234.567-l"), "01234567L");
check("NIF Formatea", ident.Formatea(1, "1234567L"), "01234567-L");
check("NIF Corrige", ident.Corrige(1, 12345678), "12345678Z");
check("Titular", ident.Titular("12345678Z"), "Persona física de nacionalidad española, con DNI");
check("CCCaIBAN", ident.CCCaIBAN("20770024003102575766"), "ES7620770024003102575766");
check("IBANaCCC", ident.IBANaCCC("ES76 2077 0024 0031 0257 5766"), "20770024003102575766");
check("IBAN con la cuenta incorrecta", ident.MotivoDe(7, "ES6421000418450200051333"), 8);

var reasons = "";
for (var reason = 0; reason <= 8; reason++) {
    reasons += ident.TextoMotivo(reason) + "|";
}
check("motivos", reasons,
      "El dato es correcto.|El dato está vacío.|El dato tiene caracteres que no le corresponden.|" +
      "El número de caracteres del dato no es el que le corresponde.|" +
      "La primera letra del dato no es válida.|" +
      "Los caracteres de control no corresponden al resto del dato.|" +
      "El dato está bien escrito, pero su valor no puede existir.|" +
      "El país del dato no es válido.|La cuenta española que contiene el IBAN no es correcta.|");

var refused = 0;
try {
    ident.CompruebaLista(1, ["12345678Z"]);
} catch (error) {
    refused = error.number & 0xFFFF;
}
check("una matriz de JScript", refused, 13);

// A hundred thousand DNIs, of which every seventh has the letter of the next number.
var letters = "TRWAGMYFPDXBNJZSQVHLCKE";
var texts = new ActiveXObject("Scripting.Dictionary");
for (var i = 0; i < 100000; i++) {
    texts.Add("n" + i, ("0000000" + i).slice(-8) + letters.charAt((i + (i % 7 === 0 ? 1 : 0)) % 23));
}
var result = new VBArray(ident.CompruebaLista(1, texts.Items()));
check("dimensiones", result.dimensions(), 1);
check("lbound", result.lbound(), 0);
check("ubound", result.ubound(), 99999);
var given = result.toArray(), unexpected = 0, wrong = 0;
for (i = 0; i < 100000; i++) {
    if (given[i] !== (i % 7 === 0 ? 5 : 0)) unexpected++;
    if (given[i] !== 0) wrong++;
}
check("motivos que no son", unexpected, 0);
check("incorrectos", wrong, 14286);

var records = new ActiveXObject("ADODB.Recordset");
var values = ["12345678Z", "12345678A", "B12345674", ""];
records.Fields.Append("nif", 202, 20);
records.Open();
for (i = 0; i < values.length; i++) {
    records.AddNew();
    records.Fields("nif").Value = values[i];
}
check("recordset", ident.CompruebaRecordset(1, records, "nif"), 2);

WScript.Echo(count + " comprobaciones correctas");
