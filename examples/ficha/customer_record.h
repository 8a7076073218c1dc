// The customer's record and the list of payment methods, as recordsets in memory: what a program
// would read from its database.
#pragma once

#include <string>
#include <vector>

#include "automation/host_object.h"

namespace ficha {

/// Thrown where the system has no ADO.
class NoDatabase {};

class CustomerRecord {
 public:
    CustomerRecord();

    /// The texts of the record, each with the name of its field; the photograph is apart.
    struct Value {
        std::wstring field;
        std::wstring text;
    };
    void store(const std::vector<Value>& values);
    [[nodiscard]] std::vector<Value> values() const;

    /// The binary field of the photograph.
    [[nodiscard]] kovrel::Variant photograph_field() const;

 private:
    [[nodiscard]] kovrel::HostObject field(std::size_t index) const;

    kovrel::HostObject records_;
};

/// One text field with a payment method in each row.
[[nodiscard]] kovrel::ComPtr<IDispatch> payment_methods();

}  // namespace ficha
