# Reads apt's own source files (deb822 and one-line) and prints, as one-line entries, those of the
# distribution's main archive for the suites CODENAME and CODENAME-updates: no security archive, no
# third party (told by its own signing key or by having no component "main").

function emit(uris, suites, components, key,    u, s, i, j, nu, ns) {
    if (components !~ /(^| )main( |$)/) return
    if (key != "" && key !~ /debian-archive/) return
    nu = split(uris, u, " ")
    ns = split(suites, s, " ")
    for (i = 1; i <= nu; i++)
        for (j = 1; j <= ns; j++)
            if ((s[j] == codename || s[j] == codename "-updates") && u[i] !~ /-security\/?$/)
                print "deb " (key == "" ? "" : "[signed-by=" key "] ") u[i] " " s[j] " main"
}

function end_stanza() {
    if (types ~ /(^| )deb( |$)/ && enabled != "no") emit(uris, suites, components, key)
    types = uris = suites = components = key = enabled = ""
}

function rest_of_line(    text) {
    text = $0
    sub(/^[^:]*:[ \t]*/, "", text)
    return text
}

FNR == 1 { end_stanza() }
/^[ \t]*#/ { next }
/^[ \t]*$/ { end_stanza(); next }
/^deb[ \t]/ {
    line = $0
    option_key = ""
    if (match(line, /\[[^]]*\]/)) {
        options = substr(line, RSTART + 1, RLENGTH - 2)
        line = substr(line, 1, RSTART - 1) substr(line, RSTART + RLENGTH)
        n = split(options, option, " ")
        for (i = 1; i <= n; i++)
            if (option[i] ~ /^signed-by=/) option_key = substr(option[i], 11)
    }
    n = split(line, field, " ")
    parts = ""
    for (i = 4; i <= n; i++) parts = parts field[i] " "
    emit(field[2], field[3], parts, option_key)
    next
}
/^Types:/ { types = rest_of_line() }
/^URIs:/ { uris = rest_of_line() }
/^Suites:/ { suites = rest_of_line() }
/^Components:/ { components = rest_of_line() }
/^Signed-By:/ { key = rest_of_line() }
/^Enabled:/ { enabled = tolower(rest_of_line()) }
END { end_stanza() }
