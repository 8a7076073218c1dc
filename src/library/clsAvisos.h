// How the library speaks in an apartment: shown, silently or by events, and what it has said.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "automation/class_info.h"
#include "automation/event_source.h"
#include "automation/native_type.h"
#include "library/clsAviso.h"
#include "library/eModoAvisos.h"

namespace kovrel {

extern const EventsInfo clsAvisos_events;

/// For the thread that creates it, while it lives; the youngest of several decides.
class clsAvisos {
 public:
    static const ClassInfo class_info;

    static constexpr DISPID event_aviso = 1;
    static constexpr DISPID event_progreso = 2;

    clsAvisos();
    clsAvisos(const clsAvisos&) = delete;
    clsAvisos& operator=(const clsAvisos&) = delete;
    ~clsAvisos();

    [[nodiscard]] eModoAvisos get_Modo() const;
    /// Failure 5 for anything but the three modes, and for maMostrar in a process without a
    /// desktop.
    void set_Modo(eModoAvisos mode);
    [[nodiscard]] std::int32_t get_Limite() const;
    /// Failure 5 for a negative one.
    void set_Limite(std::int32_t limit);
    /// Failure 5 for a style with other buttons than those in use, and for an answer that they do
    /// not allow.
    void Respuestas(std::int32_t Estilo, std::int32_t Respuesta, std::wstring_view Texto);
    [[nodiscard]] std::int32_t get_Count() const;
    /// From 1, the oldest. Failure 9.
    [[nodiscard]] InstanceOf<clsAviso> Item(std::int32_t Indice) const;
    [[nodiscard]] ComPtr<IUnknown> get_NewEnum() const;
    [[nodiscard]] InstanceOf<clsAviso> get_Ultimo() const;
    [[nodiscard]] std::wstring ATexto() const;
    void Limpia();

    EventSource events{clsAvisos_events};

 private:
    class Hearing;

    const std::shared_ptr<Hearing> hearing_;
};

}  // namespace kovrel
