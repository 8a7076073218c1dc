# shellcheck shell=bash disable=SC2154
# The sample host's customer form, worked from start to end with the keyboard alone.
# Source after demo_windows.sh.

# A portrait of nobody.
draw_photograph() {
    convert -size 300x330 gradient:'#e3eef8-#8fb2d1' \
        -fill '#2f4858' -draw 'ellipse 150,345 120,105 180,360' \
        -fill '#e0ac84' -draw 'roundrectangle 124,190 176,262 22,22' \
        -fill '#eab98f' -draw 'ellipse 150,150 56,70 0,360' \
        -fill '#4a3020' -draw 'path "M 92,150 C 84,52 216,52 208,150 C 200,104 178,98 150,100 C 122,98 100,104 92,150 Z"' \
        -fill '#33261d' -draw 'circle 130,150 134,150' -draw 'circle 170,150 174,150' \
        -fill none -stroke '#8c4a3a' -strokewidth 3 -draw 'path "M 130,184 Q 150,198 170,184"' \
        -quality 90 "$1"
}

# told NAME TITLE KEY...: leaves a field, keeps the picture of what the user is told, and answers.
told() {
    local name=$1 title=$2 box
    shift 2
    press "$@"
    box=$(window_named "$title" "$form_program")
    keep_picture "$name" "$box" "$form"
    press Return
    patiently "\"$title\" did not close" is_gone "$box"
    patiently "the form did not come back" is_in_front "$form"
}

fill_form() {
    told ficha-nombre Clientes Tab
    fill alt+n 'Ana Sanz'
    fill Tab '12345678a'
    told ficha-nif 'Error en la letra del N.I.F.' Tab
    fill alt+p '2800'
    told ficha-postal Clientes Tab
    fill alt+p '28004'
    fill Tab '20850103000300731702'
    told ficha-cuenta 'Datos bancarios incorrectos' Tab
    fill alt+u '20850103920300731702'
    fill Tab '31/02/2024'
    told ficha-fecha Clientes Tab
    fill alt+a '15/03/2024'
    told ficha-elegir-fecha Clientes alt+l
    fill alt+b '14/03/2024'
    told ficha-orden Clientes Tab
    fill alt+b '01/02/2025'
    fill alt+d 'Cheque'
    told ficha-pago Clientes Tab
    keep_picture ficha-lista "$form"
    press Down Return
    fill alt+s '1234.5'
    press Tab
    keep_picture ficha-llena "$form"
}

choose_photograph() {
    local dialog
    press alt+e
    dialog=$(window_named 'Elegir la fotografía' "$form_program")
    patiently "the dialog did not come to the front" is_in_front "$dialog"
    xdotool type "ana.jpg"
    keep_picture ficha-abrir "$dialog" "$form"
    press Return
    patiently "the dialog did not close" is_gone "$dialog"
    keep_picture ficha-fotografia "$form"
}

save_form() {
    press alt+g
    keep_picture ficha-guardada "$form"
}

export_form() {
    local progress report
    press alt+x
    progress=$(window_named 'Exportación del cliente' "$form_program")
    keep_picture ficha-progreso "$progress" "$form"
    told ficha-cancelada Clientes Return
    press alt+x
    progress=$(window_named 'Exportación del cliente' "$form_program")
    patiently "the export did not end" is_gone "$progress"
    report=$(window_named 'Exportación del cliente' "$form_program")
    keep_picture ficha-exportada "$report" "$form"
    press Return
    patiently "the report did not close" is_gone "$report"
}

show_customer_form() {
    say "a customer form, worked with the keyboard alone"
    hide_pointer
    mkdir "$demo/fotografias"
    draw_photograph "$demo/fotografias/ana.jpg"
    # The open-file dialog begins in the folder that the form is started in.
    (cd "$demo/fotografias" && exec wine "$build/x64-test/examples/ficha.exe" \
        "$(windows_path "$demo/exportado")" </dev/null >/dev/null 2>&1 9>&-) &
    form_program=$!
    form=$(window_named 'Ficha de cliente' "$form_program")
    keep_picture ficha-vacia "$form"
    fill_form
    choose_photograph
    save_form
    export_form
    patiently "the form did not come back" is_in_front "$form"
    press Escape
    wait "$form_program" || die "the form did not end by itself"
    unzip -l "$demo/exportado/cliente.zip"
    unzip -p "$demo/exportado/cliente.zip" cliente.txt | tail -c +4 | tr -d '\r'
}
