// The checks of the verifier's two fields, which the public class supplies.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "automation/com_ptr.h"

namespace kovrel {

class VerifierChecks {
 public:
    virtual ~VerifierChecks() = default;

    /// The title of the boxes that the checks show.
    virtual void set_title(const std::wstring& title) = 0;
    /// The tax id as it should be; the user is told what was wrong.
    virtual std::wstring verified_tax_id(const std::wstring& text) = 0;
    virtual std::wstring tax_id_kind(const std::wstring& letter) = 0;
    /// Whether the account's control digits are right; the user is told when they are not.
    virtual bool is_right_account(const std::wstring& text) = 0;
    /// The account in a text that holds one, as a Spanish IBAN does; nothing for any other text.
    virtual std::optional<std::wstring> account_in(std::wstring_view text) = 0;
    /// Whether a field that was left is neither empty nor full; the user is told.
    virtual bool is_half_filled(const ComPtr<IDispatch>& field) = 0;
};

/// Creates the checks for one opening of the window.
using MakeVerifierChecks = std::shared_ptr<VerifierChecks> (*)();

}  // namespace kovrel
