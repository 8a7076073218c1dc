// One entry of an archive, or a file that was to become one, and what became of it.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "automation/class_info.h"
#include "automation/native_type.h"
#include "automation/variant.h"
#include "library/eEstadoEntrada.h"
#include "zip/archive_engine.h"

namespace kovrel {

class clsEntrada {
 public:
    static const ClassInfo class_info;

    /// `entry` shares the ownership of the report that it belongs to.
    [[nodiscard]] static InstanceOf<clsEntrada> of(std::shared_ptr<const ArchiveEntry> entry);

    [[nodiscard]] std::wstring get_Nombre() const { return entry_->name; }
    [[nodiscard]] std::wstring get_Ruta() const { return entry_->path; }
    [[nodiscard]] eEstadoEntrada get_Estado() const {
        return static_cast<eEstadoEntrada>(entry_->state);
    }
    [[nodiscard]] std::wstring get_Motivo() const;
    [[nodiscard]] double get_Bytes() const { return static_cast<double>(entry_->size); }
    [[nodiscard]] double get_BytesComprimidos() const {
        return static_cast<double>(entry_->packed_size);
    }
    [[nodiscard]] Date get_Fecha() const { return Date{entry_->modified}; }
    [[nodiscard]] std::int32_t get_Metodo() const { return entry_->method; }
    [[nodiscard]] std::wstring get_CRC() const;
    [[nodiscard]] bool get_EsCarpeta() const { return entry_->is_folder; }
    [[nodiscard]] bool get_Cifrada() const { return entry_->is_encrypted; }
    [[nodiscard]] std::wstring get_Comentario() const { return entry_->comment; }

 private:
    std::shared_ptr<const ArchiveEntry> entry_;
};

}  // namespace kovrel
