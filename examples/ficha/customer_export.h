// The export of a customer: a sheet of text and the photograph in an archive, with progress that
// the user can cancel.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "customer_record.h"
#include "library.h"

namespace ficha {

struct ExportJob {
    std::filesystem::path folder;
    std::vector<CustomerRecord::Entry> values;
    std::filesystem::path photograph;  ///< empty: none
};

/// Reports the result to the user: the archive and its contents, a cancel, or a failure.
void export_customer(const Library& library, const ExportJob& job);

}  // namespace ficha
