// SQL literals from JScript, whose null and undefined are NULL. No box is shown.
var sql = new ActiveXObject("Kovrel.clsFSQL");
sql.AppOrigen = "Consultas";
check("AppOrigen", sql.AppOrigen, "Consultas");
check("Dialecto", sql.Dialecto, 0);

sql.Dialecto = 3;
check("Texto", sql.Texto("d'Ors"), "'d''Ors'");
check("Texto con barra", sql.Texto("\\"), "_utf8mb4 X'5C'");
check("Texto con nulo", sql.Texto("a\0"), "_utf8mb4 X'6100'");
check("Numero", sql.Numero(0.1), "0.1");
check("Numero entero", sql.Numero(-7), "(-7)");
check("Booleano", sql.Booleano(false), "FALSE");
check("null", sql.Valor(null), "NULL");
check("undefined", sql.Valor(undefined), "NULL");
check("Valor de un texto", sql.Valor("x"), "'x'");
check("Valor de un booleano", sql.Valor(true), "TRUE");
check("Fecha", sql.Fecha("15/03/2024"), "DATE '2024-03-15'");
check("FechaHora", sql.FechaHora("15/03/2024 18:30:05"), "TIMESTAMP '2024-03-15 18:30:05'");
check("Nombre", sql.Nombre("a`b"), "`a``b`");
check("Como", sql.Como(sql.Patron("5%") + "%"), "LIKE '5!%%' ESCAPE '!'");

var values = new ActiveXObject("Scripting.Dictionary");
values.Add("a", 1);
values.Add("b", "d'Ors");
check("Lista", sql.Lista(values.Items()), "(1, 'd''Ors')");

function failureOf(call) {
    try {
        call();
    } catch (error) {
        return error.number & 0xFFFF;
    }
    return 0;
}
check("una matriz de JScript", failureOf(function () { sql.Lista([1]); }), 13);
check("infinito", failureOf(function () { sql.Numero(1 / 0); }), 6);
check("dialecto que no existe", failureOf(function () { sql.Dialecto = -1; }), 5);
check("medio par suplente", failureOf(function () { sql.Texto("\ud83d"); }), 5);
check("nombre vacío", failureOf(function () { sql.Nombre(""); }), 5);

WScript.Echo(count + " comprobaciones correctas");
