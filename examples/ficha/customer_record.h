// The customer's record and the list of payment methods, as recordsets in memory: what a program
// would read from its database.
#pragma once

#include <string>
#include <vector>

#include "automation.h"

namespace ficha {

/// Thrown where the system has no ADO.
class NoDatabase {};

class CustomerRecord {
 public:
    CustomerRecord();

    /// The texts of the record, each with the name of its field; the photograph is apart.
    struct Entry {
        std::wstring field;
        std::wstring text;
    };
    void store(const std::vector<Entry>& values);
    [[nodiscard]] std::vector<Entry> values() const;

    /// The binary field of the photograph.
    [[nodiscard]] Value photograph_field() const;

 private:
    Object records_;
};

/// One text field with a payment method in each row.
[[nodiscard]] Object payment_methods();

}  // namespace ficha
