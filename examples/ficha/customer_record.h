// The customer on the form and the list of payment methods, as recordsets in memory.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "automation.h"

namespace ficha {

/// Thrown where the system has no ADO.
class NoDatabase {};

class CustomerRecord {
 public:
    /// The fields that hold texts.
    static constexpr std::array field_names{L"Nombre",        L"NIF",           L"Código postal",
                                            L"Cuenta",        L"Fecha de alta", L"Fecha de baja",
                                            L"Forma de pago", L"Saldo"};

    CustomerRecord();

    /// The texts of the record, each with the name of its field; the photograph is apart.
    struct Entry {
        std::wstring field;
        std::wstring text;
        bool operator==(const Entry&) const = default;
    };
    /// As databases compare the names of fields: without regard to case.
    static bool is_same_name(const std::wstring& one, const std::wstring& other);

    void store(const std::vector<Entry>& values);
    [[nodiscard]] std::vector<Entry> values() const;

    /// The binary field of the photograph, whose value is a null where there is none.
    [[nodiscard]] Value photograph_field() const;

 private:
    Object records_;
};

/// One text field with a payment method in each row.
[[nodiscard]] Object payment_methods();

}  // namespace ficha
