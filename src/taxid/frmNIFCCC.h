// The verifier: a window in which the user types a tax id or a bank account code, sees it checked
// when the field is left, and can copy it.
#pragma once

#include <memory>
#include <string>

#include "frame/clsFGen.h"
#include "ui/masked_edit.h"
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
    /// Posted to the window with a data-entry error code, which it explains to the user.
    static constexpr UINT data_entry_error = first_posted;

    frmNIFCCC();

    /// The one that everybody on the thread shares while anybody holds it.
    [[nodiscard]] static std::shared_ptr<frmNIFCCC> shared();

    void nif_ok_no(const bool& Estado);
    void ccc_ok_no(const bool& Estado);

 private:
    /// Posted by a field that the focus has left.
    static constexpr UINT field_left = first_posted + 1;

    void create_controls() override;
    void apply_scale() override;
    void form_load() override;
    void paint_picture_box(int id, HDC context, const RECT& bounds) override;
    void clicked(int id) override;
    void notified(int id, UINT code) override;
    HBRUSH background_of(HWND control, HDC context) override;
    void focus_moved(HWND from, HWND to) override;
    void press_ended() override;
    void posted(UINT message, int value) override;
    void form_unload() override;

    [[nodiscard]] std::shared_ptr<clsFGen> general();
    [[nodiscard]] MaskedEdit* field(int id) const noexcept;
    void show_image(int id, bool wanted);
    void hide_images(int accepted, int refused);
    void put_focus_back(int id);
    void check_later() const noexcept;
    bool check_left_field();
    bool leave(int id);
    bool validate_tax_id();
    bool validate_account();
    void tax_id_changed();
    void account_changed();
    void copy(int id);
    void close();

    std::shared_ptr<clsFGen> general_;
    std::unique_ptr<MaskedEdit> tax_id_;
    std::unique_ptr<MaskedEdit> account_;
    std::wstring last_tax_id_;  ///< the field's text at its last change
    std::wstring last_account_;
    int left_field_ = 0;  ///< its check is still to come; 0: none
    bool returning_ = false;
    Icon accepted_;
    Icon refused_;
    Icon heading_;
    Font heading_font_;
};

}  // namespace kovrel
