// clsFZip from JScript, whose arrays are objects.
var folder = WScript.Arguments(1);
var files = new ActiveXObject("Scripting.FileSystemObject");
var zip = new ActiveXObject("Kovrel.clsFZip");

function written(name, text) {
  var file = files.CreateTextFile(folder + "\\" + name);
  file.Write(text);
  file.Close();
  return folder + "\\" + name;
}

var names = [];
check("una lista", zip.GenerarZip("a.zip", folder, [written("año.txt", "1"), written("b.txt", "2")]),
      folder + "\\a.zip");
check("a.zip", files.FileExists(folder + "\\a.zip"), true);
for (var i = 0; i < 100; i++) {
  names.push(written("n" + i + ".txt", String(i)));
}
check("cien", zip.GenerarZip("cien.zip", folder, names), folder + "\\cien.zip");
names.push("uno más");
var refused = false;
try {
  zip.GenerarZip("más.zip", folder, names);
} catch (error) {
  refused = true;
}
check("ciento uno", refused, true);
check("más.zip", files.FileExists(folder + "\\más.zip"), false);
WScript.Echo(count + " comprobaciones correctas");
