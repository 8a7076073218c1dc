// Writes the reference from the declarations and the hand-written notes:
//
//     reference_writer FOLDER_OF_NOTES FILE
//
// FOLDER_OF_NOTES holds the opening text, referencia.md, and one file a class.
#include <windows.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <span>
#include <utility>

#include "automation/variant.h"
#include "library/library.h"
#include "reference_writer_notes.h"
#include "reference_writer_signature.h"
#include "services/text_encoding.h"

namespace {

using namespace kovrel;
using namespace kovrel::reference;

std::ifstream open(const std::filesystem::path& file) {
    std::ifstream input(file, std::ios::binary);
    if (!input) throw NotesError(to_utf8(file.filename().wstring()) + " cannot be read");
    return input;
}

/// One paragraph or list under its own name.
std::string field(const std::string& name, const std::string& text) {
    const bool list = text.front() == '-';
    return "**" + name + ":**" + (list ? "\n\n" : " ") + text + "\n\n";
}

std::string fenced(const std::string& language, const std::string& text) {
    return "```" + language + "\n" + text + "```\n\n";
}

/// The members of a class with the accessors of each, in interface order.
std::vector<Accessors> members_of(const ClassInfo& info) {
    std::vector<Accessors> members;
    for (const MemberInfo& member : info.members) {
        if (members.empty() || members.back().front()->id != member.id) members.emplace_back();
        members.back().push_back(&member);
    }
    return members;
}

std::string anchor_of(const ClassInfo& info, const std::string& member) {
    return to_utf8(info.name) + "." + member;
}

/// The parameters that are written back, under `name`.
std::string written_back(const std::string& name, std::span<const ParameterInfo> parameters) {
    std::string names;
    for (const ParameterInfo& parameter : parameters) {
        if (!parameter.written_back) continue;
        names += (names.empty() ? "`" : ", `") + to_utf8(parameter.name) + "`";
    }
    return names.empty() ? "" : field(name, names + ".");
}

std::string when_omitted(const MemberInfo& member) {
    std::string text;
    for (const ParameterInfo& parameter : member.parameters) {
        if (parameter.declared_default == nullptr ||
            Variant(*parameter.declared_default).same_as(Variant(parameter.when_missing))) {
            continue;
        }
        text += (text.empty() ? "" : " ");
        text += "`" + to_utf8(parameter.name) + "` está declarado con el valor `" +
                literal(*parameter.declared_default) +
                "`, que es el que ponen los compiladores; en una llamada por nombre (VBScript, "
                "JScript, PowerShell…) que lo omite cuenta como `" +
                literal(parameter.when_missing) + "`.";
    }
    return text.empty() ? "" : field("Si se omite", text);
}

/// What a member is to the class besides.
std::string part_of(const ClassInfo& info, DISPID id) {
    if (id == info.default_member) return ", miembro predeterminado";
    return id == info.enumeration ? ", para recorrer la colección" : "";
}

std::string member_page(const ClassInfo& info, const Accessors& accessors,
                        const MemberNotes& notes) {
    const MemberInfo& member = *accessors.front();
    const std::string anchor = anchor_of(info, notes.name);
    std::string page = "<a id=\"" + anchor + "\"></a>\n\n### " + notes.name + "\n\n";
    page += "*" + kind_of(accessors) + part_of(info, member.id) + ".* " + to_utf8(member.help);
    page += "\n\n" + fenced("vb", signature_of(accessors));
    page += written_back("Escribe en sus parámetros", member.parameters) + when_omitted(member);
    page += field("Notas", notes.remarks) + field("Mensajes", notes.messages);
    page += field("Fallos", failures_text(notes.failures, anchor));
    return page + fenced("vbscript", notes.example);
}

std::string event_page(const ClassInfo& info, const EventsInfo::Event& event,
                       const MemberNotes& notes) {
    const std::string name = to_utf8(event.name);
    const std::string anchor = anchor_of(info, name);
    std::string page = "<a id=\"" + anchor + "\"></a>\n\n#### " + name + "\n\n";
    page += to_utf8(event.help) + "\n\n" + fenced("vb", event_signature_of(event));
    page += written_back("Su programa puede cambiar", event.parameters);
    page += field("Notas", notes.remarks) + field("Mensajes", notes.messages);
    page += field("Fallos", failures_text(notes.failures, anchor));
    // Classic Basic, since not every script host can receive events.
    return page + fenced("vb", notes.example);
}

/// The notes of a class by the names of their blocks; each is asked for once.
class NotesByName {
 public:
    NotesByName(std::string file, const ClassNotes& notes) : file_(std::move(file)) {
        for (const MemberNotes& member : notes.members) by_name_[member.name] = &member;
    }

    const MemberNotes& take(const std::string& name) {
        const auto found = by_name_.find(name);
        if (found == by_name_.end()) throw NotesError(file_ + ": nothing about " + name);
        const MemberNotes& notes = *found->second;
        by_name_.erase(found);
        return notes;
    }

    void must_be_empty() const {
        if (by_name_.empty()) return;
        throw NotesError(file_ + ": there is no member " + by_name_.begin()->first);
    }

 private:
    std::string file_;
    std::map<std::string, const MemberNotes*> by_name_;
};

/// How a host gets an instance, and the interfaces behind it.
std::string identity_of(const ClassInfo& info) {
    const std::string interfaces =
        "nterfaz `" + to_utf8(info.interface_name) + "`" +
        (info.events == nullptr ? "" : ", eventos `" + to_utf8(info.events->name) + "`") + ". ";
    if (info.instancing == Instancing::given) {
        return "I" + interfaces + "No tiene ProgID ni se crea: sus instancias las da otra clase.";
    }
    return "ProgID `" + to_utf8(info.prog_id) + "`, i" + interfaces +
           (info.instancing == Instancing::global
                ? "Clase global: con una referencia a la biblioteca, sus miembros se pueden llamar "
                  "sin crear una instancia; también se puede crear."
                : "Clase que se crea.");
}

std::string index_line(const ClassInfo& info, const wchar_t* name, const wchar_t* help) {
    const std::string shown = to_utf8(name);
    return "| [" + shown + "](#" + anchor_of(info, shown) + ") | " + to_utf8(help) + " |\n";
}

std::string events_section(const ClassInfo& info, NotesByName& notes) {
    std::string index = "### Eventos\n\n| evento | para qué |\n|---|---|\n";
    std::string pages;
    for (const EventsInfo::Event& event : info.events->events) {
        index += index_line(info, event.name, event.help);
        pages += event_page(info, event, notes.take("Evento " + to_utf8(event.name)));
    }
    return index + "\n" + pages;
}

std::string class_page(const ClassInfo& info, const ClassNotes& notes) {
    const std::string name = to_utf8(info.name);
    if (notes.text.empty() || notes.preparation.empty()) {
        throw NotesError(name + ".md: the class has no text or no example");
    }
    NotesByName by_name(name + ".md", notes);
    std::string page = "## " + name + "\n\n" + to_utf8(info.help) + "\n\n";
    page += identity_of(info) + "\n\n";
    page += notes.text + "\n\n" + fenced("vbscript", notes.preparation);
    std::string index = "| miembro | para qué |\n|---|---|\n";
    std::string members;
    for (const Accessors& accessors : members_of(info)) {
        const MemberInfo& first = *accessors.front();
        index += index_line(info, first.name, first.help);
        members += member_page(info, accessors, by_name.take(to_utf8(first.name)));
    }
    page += index + "\n" + members;
    if (info.events != nullptr) page += events_section(info, by_name);
    by_name.must_be_empty();
    return page;
}

std::string enumeration_page(const EnumInfo& info) {
    std::string page =
        "## " + to_utf8(info.name) + "\n\n*Enumeración.* " + to_utf8(info.help) + "\n\n";
    page += "| nombre | valor | significado |\n|---|---|---|\n";
    for (const EnumInfo::Value& value : info.values) {
        char number[32];
        // Without the last sign Basic would take &H8000 for a negative number.
        std::snprintf(number, sizeof number, info.has_macros ? "%ld (&H%lX&)" : "%ld",
                      static_cast<long>(value.value), static_cast<unsigned long>(value.value));
        page +=
            "| `" + to_utf8(value.name) + "` | " + number + " | " + to_utf8(value.help) + " |\n";
    }
    return page + "\n";
}

std::string record_page(const RecordInfo& info) {
    return "## " + to_utf8(info.name) + "\n\n*Registro.* " + to_utf8(info.help) + "\n\n" +
           fenced("vb", "Type " + to_utf8(info.name) + "\n    " + to_utf8(info.field) + "(0 To " +
                            std::to_string(info.size - 1) + ") As String\nEnd Type\n");
}

std::string whole_page(const std::filesystem::path& notes) {
    std::ifstream opening = open(notes / L"referencia.md");
    std::string page{std::istreambuf_iterator<char>(opening), {}};
    page += "\n";
    for (const ClassInfo* info : library.classes) {
        std::ifstream input = open(notes / (std::wstring(info->name) + L".md"));
        page += class_page(*info, parse_notes(input, to_utf8(info->name) + ".md"));
    }
    for (const EnumInfo* info : library.enumerations) page += enumeration_page(*info);
    for (const RecordInfo* info : library.records) page += record_page(*info);
    page.pop_back();  // a file ends with one line feed
    return page;
}

/// A file of notes for a class that does not exist is a class that lost its pages.
void check_files(const std::filesystem::path& notes) {
    std::set<std::wstring> expected{L"referencia.md"};
    for (const ClassInfo* info : library.classes) {
        expected.insert(std::wstring(info->name) + L".md");
    }
    for (const auto& entry : std::filesystem::directory_iterator(notes)) {
        const std::wstring name = entry.path().filename().wstring();
        if (!expected.contains(name)) throw NotesError("there is no class for " + to_utf8(name));
    }
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    if (count != 3) {
        std::fputs("usage: reference_writer FOLDER_OF_NOTES FILE\n", stderr);
        return 2;
    }
    try {
        check_files(arguments[1]);
        const std::string page = whole_page(arguments[1]);
        std::ofstream output(std::filesystem::path(arguments[2]), std::ios::binary);
        output << page;
        output.close();
        if (!output) throw std::runtime_error("the reference cannot be written");
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "reference_writer: %s\n", error.what());
        return 1;
    }
}
