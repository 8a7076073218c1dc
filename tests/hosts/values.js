// Values, words, dates and SQL literals from JScript.
var general = new ActiveXObject("Kovrel.clsFGen");
check("Nz de null", general.Nz(null, "nada"), "nada");
check("Nz de undefined", general.Nz(undefined), 0);
check("Nz de un número", general.Nz(2.5), 2.5);
check("CBolNum", general.CBolNum(true), 1);
check("CBolNum de un texto", general.CBolNum("0"), 0);
check("redondeoa2", general.redondeoa2(1.005), "1,01");
check("redondeoa4", general.redondeoa4(-12.34567), "-12,3457");
check("ConvEurosALetra", general.ConvEurosALetra(1.01), "UN EURO CON UN CÉNTIMO");
check("ConvNumeroALetra", general.ConvNumeroALetra(21), "veintiuno");
check("con unidad", general.ConvNumeroALetra(21, "Euro", "Euros"), "veintiun Euros");
check("ProvinciaDeCP", general.ProvinciaDeCP("28080"), 28);
check("Solo_Numero", general.Solo_Numero(13), 0);

var calendar = new ActiveXObject("Kovrel.clsFFechas");
check("nombre con ñ", calendar["ConvierteAñoA2"](2024), "24");
check("nombre con Ñ", calendar["CONVIERTEAÑOA4"](24), "2024");
check("EsBisiesto", calendar.EsBisiesto(2000), true);
check("mes_letra", calendar.mes_letra(9), "SEPTIEMBRE");
check("SemanasMes", calendar.SemanasMes(2021, 2), 4);

var literals = new ActiveXObject("Kovrel.clsCSQL");
check("Conv_Double", literals.Conv_Double(1234.5), "1234.50");
check("Conv_Date", literals.Conv_Date("15/03/2024"), "#03/15/2024#");
check("Conv_Boolean", literals.Conv_Boolean(true), -1);
check("Conv_String", literals.Conv_String("d'Ors"), "'d'Ors'");

WScript.Echo(count + " comprobaciones correctas");
