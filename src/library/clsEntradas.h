// What an archive holds, or what packing, testing or taking out has done.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "automation/class_info.h"
#include "automation/native_type.h"
#include "automation/variant.h"
#include "library/clsEntrada.h"
#include "zip/archive_engine.h"

namespace kovrel {

class clsEntradas {
 public:
    static const ClassInfo class_info;

    [[nodiscard]] static InstanceOf<clsEntradas> of(ArchiveReport report);

    [[nodiscard]] std::int32_t get_Count() const;
    /// By its number, from 1, or by its name, in which capitals make no difference if no entry has
    /// exactly that one. Failure 9 when there is none.
    [[nodiscard]] InstanceOf<clsEntrada> Item(ValueArgument Indice) const;
    [[nodiscard]] ComPtr<IUnknown> get_NewEnum() const;
    [[nodiscard]] std::int32_t get_Hechas() const;
    [[nodiscard]] std::int32_t get_Fallidas() const;
    [[nodiscard]] bool get_Completo() const { return !report_->was_stopped && get_Fallidas() == 0; }
    [[nodiscard]] bool get_Cancelado() const { return report_->was_stopped; }
    [[nodiscard]] double get_Bytes() const;
    [[nodiscard]] double get_BytesComprimidos() const;
    [[nodiscard]] std::wstring get_Comentario() const { return report_->comment; }
    [[nodiscard]] std::wstring ATexto() const;

 private:
    [[nodiscard]] InstanceOf<clsEntrada> entry(const ArchiveEntry& entry) const;

    std::shared_ptr<const ArchiveReport> report_;
};

}  // namespace kovrel
