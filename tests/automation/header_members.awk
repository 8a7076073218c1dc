# From the generated header, a line for everything that it declares, as the compiler and the tests
# read it: MEMBER(interface, function, "parameters"), EVENT(interface, id, "parameters") and
# FLAG(enumeration, name).
/^enum / { enumeration = $2 }
/^};/ { enumeration = "" }
enumeration != "" && / = 0x/ { print "FLAG(" enumeration ", " $1 ")" }
/^MIDL_INTERFACE/ { interface = $2 }
/^    virtual / {
    name = $4
    sub(/\(.*/, "", name)
    parameters = ""
}
/^        \/\* \[/ {
    parameter = $0
    gsub(/^ *\/\* | \*\/|,$|\) = 0;$/, "", parameter)
    parameters = parameters (parameters == "" ? "" : "; ") parameter
}
/\) = 0;$/ { print "MEMBER(" interface ", " name ", LR\"~(" parameters ")~\")" }
/^        id_/ {
    name = $1
    parameters = $0
    gsub(/^.*\/\/ \(|\/\* | \*\/|\)$/, "", parameters)
    gsub(/, \[/, "; [", parameters)
    print "EVENT(" interface ", " name ", LR\"~(" parameters ")~\")"
}
