#include "reference_writer_notes.h"

#include <algorithm>
#include <string_view>

namespace kovrel::reference {
namespace {

constexpr std::string_view fence = "```";

std::string trimmed(std::string text) {
    constexpr const char* blanks = " \n";
    text.erase(0, std::min(text.find_first_not_of(blanks), text.size()));
    text.erase(text.find_last_not_of(blanks) + 1);
    return text;
}

struct Field {
    std::string_view name;
    std::string MemberNotes::*text;
};

constexpr Field fields[]{
    {"Notas:", &MemberNotes::remarks},
    {"Mensajes:", &MemberNotes::messages},
    {"Fallos:", &MemberNotes::failures},
};

class Parser {
 public:
    Parser(std::istream& input, std::string file) : input_(input), file_(std::move(file)) {}

    ClassNotes run() {
        for (std::string line; next(line);) {
            if (line.rfind("# ", 0) == 0) {
                if (line.substr(2) + ".md" != file_) fail("the heading is not the file's name");
                current_ = &notes_.text;
            } else if (line.rfind("## ", 0) == 0) {
                begin_member(trimmed(line.substr(3)));
            } else if (line.rfind(fence, 0) == 0) {
                read_example();
            } else if (!begin_field(line)) {
                add(line);
            }
        }
        finish_member();
        notes_.text = trimmed(notes_.text);
        return std::move(notes_);
    }

 private:
    bool next(std::string& line) {
        if (!std::getline(input_, line)) return false;
        if (!line.empty() && line.back() == '\r') line.pop_back();
        return true;
    }

    [[noreturn]] void fail(const std::string& what) const {
        const std::string member = in_member_ ? " (" + notes_.members.back().name + ")" : "";
        throw NotesError(file_ + member + ": " + what);
    }

    void begin_member(const std::string& name) {
        finish_member();
        for (const MemberNotes& member : notes_.members) {
            if (member.name == name) throw NotesError(file_ + ": " + name + " is written twice");
        }
        notes_.members.push_back({.name = name, .remarks{}, .messages{}, .failures{}, .example{}});
        in_member_ = true;
        current_ = nullptr;
    }

    void finish_member() {
        if (!in_member_) return;
        MemberNotes& member = notes_.members.back();
        for (const Field& field : fields) {
            std::string& text = member.*field.text;
            text = trimmed(text);
            if (text.empty()) fail("no \"" + std::string(field.name) + "\"");
        }
        if (member.example.empty()) fail("no example");
        in_member_ = false;
    }

    bool begin_field(const std::string& line) {
        for (const Field& field : fields) {
            if (line.rfind(field.name, 0) != 0) continue;
            if (!in_member_) fail("\"" + line + "\" stands outside of a member");
            current_ = &(notes_.members.back().*field.text);
            if (!current_->empty()) fail("\"" + std::string(field.name) + "\" is there twice");
            *current_ = line.substr(field.name.size()) + "\n";
            return true;
        }
        return false;
    }

    void add(const std::string& line) {
        if (current_ != nullptr) {
            *current_ += line + "\n";
        } else if (!line.empty()) {
            fail("\"" + line + "\" is in no field");
        }
    }

    void read_example() {
        std::string& example = in_member_ ? notes_.members.back().example : notes_.preparation;
        if (!example.empty()) fail("a second example");
        for (std::string line; next(line);) {
            if (line.rfind(fence, 0) == 0) {
                if (example.empty()) fail("an empty example");
                return;
            }
            example += line + "\n";
        }
        fail("an example that does not end");
    }

    std::istream& input_;
    std::string file_;
    ClassNotes notes_;
    std::string* current_ = nullptr;
    bool in_member_ = false;
};

std::string error_box(const std::string& procedure, const std::string& title) {
    return "tiene controlador de errores: muestra el cuadro «Error *número* ⏎ (*descripción*) " +
           procedure + "» (icono crítico, título " + title + ") y la llamada termina sin fallo.";
}

}  // namespace

ClassNotes parse_notes(std::istream& input, const std::string& file) {
    return Parser(input, file).run();
}

std::string failures_text(const std::string& field, const std::string& where) {
    struct Opening {
        std::string_view text;
        const char* title;
    };
    constexpr Opening boxes[]{
        {"cuadro \"", "`kovrel`"},
        {"cuadro(AppOrigen) \"", "el texto de `AppOrigen`"},
    };
    for (const Opening& box : boxes) {
        if (field.rfind(box.text, 0) != 0) continue;
        const std::size_t begin = box.text.size();
        const std::size_t end = field.find('"', begin);
        if (end == std::string::npos) throw NotesError(where + ": the procedure does not end");
        return error_box(field.substr(begin, end - begin), box.title) + field.substr(end + 1);
    }
    constexpr std::string_view host = "programa";
    if (field.rfind(host, 0) == 0) {
        return "no tiene controlador de errores: el fallo llega a su programa, con su número y su "
               "descripción, y no se muestra nada" +
               field.substr(host.size());
    }
    return field;
}

}  // namespace kovrel::reference
