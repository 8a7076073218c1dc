# From the generated header, a line for everything that it declares, as the compiler and the tests
# read it: MEMBER(interface, function, "parameters") and FLAG(name).
/^enum / { in_enumeration = 1 }
/^};/ { in_enumeration = 0 }
in_enumeration && / = 0x/ { print "FLAG(" $1 ")" }
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
