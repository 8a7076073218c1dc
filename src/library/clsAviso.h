// One thing that the library has said, as a clsAvisos gives it out.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "automation/class_info.h"
#include "automation/native_type.h"
#include "automation/variant.h"
#include "library/eClaseAviso.h"

namespace kovrel {

class clsAviso {
 public:
    static const ClassInfo class_info;

    [[nodiscard]] static InstanceOf<clsAviso> of(std::shared_ptr<const NotedAnnouncement> note);

    [[nodiscard]] std::wstring get_Texto() const { return note_->text; }
    [[nodiscard]] std::wstring get_Titulo() const { return note_->title; }
    [[nodiscard]] std::int32_t get_Estilo() const {
        return static_cast<std::int32_t>(note_->style);
    }
    [[nodiscard]] std::int32_t get_Respuesta() const {
        return static_cast<std::int32_t>(note_->answer);
    }
    [[nodiscard]] eClaseAviso get_Clase() const { return static_cast<eClaseAviso>(note_->kind); }
    [[nodiscard]] std::int32_t get_Numero() const { return note_->failure; }
    [[nodiscard]] std::wstring get_Miembro() const { return note_->member; }
    [[nodiscard]] Date get_Hora() const { return Date{note_->time}; }
    [[nodiscard]] std::int32_t get_Porcentaje() const { return note_->percentage; }

 private:
    std::shared_ptr<const NotedAnnouncement> note_;
};

}  // namespace kovrel
