' The calendar from VBScript: results, variables written to, failures.
Dim calendar, month_number, year_number
Set calendar = CreateObject("Kovrel.clsFFechas")

Check "Dias_Mes", calendar.Dias_Mes(2, 2023), 28
Check "Dias_Anyo", calendar.Dias_Anyo(2024), 366
Check "EsBisiesto", calendar.EsBisiesto(1900), False
Check "SemanasMes", calendar.SemanasMes(2024, 9), 6
Check "SemanaEnElMes", calendar.SemanaEnElMes(DateSerial(2024, 9, 2)), 2
Check "PrimerDiaSemana", calendar.PrimerDiaSemana(DateSerial(2024, 3, 17)), DateSerial(2024, 3, 11)
Check "UltimoDiaSemana", calendar.UltimoDiaSemana(DateSerial(2024, 3, 11)), DateSerial(2024, 3, 17)
Check "de un texto", calendar.PrimerDiaSemana("17/03/2024"), DateSerial(2024, 3, 11)
Check "SemanaDel", calendar.SemanaDel(DateSerial(2024, 3, 1)), _
      "Semana del 26/02/2024 al 03/03/2024"
Check "primerdia_mesanterior", calendar.primerdia_mesanterior(1, 2024), DateSerial(2023, 12, 1)
Check "ultimodia_mesanterior", calendar.ultimodia_mesanterior(3, 2024), DateSerial(2024, 2, 29)
Check "mes_letra", calendar.mes_letra(5), "MAYO"
Check "mes_letra de 13", calendar.mes_letra(13), "---"

month_number = 0
year_number = 0
Check "PrimerDiaMesActual", calendar.PrimerDiaMesActual(month_number, year_number), _
      DateSerial(Year(Date), Month(Date), 1)
Check "mes escrito", CInt(month_number), Month(Date)
Check "año escrito", CInt(year_number), Year(Date)
Check "sin argumentos", Day(calendar.UltimoDiaMesActual()), _
      Day(DateSerial(Year(Date), Month(Date) + 1, 0))
Check "UltimoDiaMesActual", calendar.UltimoDiaMesActual(2, 2024), DateSerial(2024, 2, 29)

' Two members without an error handler fail to the script.
On Error Resume Next
calendar.primerdia_mesanterior 0, 2024
Check "número del fallo", Err.Number, CLng(13)
Check "origen del fallo", Err.Source, "Kovrel.clsFFechas"
Check "descripción del fallo", Err.Description, "No coinciden los tipos"
Err.Clear
On Error GoTo 0

' With a message of its own, and with the standard error box.
Check "SemanasMes imposible", calendar.SemanasMes(2024, 13), 0

WScript.Echo count & " comprobaciones correctas"
