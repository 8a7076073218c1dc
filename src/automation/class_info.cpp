#include "automation/class_info.h"

#include <algorithm>

#include "runtime/text.h"

namespace kovrel {

const MemberInfo* ClassInfo::Accessors::any() const noexcept {
    for (const MemberInfo* member : members_) {
        if (member != nullptr) return member;
    }
    return nullptr;
}

DISPID ClassInfo::find(std::wstring_view member) const {
    const std::wstring wanted = to_upper(member);
    // Compares the name of an id, in capitals, with the wanted one: negative, 0 or positive.
    const auto order = [&](std::uint16_t id) {
        const std::wstring_view name = members[by_id[id - 1U]].name;
        const auto pair =
            std::mismatch(name.begin(), name.end(), wanted.begin(), wanted.end(),
                          [](wchar_t own, wchar_t other) { return to_upper(own) == other; });
        if (pair.first == name.end()) return pair.second == wanted.end() ? 0 : -1;
        return pair.second == wanted.end() || to_upper(*pair.first) > *pair.second ? 1 : -1;
    };
    const auto found = std::partition_point(by_name.begin(), by_name.end(),
                                            [&](std::uint16_t id) { return order(id) < 0; });
    return found != by_name.end() && order(*found) == 0 ? *found : DISPID_UNKNOWN;
}

HRESULT ClassInfo::find_ids(LPOLESTR* names, UINT count, DISPID* ids) const {
    std::fill_n(ids, count, DISPID_UNKNOWN);
    const DISPID id = names[0] == nullptr ? DISPID_UNKNOWN : find(names[0]);
    const MemberInfo* const found = accessors(id).any();
    if (found == nullptr) return DISP_E_UNKNOWNNAME;
    ids[0] = published(id);
    const auto& parameters = found->parameters;
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

ClassInfo::Accessors ClassInfo::accessors(DISPID id) const noexcept {
    Accessors result;
    if (id <= 0) id = of_published(id);
    if (id < 1 || static_cast<std::size_t>(id) > by_id.size()) return result;
    // The accessors of a property are adjacent.
    for (const MemberInfo& member : members.subspan(by_id[static_cast<std::size_t>(id - 1)])) {
        if (member.id != id) break;
        result.add(member);
    }
    return result;
}

}  // namespace kovrel
