// clsFArchivo from JScript: arrays of names, enumeration, optional arguments left out.
var files = new ActiveXObject("Scripting.FileSystemObject");
var folder = WScript.Arguments(1);
var archive = new ActiveXObject("Kovrel.clsFArchivo");

function write(name, text) {
    var file = files.CreateTextFile(folder + "\\" + name, true);
    file.Write(text);
    file.Close();
}

function names(entries) {
    var list = [];
    for (var each = new Enumerator(entries); !each.atEnd(); each.moveNext()) {
        list.push(each.item().Nombre);
    }
    return list.join(";");
}

files.CreateFolder(folder + "\\datos");
write("datos\\uno.txt", "1");
write("datos\\dos.txt", "22");
var given = new ActiveXObject("Scripting.Dictionary");
given.add(folder + "\\datos\\uno.txt", 0);
given.add(folder + "\\datos\\dos.txt", 0);

var entries = archive.Comprime(folder + "\\a.zip", given.Keys(), folder);
check("array", names(entries), "datos/uno.txt;datos/dos.txt");
check("bytes", entries.Bytes, 3);
check("completo", entries.Completo, true);
archive.SinCarpetas = true;
entries = archive.Extrae(folder + "\\a.zip", folder + "\\copia", "uno*");
check("extraído", files.FileExists(folder + "\\copia\\uno.txt"), true);
check("lo demás no", files.FileExists(folder + "\\copia\\dos.txt"), false);
check("motivo", entries.Item(2).Motivo, "no se ha pedido");
try {
    archive.Lista(folder + "\\nada.zip");
    check("sin archivo", false, true);
} catch (error) {
    check("sin archivo", error.number & 0xFFFF, 53);
}

WScript.Echo(count + " comprobaciones correctas");
