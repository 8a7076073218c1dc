// The date prompt: a question, a date field and one button, which closes it once there is a date.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "automation/variant.h"
#include "ui/shared_window.h"
#include "ui/window.h"

namespace kovrel {

class frmFECHA1 final : public Window {
 public:
    enum Control : int { lbl_mensaje = 101, lbl_fecha, DTP_FECHA, cmdOK, txt_mensaje };
    static constexpr const wchar_t* window_class = L"Kovrel.frmFECHA1";

    frmFECHA1();

    /// The thread's shared instance.
    [[nodiscard]] static std::shared_ptr<frmFECHA1> shared() {
        return SharedWindow<frmFECHA1>::get();
    }

    /// The question; the window grows with it up to the screen's height, then it scrolls.
    void set_message(const std::wstring& message);
    /// Set before the window is shown. Failure 5 for dates that the field cannot show: it begins
    /// with 1601.
    void set_value(Date value);
    /// Absent while the date field is empty.
    [[nodiscard]] std::optional<Date> value() const;
    /// True when the date field holds a date.
    [[nodiscard]] bool FechaOk() const;

    Date chosen;          ///< 0, which stands for no date, until the user has confirmed one
    Date when_not_shown;  ///< chosen for a user whom the window is not shown
    [[nodiscard]] bool answered() const noexcept { return withheld() || chosen != Date{}; }

 private:
    /// In twips.
    struct Layout {
        Place question;
        bool scrolls = false;  ///< the question, in a text box instead of the label
        Place label{};
        Place field{};
        Place button{};
        double inner_height = 0;
    };

    [[nodiscard]] double wanted_height() override { return wanted_layout().inner_height; }
    void create_controls() override;
    void apply_scale() override;
    void lay_out() override;
    [[nodiscard]] Announcement announcement() const override;
    void form_load() override;
    void clicked(int id) override;
    void closing() override {}
    void not_shown() override { chosen = when_not_shown; }

    [[nodiscard]] double question_height() const;
    [[nodiscard]] Layout wanted_layout() const;
    void add_text_box(const Place& place);
    void show_proposed();

    std::wstring message_;
    SYSTEMTIME proposed_{};
    Icon picture_;
};

}  // namespace kovrel
