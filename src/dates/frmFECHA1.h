// The date prompt: a small window with a question, a date field and one button. It can be left by
// that button alone, with a date.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "automation/variant.h"
#include "ui/window.h"

namespace kovrel {

class frmFECHA1 final : public Window {
 public:
    enum Control : int { lbl_mensaje = 101, lbl_fecha, DTP_FECHA, cmdOK, txt_mensaje };
    static constexpr const wchar_t* window_class = L"Kovrel.frmFECHA1";

    frmFECHA1();

    /// The one that everybody on the thread shares while anybody holds it.
    [[nodiscard]] static std::shared_ptr<frmFECHA1> shared();

    /// The question; the window grows with it until the screen is full, then it scrolls. Loads the
    /// window.
    void set_message(const std::wstring& message);
    /// What the date field shows. Failure 5 for a date that it cannot: it begins with the year
    /// 1601. Loads the window.
    void set_value(Date value);
    /// What the date field holds; nothing while it is empty.
    [[nodiscard]] std::optional<Date> value() const;
    /// True when the date field holds a date.
    [[nodiscard]] bool FechaOk() const;

    Date chosen;  ///< 0, which stands for no date, until the user has confirmed one

 private:
    void create_controls() override;
    void apply_scale() override;
    void form_load() override;
    void clicked(int id) override;
    void closing() override {}

    [[nodiscard]] double question_height() const;
    void lay_out();

    Icon picture_;
};

}  // namespace kovrel
