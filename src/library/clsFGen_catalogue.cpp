// clsFGen: its message catalogue and the host's name.
#include "automation/host_object.h"
#include "automation/object.h"
#include "library/clsFGen.h"
#include "library/clsMensajes.h"

namespace kovrel {

// Both names are empty, so there is none to forward yet.
clsFGen::clsFGen() : messages_(create_instance<clsMensajes>()) {}

InstanceOf<clsMensajes> clsFGen::get_Mensajes() const {
    return messages_;
}

void clsFGen::set_Mensajes(InstanceOf<clsMensajes> messages) {
    messages_ = messages;
}

std::wstring clsFGen::get_AppOrigen() const {
    return name_;
}

void clsFGen::set_AppOrigen(const std::wstring& name) {
    name_ = name;
    forward_name();
}

void clsFGen::forward_name() const {
    messages().put(L"AppOrigen", Variant(name_));
}

HostObject clsFGen::messages() const {
    return HostObject(messages_);
}

}  // namespace kovrel
