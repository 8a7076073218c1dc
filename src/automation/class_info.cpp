#include "automation/class_info.h"

#include <algorithm>

#include "runtime/text.h"

namespace kovrel {

const MemberInfo* ClassInfo::Accessors::any() const noexcept {
    for (const MemberInfo* member : {method, get, put, put_object}) {
        if (member != nullptr) return member;
    }
    return nullptr;
}

void ClassInfo::index_members() {
    for (const MemberInfo& member : members) {
        const auto index = static_cast<std::size_t>(member.id - 1);
        if (index >= by_id.size()) by_id.resize(index + 1);
        Accessors& entry = by_id[index];
        if (entry.any() == nullptr) by_name_.emplace_back(to_upper(member.name), member.id);
        switch (member.kind) {
            case MemberKind::method:
                entry.method = &member;
                break;
            case MemberKind::property_get:
                entry.get = &member;
                break;
            case MemberKind::property_put:
                entry.put = &member;
                break;
            case MemberKind::property_put_object:
                entry.put_object = &member;
                break;
        }
    }
    std::sort(by_name_.begin(), by_name_.end());
}

DISPID ClassInfo::find(std::wstring_view member) const {
    const std::wstring wanted = to_upper(member);
    const auto found = std::lower_bound(
        by_name_.begin(), by_name_.end(), wanted,
        [](const auto& entry, const std::wstring& name) { return entry.first < name; });
    return found != by_name_.end() && found->first == wanted ? found->second : DISPID_UNKNOWN;
}

HRESULT ClassInfo::find_ids(LPOLESTR* names, UINT count, DISPID* ids) const {
    std::fill_n(ids, count, DISPID_UNKNOWN);
    ids[0] = names[0] == nullptr ? DISPID_UNKNOWN : find(names[0]);
    const Accessors* const found = accessors(ids[0]);
    if (found == nullptr) return DISP_E_UNKNOWNNAME;
    const auto& parameters = found->any()->parameters;
    HRESULT result = S_OK;
    for (UINT index = 1; index < count; ++index) {
        const auto parameter =
            std::find_if(parameters.begin(), parameters.end(), [&](const ParameterInfo& candidate) {
                return names[index] != nullptr && equal_without_case(candidate.name, names[index]);
            });
        if (parameter == parameters.end()) {
            result = DISP_E_UNKNOWNNAME;
        } else {
            ids[index] = static_cast<DISPID>(parameter - parameters.begin());
        }
    }
    return result;
}

const ClassInfo::Accessors* ClassInfo::accessors(DISPID id) const noexcept {
    if (id < 1 || static_cast<std::size_t>(id) > by_id.size()) return nullptr;
    return &by_id[static_cast<std::size_t>(id - 1)];
}

}  // namespace kovrel
