// cgsFileOpR: the system's open-file dialog.
#include <windows.h>
#include <commdlg.h>

#include <ocidl.h>

#include "automation/floating_point.h"
#include "files/open_dialog_text.h"
#include "library/cgsFileOpR.h"
#include "services/announcer.h"
#include "services/dynamic_library.h"
#include "services/guarded.h"
#include "services/modal_scope.h"
#include "services/text_encoding.h"

namespace kovrel {
namespace {

constexpr std::int16_t action_open = 1;
/// The error number of a cancelled dialog, as the common-dialog controls report it.
constexpr std::int32_t cancelled_number = 32755;

/// Reports a cancelled dialog in the thread's error object, though the call succeeds. The number
/// goes into the help context, the only number that an error object has.
void note_cancelled() noexcept {
    wchar_t source[] = L"cComDlgR.ShowOpen";
    wchar_t description[] = L"Error en Abrir (clase cComDlgR)";
    ComPtr<ICreateErrorInfo> creator;
    if (FAILED(CreateErrorInfo(creator.put()))) return;
    creator->SetSource(source);
    creator->SetDescription(description);
    creator->SetHelpContext(cancelled_number);
    if (const auto info = creator.query<IErrorInfo>()) SetErrorInfo(0, info.get());
}

/// A buffer that the dialog reads and writes. The NUL after it terminates a text that fills it.
class Buffer {
 public:
    explicit Buffer(std::wstring_view text) : bytes_(to_ansi(open_dialog_buffer(text))) {
        bytes_.resize(open_dialog_buffer_size);
    }
    [[nodiscard]] char* data() noexcept { return bytes_.data(); }
    [[nodiscard]] std::wstring text() const { return from_ansi(bytes_); }

 private:
    std::string bytes_;
};

/// Modal to the whole thread, whatever its owner. True when the user has chosen a file.
bool run_dialog(OPENFILENAME_NT4A& record, const Announcement& announcement) {
    const Announced announced = announce(announcement, [&record] {
        auto* const open =
            system_function<decltype(GetOpenFileNameA)>(L"comdlg32.dll", "GetOpenFileNameA");
        const ModalScope scope(ModalScope::NextDialog{record.hwndOwner});
        const HostFloatingPoint host;
        return open(reinterpret_cast<OPENFILENAMEA*>(&record)) != FALSE ? Answer::ok
                                                                        : Answer::cancel;
    });
    return announced.answer == Answer::ok;
}

}  // namespace

bool cgsFileOpR::ShowOpen(Variant vFileName, Variant vTitle, Variant vFilter, const Variant& vFlags,
                          Variant vhWnd) {
    return guarded<bool>(
        {L") en procedimiento ShowOpen del Módulo de clase cgsFileOpR."}, [&](bool& chosen) {
            SetErrorInfo(0, nullptr);
            if (!vFileName.is_missing()) FileName = vFileName.to_text();
            if (!vhWnd.is_missing()) hWnd = vhWnd.to_int32();
            if (!vFilter.is_missing()) set_Filter(vFilter.to_text());
            if (!vTitle.is_missing()) DialogTitle = vTitle.to_text();
            if (!vFlags.is_missing()) Flags = static_cast<eOFN>(vFlags.to_int32());
            if (DialogTitle.empty()) DialogTitle = L"Abrir";

            std::string filter =
                to_ansi(system_filter_.empty() ? every_file_filter : system_filter_);
            // A list given by the host may lack its terminator, and even its last pattern.
            filter.append(3, '\0');
            Buffer file(FileName);
            Buffer file_title(FileTitle);
            Buffer folder(InitDir);
            const std::string title = to_ansi(DialogTitle);
            OPENFILENAME_NT4A record{};
            record.lStructSize = sizeof record;
            // Window handles are 32 bits wide and sign-extended to 64.
            record.hwndOwner = reinterpret_cast<HWND>(static_cast<std::intptr_t>(hWnd));
            record.lpstrFilter = filter.c_str();
            record.nFilterIndex = static_cast<DWORD>(FilterIndex);
            record.lpstrFile = file.data();
            record.nMaxFile = open_dialog_buffer_size;
            record.lpstrFileTitle = file_title.data();
            record.nMaxFileTitle = open_dialog_buffer_size;
            record.lpstrInitialDir = folder.data();
            record.lpstrTitle = title.c_str();
            record.Flags = static_cast<DWORD>(Flags);
            record.lpstrDefExt = "0";
            record.lpTemplateName = "0";
            // The published size of this version of OPENFILENAME.
            static_assert(sizeof record == (sizeof(void*) == 4 ? 76 : 136));
            const bool multiple = (record.Flags & OFN_ALLOWMULTISELECT) != 0;
            if (!run_dialog(record, announcement_of_window(DialogTitle, FileName))) {
                if (CancelError) note_cancelled();
                return;
            }
            const auto choice = multiple ? &multiple_choice : &single_choice;
            FileName = choice(file.text());
            FileTitle = choice(file_title.text());
            InitDir = choice(folder.text());
            chosen = true;
        });
}

void cgsFileOpR::set_Action(const std::int16_t& value) {
    if (value != action_open) return;
    ShowOpen(Variant::missing(), Variant::missing(), Variant::missing(), Variant::missing(),
             Variant::missing());
}

void cgsFileOpR::set_Filter(std::wstring_view value) {
    guarded({L") en procedimiento Filter del Módulo de clase cgsFileOpR."},
            [&] { system_filter_ = system_filter(value); });
}

}  // namespace kovrel
