; Every text of the installer's own, in English and Spanish; the rest comes with the language files.
!macro Text NAME ENGLISH SPANISH
    LangString ${NAME} ${LANG_ENGLISH} `${ENGLISH}`
    LangString ${NAME} ${LANG_SPANISH} `${SPANISH}`
!macroend
!define Text "!insertmacro Text"

${Text} Welcome \
    "This program installs Kovrel ${VERSION}, a library of utilities for database applications in Spanish, for 32-bit and 64-bit programs.$\r$\n$\r$\nAn older version is replaced. Before you go on, close the programs that use it.$\r$\n$\r$\n$_CLICK" \
    "Este programa instala Kovrel ${VERSION}, una biblioteca de utilidades para aplicaciones de base de datos en español, para programas de 32 y de 64 bits.$\r$\n$\r$\nSi hay una versión anterior, la reemplaza. Antes de continuar, cierre los programas que la usan.$\r$\n$\r$\n$_CLICK"

${Text} ScopeTitle "Who is it for?" "¿Para quién se instala?"
${Text} ScopeSubtitle "Choose who may use Kovrel on this computer." \
    "Elija quién podrá usar Kovrel en este equipo."
${Text} ScopeIntro "Programs of the users chosen here will find Kovrel." \
    "Encontrarán Kovrel los programas de los usuarios que elija aquí."
${Text} ScopeUser "&Only for me" "&Solo para mí"
${Text} ScopeUserHint "No administrator rights are needed. Programs that run as administrator will not find Kovrel." \
    "No hacen falta permisos de administrador. Los programas que se ejecutan como administrador no encontrarán Kovrel."
${Text} ScopeAll "For &all users" "Para &todos los usuarios"
${Text} ScopeAllHint "Administrator rights are needed: Windows will ask for them." \
    "Hacen falta permisos de administrador: Windows los pedirá."

${Text} NeedsAdministrator \
    "Installing or removing Kovrel for all users needs administrator rights.$\r$\n$\r$\nRun it as administrator, or install it only for you." \
    "Para instalar o quitar Kovrel para todos los usuarios hacen falta permisos de administrador.$\r$\n$\r$\nEjecútelo como administrador o instálelo solo para usted."
${Text} InUse \
    "Kovrel is in use: a file of it cannot be replaced:$\r$\n$\r$\n$BusyFile$\r$\n$\r$\nClose the programs that use it and try again. Nothing has been changed." \
    "Kovrel está en uso: no se puede reemplazar uno de sus archivos:$\r$\n$\r$\n$BusyFile$\r$\n$\r$\nCierre los programas que lo usan y vuelva a intentarlo. No se ha cambiado nada."
${Text} CannotWrite \
    "The files cannot be written to the folder:$\r$\n$\r$\n$INSTDIR$\r$\n$\r$\nEverything is as it was before." \
    "No se pueden escribir los archivos en la carpeta:$\r$\n$\r$\n$INSTDIR$\r$\n$\r$\nTodo ha quedado como estaba."
${Text} CannotRegister \
    "Windows could not register this library (regsvr32 ended with code $Result):$\r$\n$\r$\n$INSTDIR\$Bitness\kovrel.dll$\r$\n$\r$\nEverything is as it was before." \
    "Windows no pudo registrar esta biblioteca (regsvr32 terminó con el código $Result):$\r$\n$\r$\n$INSTDIR\$Bitness\kovrel.dll$\r$\n$\r$\nTodo ha quedado como estaba."
${Text} CannotUnregister \
    "Windows could not remove the registration of this library (regsvr32 ended with code $Result):$\r$\n$\r$\n$INSTDIR\$Bitness\kovrel.dll$\r$\n$\r$\nKovrel is still installed." \
    "Windows no pudo quitar el registro de esta biblioteca (regsvr32 terminó con el código $Result):$\r$\n$\r$\n$INSTDIR\$Bitness\kovrel.dll$\r$\n$\r$\nKovrel sigue instalado."
${Text} CannotRemoveOlder \
    "The version installed in this folder cannot be removed (its uninstaller ended with code $Result):$\r$\n$\r$\n$OlderFolder$\r$\n$\r$\nNothing has been changed." \
    "No se puede quitar la versión instalada en esta carpeta (su desinstalador terminó con el código $Result):$\r$\n$\r$\n$OlderFolder$\r$\n$\r$\nNo se ha cambiado nada."
