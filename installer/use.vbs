' What a user of an installed Kovrel does first: a tax id's letter, a picture for a record and an
' archive.
'   cscript //nologo use.vbs FOLDER     stores FOLDER\foto.bmp, packs FOLDER\datos.txt into
'                                       FOLDER\datos.zip
Option Explicit

Class Field
    Public Value
End Class

Dim general, archiver, images, photo
Set general = CreateObject("Kovrel.clsFGen")
WScript.Echo "letter " & general.LetraNIF(12345678)
Set images = CreateObject("Kovrel.clsADODBServices")
Set photo = New Field
images.PutImageInField photo, WScript.Arguments(0) & "\foto.bmp"
images.PutPictureInField photo, images.GetImageFromField(photo)
WScript.Echo "photo of type " & VarType(photo.Value)
Set archiver = CreateObject("Kovrel.clsFZip")
archiver.GenerarZip "datos.zip", WScript.Arguments(0), Array(WScript.Arguments(0) & "\datos.txt")
WScript.Echo "done"
