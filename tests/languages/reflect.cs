// Prints what a compiled Kovrel.cs declares, as its metadata say it: reflect.exe KOVREL_DLL
using System;
using System.Collections.Generic;
using System.Linq;
using System.Reflection;
using System.Runtime.InteropServices;

static class Reflect
{
    // IUnknown's and IDispatch's own functions come first.
    const int FirstSlot = 7;

    static string Marshaled(object[] attributes)
    {
        var marshal = (MarshalAsAttribute)attributes.FirstOrDefault();
        if (marshal == null) return "";
        var text = ":" + marshal.Value;
        if (marshal.MarshalTypeRef != null) text += " " + marshal.MarshalTypeRef.Name;
        if (marshal.SizeConst != 0) text += " " + marshal.SizeConst;
        return text;
    }

    static string Spelled(ParameterInfo parameter)
    {
        var type = parameter.ParameterType;
        var text = type.IsByRef ? "ref " + type.GetElementType().Name : type.Name;
        text += Marshaled(parameter.GetCustomAttributes(typeof(MarshalAsAttribute), false));
        if (parameter.Position < 0) return text;
        text += " " + parameter.Name;
        if (parameter.IsOptional) text += " optional";
        if ((parameter.Attributes & ParameterAttributes.HasDefault) != 0)
        {
            text += " = " + parameter.RawDefaultValue;
        }
        return text;
    }

    static int DispIdOf(MemberInfo member)
    {
        return ((DispIdAttribute)member.GetCustomAttributes(typeof(DispIdAttribute), false).Single()).Value;
    }

    static void PrintMembers(Type type)
    {
        var ids = new Dictionary<MethodInfo, int>();
        foreach (var property in type.GetProperties())
        {
            foreach (var accessor in property.GetAccessors()) ids[accessor] = DispIdOf(property);
        }
        var slot = FirstSlot;
        foreach (var method in type.GetMethods().OrderBy(each => each.MetadataToken))
        {
            int id;
            if (!ids.TryGetValue(method, out id)) id = DispIdOf(method);
            // In a property the name of the new value says nothing.
            var parameters = method.GetParameters().Select(Spelled);
            if (method.IsSpecialName) parameters = parameters.Select(text => text.Replace(" value", ""));
            Console.WriteLine("{0} {1} {2} {3}({4}) {5}", type.Name, slot++, id, method.Name,
                              string.Join(", ", parameters), Spelled(method.ReturnParameter));
        }
    }

    static void Print(Type type)
    {
        var guid = "{" + type.GUID.ToString().ToUpperInvariant() + "}";
        var coclass = (CoClassAttribute)type.GetCustomAttributes(typeof(CoClassAttribute), false)
            .FirstOrDefault();
        if (coclass != null)
        {
            Console.WriteLine("class {0} {1} {2} {{{3}}}", type.Name, guid,
                              string.Join(" ", type.GetInterfaces().Select(each => each.Name)),
                              coclass.CoClass.GUID.ToString().ToUpperInvariant());
        }
        else if (type.IsEnum)
        {
            Console.WriteLine("enum {0} {1}", type.Name, guid);
            foreach (var name in Enum.GetNames(type))
            {
                Console.WriteLine("{0} {1} {2}", type.Name, name, (int)Enum.Parse(type, name));
            }
        }
        else if (type.IsInterface && type.IsImport && !type.Name.StartsWith("I"))
        {
            var kind = (InterfaceTypeAttribute)type.GetCustomAttributes(
                typeof(InterfaceTypeAttribute), false).Single();
            Console.WriteLine("{0} {1} {2}", kind.Value, type.Name, guid);
            PrintMembers(type);
        }
        else if (type.IsValueType)
        {
            Console.WriteLine("record {0} {1}", type.Name, guid);
            foreach (var field in type.GetFields())
            {
                Console.WriteLine("{0} {1} {2}{3}", type.Name, field.FieldType.Name, field.Name,
                                  Marshaled(field.GetCustomAttributes(typeof(MarshalAsAttribute), false)));
            }
        }
    }

    // A text that a setter passes by reference: the place of a text that the caller owns.
    static void PrintTextByReference(Assembly assembly)
    {
        var type = assembly.GetType("Kovrel.TextoPorReferencia");
        var marshaler = (ICustomMarshaler)type.GetMethod("GetInstance").Invoke(null, new object[] { "" });
        var place = marshaler.MarshalManagedToNative("Facturación");
        Console.WriteLine("by reference: {0}", Marshal.PtrToStringBSTR(Marshal.ReadIntPtr(place)));
        marshaler.CleanUpNativeData(place);
    }

    static void Main(string[] arguments)
    {
        var assembly = Assembly.LoadFrom(arguments[0]);
        foreach (var type in assembly.GetExportedTypes()) Print(type);
        PrintTextByReference(assembly);
    }
}
