' Fails half-way; the host exits 0 all the same.
WScript.Echo "antes"
NoSuchProcedure 1
