// The verifier: a window that checks a tax id or a bank account code when its field is left, and
// copies it.
#pragma once

#include <memory>
#include <string>

#include "runtime/notice.h"
#include "taxid/verifier_checks.h"
#include "ui/masked_edit.h"
#include "ui/shared_window.h"
#include "ui/window.h"

namespace kovrel {

class frmNIFCCC final : public Window {
 public:
    enum Control : int {
        frameNIF = 101,
        MkNIF,
        cmd_copiaNIF,
        img_nifok,
        img_nifno,
        frameCCC,
        MkCCC,
        cmd_copiaCCC,
        img_cccok,
        img_cccno,
        Label,
        lbl_mensaje,
        Picture1,
        cmdOK,
        lbl_nif,
        lbl_ccc,
    };
    static constexpr const wchar_t* window_class = L"Kovrel.frmNIFCCC";
    /// Posted to the window with a data-entry error code to explain to the user.
    static constexpr UINT data_entry_error = first_posted;

    frmNIFCCC();

    /// The thread's shared window, alive while anybody holds it. Each time it is opened it creates
    /// new checks.
    [[nodiscard]] static std::shared_ptr<frmNIFCCC> shared(MakeVerifierChecks make_checks);

    void nif_ok_no(const bool& Estado) { show_marks(tax_id_, Estado, !Estado); }
    void ccc_ok_no(const bool& Estado) { show_marks(account_, Estado, !Estado); }

 private:
    /// One of the two fields, with its marks and everything specific to it.
    struct Field {
        int id;
        int accepted;
        int refused;
        std::size_t selection;  ///< the characters that its button selects and copies
        const wchar_t* name;    ///< in the validator's messages
        void (frmNIFCCC::*verify)(const std::wstring& text);
        void (frmNIFCCC::*ok_no)(const bool& Estado);
        Notice (*nothing_to_copy)();
        // The trailing texts of its procedures' error boxes.
        const wchar_t* validate;
        const wchar_t* lost_focus;
        const wchar_t* change;
        const wchar_t* copy_click;
        std::unique_ptr<MaskedEdit> edit{};  ///< while the window is loaded
        std::wstring last{};                 ///< its text at its last change
    };

    /// Posted when the focus has left a field.
    static constexpr UINT field_left = first_posted + 1;

    void create_controls() override;
    void apply_scale() override;
    void lay_out() override;
    void form_load() override;
    void paint_picture_box(int id, HDC context, const RECT& bounds) override;
    void clicked(int id) override;
    void notified(int id, UINT code) override;
    [[nodiscard]] bool has_page_colors(int id) const override;
    void focus_moved(HWND from, HWND to) override;
    void press_ended() override;
    void posted(UINT message, int value) override;
    void form_unload() override;

    [[nodiscard]] Place edit_place(double frame_top, double width) const noexcept;
    [[nodiscard]] std::shared_ptr<VerifierChecks> checks();
    /// Null for other controls, and while the window is not loaded.
    [[nodiscard]] Field* field(int id) noexcept;
    void show_image(int id, bool wanted);
    void show_marks(const Field& field, bool accepted, bool refused);
    void put_focus_back(const Field& field);
    void check_later() const noexcept;
    bool check_left_field();
    bool leave(const Field& field);
    bool validate(const Field& field);
    void verify_tax_id(const std::wstring& text);
    void verify_account(const std::wstring& text);
    void copy(const Field& field);
    void close();

    MakeVerifierChecks make_checks_ = nullptr;
    std::shared_ptr<VerifierChecks> checks_;
    Field tax_id_;
    Field account_;
    const Field* left_field_ = nullptr;  ///< left and not checked yet; null: none
    bool returning_ = false;             ///< the focus is being put back into a field
    Icon accepted_;                      ///< made when it is first painted, as the next
    Icon refused_;
    Icon heading_;
    Font heading_font_;
};

}  // namespace kovrel
