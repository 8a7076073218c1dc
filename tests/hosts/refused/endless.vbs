' Never ends.
Do
Loop
