// SQL literals, names and patterns as today's databases take them.
#pragma once

#include <string>
#include <string_view>

#include "automation/class_info.h"
#include "automation/native_type.h"
#include "library/app_origin.h"
#include "library/eDialecto.h"

namespace kovrel {

/// Nothing is ever shown. An object stands for its default value; Null, an empty value and an
/// omitted one are NULL wherever a value is asked for. Texts are read by the user's settings where
/// a number, a date or a boolean is asked for. Failure 5 for what the database cannot hold, with
/// the reason; 6 for an infinite number; 13 for a value of another kind. See also src/sql.
class clsFSQL : public AppOrigen {
 public:
    static const ClassInfo class_info;

    [[nodiscard]] eDialecto get_Dialecto() const { return dialect_; }
    /// Failure 5.
    void set_Dialecto(eDialecto dialect);

    /// As the type of the value asks for; dates without a time of day at midnight.
    [[nodiscard]] std::wstring Valor(ValueArgument Valor) const;
    [[nodiscard]] std::wstring Texto(ValueArgument Texto) const;
    [[nodiscard]] std::wstring Numero(ValueArgument Numero) const;
    [[nodiscard]] std::wstring Fecha(ValueArgument Fecha) const;
    [[nodiscard]] std::wstring FechaHora(ValueArgument Fecha) const;
    [[nodiscard]] std::wstring Booleano(ValueArgument Booleano) const;
    /// An array of bytes of one dimension (failure 9).
    [[nodiscard]] std::wstring Bytes(ValueArgument Bytes) const;
    /// An array of one dimension (failure 9) without nulls (failure 94): in a list a null finds
    /// nothing, and in a NOT IN it excludes everything.
    [[nodiscard]] std::wstring Lista(ValueArgument Lista) const;
    [[nodiscard]] std::wstring Nombre(std::wstring_view Nombre) const;
    [[nodiscard]] std::wstring Patron(std::wstring_view Texto) const;
    [[nodiscard]] std::wstring Como(std::wstring_view Patron) const;

 private:
    [[nodiscard]] Dialect dialect() const { return static_cast<Dialect>(dialect_); }

    eDialecto dialect_ = eDialecto::diAccess;
};

}  // namespace kovrel
