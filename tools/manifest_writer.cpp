#include "tools/manifest_writer.h"

#include <sstream>

#include "automation/registration.h"
#include "runtime/text.h"
#include "tools/declared_text.h"

namespace kovrel {
namespace {

std::wstring quoted(std::wstring_view value) {
    return L'"' + xml_text(value) + L'"';
}

void write_class(std::wostream& out, const LibraryInfo& library, const ClassInfo& info) {
    out << L"    <comClass clsid=" << quoted(text_of_guid(info.class_id))  //
        << L" progid=" << quoted(info.prog_id)                             //
        << L" threadingModel=\"Apartment\"\n              tlbid="          //
        << quoted(text_of_guid(library.id))                                //
        << L"\n              description=" << quoted(info.help) << L"/>\n";
}

void write_interface(std::wostream& out, const LibraryInfo& library, const wchar_t* name,
                     const GUID& id, std::wstring_view marshaler) {
    out << L"  <comInterfaceExternalProxyStub name=" << quoted(name) << L"\n      iid="
        << quoted(text_of_guid(id)) << L" tlbid=" << quoted(text_of_guid(library.id))
        << L"\n      proxyStubClsid32=" << quoted(marshaler) << L"/>\n";
}

}  // namespace

std::wstring manifest_text(const LibraryInfo& library, bool is_64_bit) {
    std::wostringstream out;
    const std::wstring version = version_of(library);
    out << L"<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n"
           L"<assembly xmlns=\"urn:schemas-microsoft-com:asm.v1\" manifestVersion=\"1.0\">\n"
           L"  <assemblyIdentity type=\"win32\" name="
        << quoted(std::wstring(library.name) + L".Assembly")
        // An application names just one version, and works with every later minor one.
        << L" version=" << quoted(decimal_text(library.major) + L".0.0.0")
        << L"\n                    processorArchitecture=" << quoted(is_64_bit ? L"amd64" : L"x86")
        << L"/>\n"
           L"  <file name=\"kovrel.dll\">\n";
    for (const ClassInfo* info : library.classes) {
        if (info->instancing != Instancing::given) write_class(out, library, *info);
    }
    out << L"    <typelib tlbid=" << quoted(text_of_guid(library.id)) << L" version="
        << quoted(version) << L" helpdir=\"\"/>\n"
        << L"  </file>\n";
    for (const ClassInfo* info : library.classes) {
        write_interface(out, library, info->interface_name, info->interface_id,
                        type_library_marshaler);
        if (const EventsInfo* const events = info->events) {
            write_interface(out, library, events->name, events->id, dispatch_marshaler);
        }
    }
    out << L"</assembly>\n";
    return out.str();
}

}  // namespace kovrel
