// The customer form: a dialog whose fields are checked by the library as they are left.
#pragma once

#include <windows.h>

#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "customer_store.h"
#include "form_control.h"
#include "key_filter.h"
#include "library.h"
#include "photograph.h"

namespace ficha {

class CustomerForm {
 public:
    /// Exports go to that folder. Without customers of a database the form holds one in memory.
    CustomerForm(const Library& library, std::filesystem::path folder,
                 const CustomerStore* customers, const std::wstring& title);

    /// Returns when the user closes the form.
    void run();

 private:
    /// Marks that the library is showing a box or window: changes of the focus and commands are
    /// ignored meanwhile.
    class Busy {
     public:
        explicit Busy(CustomerForm& form)
            : busy_(form.busy_), before_(std::exchange(busy_, true)) {}
        Busy(const Busy&) = delete;
        Busy& operator=(const Busy&) = delete;
        ~Busy() { busy_ = before_; }

     private:
        bool& busy_;
        bool before_;
    };

    static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    bool handle(UINT message, WPARAM wparam, LPARAM lparam);
    void load();
    void add_text(int id, const wchar_t* name, int max_length, const wchar_t* hint = L"");
    void command(int id);
    void field_left(int id);

    // Checks (customer_checks.cpp): false when the user has been told of a mistake.
    bool accepts(int id);
    bool accepts_all();
    bool passes(const wchar_t* validator, Object::Arguments arguments);
    bool correct_tax_id();
    bool show_province();
    bool check_account();
    bool show_balance();

    // The customers of the database (customer_browsing.cpp).
    Customer current();
    bool leaves();
    void browse(int step);
    void start_new();
    void show(const Customer& customer);
    bool keep();

    // Buttons.
    void ask_date(int field, const wchar_t* question);
    void ask_photograph();
    bool save();
    void export_record();

    [[nodiscard]] std::wstring text(int id) const { return fields_.at(id)->text(); }
    [[nodiscard]] Value object(int id) const;
    void set_label(int id, const std::wstring& text);
    void go_to(int id);

    const Library& library_;
    const std::filesystem::path folder_;
    const CustomerStore* const customers_;
    const std::wstring title_;
    Customer shown_;         // as the database has it
    std::wstring known_as_;  // its tax id there; empty for a new one
    CustomerRecord record_;
    Photograph photograph_;
    std::filesystem::path photograph_file_;
    bool photograph_is_new_ = false;  // not in the database
    HWND window_ = nullptr;
    std::map<int, Owner<FormControl>> fields_;
    std::vector<std::unique_ptr<KeyFilter>> filters_;
    bool busy_ = false;
};

}  // namespace ficha
