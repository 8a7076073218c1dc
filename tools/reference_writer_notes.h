// The hand-written notes of the reference: what the declarations do not hold. One file a class:
//
//   # clsSample            the class: a text, and a fenced example that the others build on
//   ## Member              a block for each member, and "## Evento Name" for each event
//   Notas: …               remarks; each field goes on over the following lines
//   Mensajes: …            what the user is shown, exact texts
//   Fallos: …              what becomes of a failure, see failures_text
//   ```vbscript … ```      an example; an event's is in classic Basic (vb)
#pragma once

#include <istream>
#include <stdexcept>
#include <string>
#include <vector>

namespace kovrel::reference {

/// What is wrong with the notes, for whoever writes them; names the file and the member.
class NotesError : public std::runtime_error {
 public:
    using std::runtime_error::runtime_error;
};

/// All texts are UTF-8 with single line feeds.
struct MemberNotes {
    std::string name;
    std::string remarks;
    std::string messages;
    std::string failures;
    std::string example;
};

struct ClassNotes {
    std::string text;
    std::string preparation;
    std::vector<MemberNotes> members;
};

/// Throws NotesError for a text that is in no field, an unknown or repeated field, a member without
/// one of the four, a fence that does not end, and a member written twice.
[[nodiscard]] ClassNotes parse_notes(std::istream& input, const std::string& file);

/// The failures field written out. It begins with one of
///   cuadro "en procedimiento …."             the standard error box, titled as the library
///   cuadro(AppOrigen) "en procedimiento …."  the same, titled by the host's name
///   programa                                 the failure reaches the host
/// and anything after that, or any other text, stands as it is.
[[nodiscard]] std::string failures_text(const std::string& field, const std::string& where);

}  // namespace kovrel::reference
