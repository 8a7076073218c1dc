// Prepended to every JScript test: checks a value and its type.
var count = 0;

function check(what, found, wanted) {
    if (found !== wanted) {
        WScript.Echo("MAL " + what + ": " + typeof found + " " + found + " en vez de " + wanted);
        WScript.Quit(1);
    }
    count++;
}
