// Stands before every JScript test: a value must be the one wanted, type included.
var count = 0;

function check(what, found, wanted) {
    if (found !== wanted) {
        WScript.Echo("MAL " + what + ": " + typeof found + " " + found + " en vez de " + wanted);
        WScript.Quit(1);
    }
    count++;
}
