#include "tools/csharp_parts.h"

#include <sstream>

#include "tools/declared_text.h"

namespace kovrel {

const wchar_t* const csharp_preamble =
    LR"(//
// Para C# 4 o posterior, en .NET Framework y en .NET para Windows. Dice lo mismo que la biblioteca de
// tipos, miembro por miembro: no hace falta referencia alguna, basta con compilar este archivo.
//
//     var general = new Kovrel.clsFGen();
//     general.AppOrigen = "Facturas";
//     int dni = 12345678;
//     string letra = general.LetraNIF(ref dni);
//
// Lo que se pasa por referencia lleva ref. El compilador de Visual Studio permite omitirlo en los
// miembros de estas interfaces, y entonces pasa una copia. Los atributos Optional y
// DefaultParameterValue dicen lo que puede omitirse.
//
// Un fallo llega como COMException, cuyo ErrorCode es 0x800A0000 más el número del fallo.
using System;
using System.Collections.Generic;
using System.Runtime.InteropServices;
using System.Runtime.InteropServices.ComTypes;

)";

const wchar_t* const csharp_support =
    LR"(    /// <summary>La imagen de la plataforma.</summary>
    [ComImport, Guid("7BF80981-BF32-101A-8BBB-00AA00300CAB"), InterfaceType(ComInterfaceType.InterfaceIsIDispatch)]
    public interface IPictureDisp
    {
        [DispId(0)]
        int Handle { get; }

        [DispId(3)]
        short Type { get; }

        [DispId(4)]
        int Width { get; }

        [DispId(5)]
        int Height { get; }
    }

    /// <summary>Pasa por referencia el texto que se asigna a una propiedad, que no puede ser null.</summary>
    public sealed class TextoPorReferencia : ICustomMarshaler
    {
        public static ICustomMarshaler GetInstance(string cookie)
        {
            return new TextoPorReferencia();
        }

        public IntPtr MarshalManagedToNative(object texto)
        {
            IntPtr variable = Marshal.AllocCoTaskMem(IntPtr.Size);
            Marshal.WriteIntPtr(variable, Marshal.StringToBSTR((string)texto));
            return variable;
        }

        public void CleanUpNativeData(IntPtr variable)
        {
            Marshal.FreeBSTR(Marshal.ReadIntPtr(variable));
            Marshal.FreeCoTaskMem(variable);
        }

        public object MarshalNativeToManaged(IntPtr variable)
        {
            return Marshal.PtrToStringBSTR(Marshal.ReadIntPtr(variable));
        }

        public void CleanUpManagedData(object texto)
        {
        }

        public int GetNativeDataSize()
        {
            return IntPtr.Size;
        }
    }
)";

const wchar_t* const csharp_receiver_end =
    LR"(        public void Dispose()
        {
            if (conexion == null) return;
            conexion.Unadvise(numero);
            conexion = null;
        }
    }

)";

std::wstring csharp_record(const RecordInfo& info) {
    std::wostringstream out;
    out << L"    /// <summary>" << xml_text(info.help)
        << L"</summary>\n    [StructLayout(LayoutKind.Sequential), Guid(\""
        << without_braces(info.id) << L"\")]\n    public struct " << info.name
        << L"\n    {\n        /// <summary>Tiene siempre " << info.size
        << L" textos.</summary>\n        [MarshalAs(UnmanagedType.ByValArray, SizeConst = "
        << info.size << L", ArraySubType = UnmanagedType.BStr)]\n        public string[] "
        << info.field << L";\n\n        public " << info.name
        << L"(params string[] textos)\n        {\n            " << info.field << L" = new string["
        << info.size << L"];\n            textos.CopyTo(" << info.field
        << L", 0);\n        }\n    }\n\n";
    return out.str();
}

std::wstring csharp_class(const ClassInfo& info) {
    std::wostringstream out;
    const std::wstring help = xml_text(info.help);
    out << L"    /// <summary>" << help << L"</summary>\n    [ComImport, Guid(\""
        << without_braces(info.interface_id) << L"\"), CoClass(typeof(" << info.name
        << L"Class))]\n    public interface " << info.name << L" : " << info.interface_name
        << L"\n    {\n    }\n\n    /// <summary>" << help << L"</summary>\n    [ComImport, Guid(\""
        << without_braces(info.class_id)
        << L"\"), ClassInterface(ClassInterfaceType.None)]\n    public class " << info.name
        << L"Class\n    {\n    }\n\n";
    return out.str();
}

std::wstring csharp_collections(const LibraryInfo& library) {
    std::wostringstream out;
    out << L"    /// <summary>Para foreach: foreach (var uno in coleccion.Elementos()).</summary>\n"
           L"    public static class Colecciones\n    {\n";
    for (const ClassInfo* info : library.classes) {
        const ClassInfo* const element = element_of(*info);
        if (element == nullptr) continue;
        out << L"        public static IEnumerable<" << element->interface_name
            << L"> Elementos(this " << info->interface_name
            << L" coleccion)\n        {\n            var todos = "
               L"(IEnumVARIANT)coleccion._NewEnum;\n            var uno = new object[1];\n"
               L"            while (todos.Next(1, uno, IntPtr.Zero) == 0) yield return ("
            << element->interface_name << L")uno[0];\n        }\n\n";
    }
    out << L"    }\n\n";
    return out.str();
}

std::wstring csharp_receiver_head(const ClassInfo& info) {
    std::wostringstream out;
    out << L"    /// <summary>Recibe los eventos de una instancia de " << info.name
        << L" hasta Dispose.</summary>\n    [ComVisible(true), "
           L"ClassInterface(ClassInterfaceType.None)]\n    public sealed class "
        << info.name << L"Eventos : " << info.events->name
        << L", IDisposable\n    {\n        private IConnectionPoint conexion;\n"
           L"        private int numero;\n\n        public "
        << info.name << L"Eventos(" << info.interface_name
        << L" origen)\n        {\n            Guid eventos = typeof(" << info.events->name
        << L").GUID;\n            ((IConnectionPointContainer)origen).FindConnectionPoint("
           L"ref eventos, out conexion);\n            conexion.Advise(this, out numero);\n"
           L"        }\n\n";
    return out.str();
}

}  // namespace kovrel
