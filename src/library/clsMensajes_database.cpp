// clsMensajes: reports of a database connection's errors, and the library's version.
#include <vector>

#include "automation/host_object.h"
#include "automation/module.h"
#include "automation/object.h"
#include "files/path_text.h"
#include "library/clsMensajes.h"
#include "library/clsProfile.h"
#include "messages/reports.h"
#include "runtime/conversion.h"
#include "services/guarded.h"
#include "services/message_box.h"

namespace kovrel {
namespace {

std::int32_t count_of(const HostObject& errors) {
    return errors.get(L"Count").to_int32();
}

}  // namespace

clsMensajes::clsMensajes() : profile_(create_instance<clsProfile>()) {}

std::wstring clsMensajes::get_ArchiVersion() {
    return version_text(KOVREL_VERSION_MAJOR, KOVREL_VERSION_MINOR, KOVREL_VERSION_REVISION);
}

std::wstring clsMensajes::get_ArchiInformacion() {
    return guarded<std::wstring>(
        {L") en procedimiento ArchiInformacion del Módulo de clase clsMensajes."},
        [&](std::wstring& result) {
            profile_ = InstanceOf<clsProfile>(create_instance<clsProfile>());
            const HostObject profile(profile_);
            profile.put(L"AppOrigen", Variant(get_AppOrigen()));
            const PathParts file = split_path(own_module_path());
            const std::wstring folder =
                profile.call(L"AñadirBackSlash", {Variant(file.folder)}).to_text();
            result = identification_text(application_title, get_ArchiVersion(), folder,
                                         file.name.substr(0, file.name.rfind(L'.')));
        });
}

void clsMensajes::MensajeErroresADO(const std::wstring& strErrorTextoGenerico,
                                    const ComPtr<IDispatch>& colecErrors) {
    const Handler handler{L") en procedimiento MensajeErroresADO de Módulo de clase clsMensajes.",
                          &app_origen()};
    guarded(handler, [&] {
        const HostObject collection(colecErrors);
        // The index of an element is a 16-bit number.
        const std::int16_t last = round_to_int16(count_of(collection) - 1.0);
        std::vector<DatabaseError> errors;
        for (std::int32_t index = 0; index <= last; ++index) {
            const Variant argument(static_cast<std::int16_t>(index));
            const auto item = [&] { return HostObject(collection.get(L"Item", {argument})); };
            const std::int32_t number = item().get(L"Number").to_int32();
            errors.push_back({number, item().get(L"Description").to_text_or_empty()});
        }
        show(database_error_report(app_origen(), strErrorTextoGenerico, errors,
                                   count_of(collection)));
    });
}

std::int16_t clsMensajes::ExistenErroresADO(const ComPtr<IDispatch>& Cnn, const bool& boMensajes) {
    const Handler handler{L") en procedimiento ExistenErroresADO del Módulo de clase clsMensajes.",
                          &app_origen()};
    return guarded<std::int16_t>(handler, [&](std::int16_t& count) {
        const HostObject connection(Cnn);
        const auto errors = [&] { return HostObject(connection.get(L"Errors")); };
        if (count_of(errors()) < 1) return;
        count = errors().get(L"Count").to_int16();
        if (!boMensajes) return;
        MensajeErroresADO(std::wstring(database_access_errors),
                          connection.get(L"Errors").to_object());
    });
}

}  // namespace kovrel
