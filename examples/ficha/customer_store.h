// The customers in a database: one table, whose key is the tax id.
#pragma once

#include <string>
#include <vector>

#include "customer_record.h"
#include "database.h"

namespace ficha {

/// A customer as the table keeps it.
struct Customer {
    std::vector<CustomerRecord::Entry> values;
    Value photograph = Value::null();  ///< an array of bytes, or a null
};

/// Its functions throw DatabaseFailure. What save() has returned from is in the database, whatever
/// becomes of the program.
class CustomerStore {
 public:
    /// `connection`: an ODBC connection text. Makes the table if there is none.
    explicit CustomerStore(const std::wstring& connection);

    /// The tax ids of all customers, in the order of their names.
    [[nodiscard]] std::vector<std::wstring> tax_ids() const;
    [[nodiscard]] Customer load(const std::wstring& tax_id) const;
    /// `known_as`: the tax id that the customer has in the table; empty for a new one.
    void save(const Customer& customer, const std::wstring& known_as) const;

 private:
    Database database_;
};

}  // namespace ficha
