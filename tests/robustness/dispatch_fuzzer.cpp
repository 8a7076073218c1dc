#include "tests/robustness/dispatch_fuzzer.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <deque>
#include <set>

#include "automation/bstr.h"
#include "tests/robustness/last_words.h"
#include "tests/support/box_watcher.h"

namespace kovrel::test {
namespace {

constexpr int deepest_call = 3;
constexpr std::size_t most_problems = 20;

/// Members that write files named by their arguments, or wait as long as they say.
bool must_be_tame(const std::wstring& member) {
    static const std::set<std::wstring> names{
        L"GuardarIni",    L"SaveSetting", L"DeleteSetting",   L"LeerIni",
        L"GetSetting",    L"GenerarZip",  L"PutImageInField", L"PutLargeImageInField",
        L"ExisteCarpeta", L"Espera",      L"Comprime",        L"Lista",
        L"Prueba",        L"Extrae"};
    return names.contains(member);
}

bool takes_object(const OwnMember& member) {
    return std::find(member.types.begin(), member.types.end(), VT_DISPATCH) != member.types.end();
}

/// The HRESULTs documented for Invoke.
bool is_documented(HRESULT result) {
    switch (result) {
        case S_OK:
        case DISP_E_EXCEPTION:
        case DISP_E_MEMBERNOTFOUND:
        case DISP_E_BADPARAMCOUNT:
        case DISP_E_PARAMNOTFOUND:
        case DISP_E_PARAMNOTOPTIONAL:
        case DISP_E_TYPEMISMATCH:
        case DISP_E_OVERFLOW:
        case DISP_E_BADVARTYPE:
        case DISP_E_BADINDEX:
        case E_INVALIDARG:
            return true;
        default:
            return false;
    }
}

bool names_an_argument(HRESULT result) {
    return result == DISP_E_TYPEMISMATCH || result == DISP_E_PARAMNOTFOUND ||
           result == DISP_E_OVERFLOW;
}

/// The bytes and the content of an argument by value, to compare before and after the call.
std::vector<char> content_of(const VARIANT& value) {
    const auto* const bytes = reinterpret_cast<const char*>(&value);
    std::vector<char> content(bytes, bytes + sizeof value);
    if (value.vt == VT_BSTR) {
        const auto text = text_of(value.bstrVal);
        const auto* const characters = reinterpret_cast<const char*>(text.data());
        content.insert(content.end(), characters, characters + text.size() * sizeof(wchar_t));
    } else if ((value.vt & VT_ARRAY) != 0 && (value.vt & VT_BYREF) == 0 &&
               value.parray != nullptr) {
        std::size_t size = value.parray->cbElements;
        for (USHORT index = 0; index < value.parray->cDims; ++index) {
            size *= value.parray->rgsabound[index].cElements;
        }
        const auto* const data = static_cast<const char*>(value.parray->pvData);
        content.insert(content.end(), data, data + size);
        content.push_back(static_cast<char>(value.parray->cLocks));
    }
    return content;
}

}  // namespace

/// The arguments of one call and what they refer to.
struct DispatchFuzzer::Frame {
    std::vector<VARIANT> arguments;       // in reverse order, as passed
    std::vector<Variant> owned;           // owners of those passed by value
    std::deque<Variant> variables;        // targets of those passed by reference
    std::vector<VARTYPE> variable_types;  // VT_VARIANT, or the type that must stay
    std::deque<VARIANT> links;            // of chains of references
    std::vector<DISPID> names;
};

struct DispatchFuzzer::Reply {
    HRESULT result = E_UNEXPECTED;
    const VARIANT* value = nullptr;
    const EXCEPINFO* exception = nullptr;
    const UINT* bad_argument = nullptr;
};

DispatchFuzzer::DispatchFuzzer(std::uint64_t seed)
    : rubbish_(seed), instances_(OwnLibrary::get().classes().size()) {
    rubbish_.disturbance = [this] { disturb(); };
}

DispatchFuzzer::~DispatchFuzzer() {
    rubbish_.other_objects.clear();
}

void DispatchFuzzer::problem(const std::string& what, const std::string& where) {
    if (problems_.size() < most_problems) problems_.push_back(what + ": " + where);
}

IDispatch* DispatchFuzzer::instance_of(std::size_t index) {
    ComPtr<IDispatch>& instance = instances_[index];
    if (!instance) instance = OwnLibrary::get().create(OwnLibrary::get().classes()[index]);
    return instance.get();
}

/// During a call the host changes its variables, releases instances or makes another call.
void DispatchFuzzer::disturb() {
    Random& random = rubbish_.random;
    switch (random.below(4)) {
        case 0: {
            Frame& frame = *frames_[random.below(frames_.size())];
            if (frame.variables.empty()) break;
            const std::size_t index = random.below(frame.variables.size());
            const VARTYPE type = frame.variable_types[index];
            if ((type & VT_ARRAY) != 0) break;
            Variant fresh = type == VT_VARIANT ? rubbish_.value() : rubbish_.value_of(type, true);
            // This releases the old value, possibly the object that is being called.
            frame.variables[index] = std::move(fresh);
            break;
        }
        case 1:
            instances_[random.below(instances_.size())] = nullptr;
            break;
        default:
            if (frames_.size() < deepest_call) {
                ++inner_calls_;
                call_one(static_cast<int>(frames_.size()));
            }
            break;
    }
}

void DispatchFuzzer::choose_arguments(Frame& frame, const OwnMember& member, bool tame) {
    Random& random = rubbish_.random;
    std::size_t count = member.parameters.size();
    if ((member.kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0) count = 1;
    if (random.one_in(5)) count = random.below(count + 3);
    frame.arguments.resize(count);
    frame.owned.resize(count);
    for (std::size_t index = 0; index < count; ++index) {
        VARIANT& argument = frame.arguments[index];
        const std::size_t parameter = count - 1 - index;
        // Most have the type of the parameter.
        VARTYPE type = parameter < member.types.size() && !random.one_in(4)
                           ? member.types[parameter]
                           : rubbish_.variable_type();
        if (type == VT_USERDEFINED || type == VT_VARIANT) type = rubbish_.variable_type();
        const std::size_t shape = random.below(20);
        VariantInit(&argument);
        if (shape < 9) {
            frame.owned[index] =
                random.one_in(5) ? rubbish_.value(tame) : rubbish_.value_of(type, tame);
            argument = frame.owned[index];
            continue;
        }
        const bool typed = shape < 13;
        frame.variables.push_back(typed ? rubbish_.value_of(type, tame) : rubbish_.value(tame));
        frame.variable_types.push_back(typed ? type : static_cast<VARTYPE>(VT_VARIANT));
        Variant& variable = frame.variables.back();
        if (typed) {
            argument.vt = VT_BYREF | type;
            argument.byref = type == VT_DECIMAL ? static_cast<void*>(&variable.decVal)
                                                : static_cast<void*>(&variable.llVal);
        } else if ((variable.vt & VT_ARRAY) != 0 && random.one_in(2)) {
            argument.vt = VT_BYREF | variable.vt;
            argument.pparray = &variable.parray;
            frame.variable_types.back() = variable.vt;
        } else {
            argument.vt = VT_BYREF | VT_VARIANT;
            argument.pvarVal = &variable;
        }
        // Chains of references, sometimes too long, to themselves or null.
        std::size_t links = shape < 17 ? 0 : random.below(11);
        for (; links > 0; --links) {
            frame.links.push_back(argument);
            argument.vt = VT_BYREF | VT_VARIANT;
            argument.pvarVal = &frame.links.back();
        }
        if (random.one_in(60)) {
            frame.links.push_back(argument);
            argument.vt = VT_BYREF | VT_VARIANT;
            argument.pvarVal = &frame.links.back();
            frame.links.back() = argument;
        } else if (random.one_in(60)) {
            argument.byref = nullptr;
        }
    }
}

void DispatchFuzzer::choose_names(Frame& frame, const OwnMember& member) {
    Random& random = rubbish_.random;
    const bool puts = (member.kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    if (puts && !random.one_in(10)) {
        frame.names.assign(1, DISPID_PROPERTYPUT);
    } else if (random.one_in(5)) {
        const std::size_t count = random.below(frame.arguments.size() + 1);
        for (std::size_t index = 0; index < count; ++index) {
            // Mostly the ids of the last parameters, in the order passed.
            frame.names.push_back(random.one_in(8) ? static_cast<DISPID>(random.next())
                                  : random.one_in(6)
                                      ? static_cast<DISPID>(random.below(9)) - 4
                                      : static_cast<DISPID>(frame.arguments.size() - 1 - index));
        }
    }
    if (random.one_in(200)) frame.names.assign(frame.arguments.size() + 1, 0);
}

WORD DispatchFuzzer::choose_flags(const OwnMember& member) {
    Random& random = rubbish_.random;
    if (random.one_in(12)) return static_cast<WORD>(random.below(32));
    if (member.kind == DISPATCH_METHOD && random.one_in(2)) {
        return DISPATCH_METHOD | DISPATCH_PROPERTYGET;
    }
    return member.kind;
}

void DispatchFuzzer::call_one(int depth) {
    Random& random = rubbish_.random;
    const std::size_t at = random.below(instances_.size());
    const OwnClass& of_class = OwnLibrary::get().classes()[at];
    std::vector<const OwnMember*> choice;
    // Prefers the few members that work on the host's objects.
    const bool with_objects = random.one_in(3);
    for (const OwnMember& candidate : of_class.members) {
        if (!with_objects || takes_object(candidate)) choice.push_back(&candidate);
    }
    if (choice.empty()) return;
    const OwnMember& member = *random.any_of(choice);
    IDispatch* const target = instance_of(at);
    if (target == nullptr) {
        problem("no instance", narrow(of_class.name));
        return;
    }
    // An object of the library as an argument, kept alive during the call.
    ComPtr<IDispatch> companion(instances_[random.below(instances_.size())]);
    rubbish_.other_objects.assign(companion ? 1 : 0, companion.get());

    Frame frame;
    choose_arguments(frame, member, must_be_tame(member.name));
    choose_names(frame, member);
    const WORD flags = choose_flags(member);
    const DISPID id = random.one_in(100) ? static_cast<DISPID>(random.next()) % 300 : member.id;
    // The arguments are tame only for that member.
    if (id != member.id) frame.arguments.clear(), frame.names.clear();
    std::vector<std::vector<char>> before;
    for (const VARIANT& argument : frame.arguments) before.push_back(content_of(argument));
    std::string what = std::string(static_cast<std::size_t>(depth), '>') + narrow(of_class.name) +
                       '.' + narrow(member.name) + " flags " + std::to_string(flags) + " (";
    for (const VARIANT& argument : frame.arguments) what += typed_text(argument) + "; ";
    what += ") named";
    for (const DISPID name : frame.names) what += ' ' + std::to_string(name);
    announce(what);

    DISPPARAMS parameters{frame.arguments.data(), frame.names.data(),
                          static_cast<UINT>(frame.arguments.size()),
                          static_cast<UINT>(frame.names.size())};
    VARIANT value;
    VariantInit(&value);
    EXCEPINFO exception{};
    UINT bad_argument = 0xFFFF'FFFF;
    const bool wants_value = !random.one_in(6);
    const bool wants_details = !random.one_in(6);
    frames_.push_back(&frame);
    Reply reply;
    reply.result = target->Invoke(
        id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, wants_value ? &value : nullptr,
        wants_details ? &exception : nullptr, wants_details ? &bad_argument : nullptr);
    frames_.pop_back();
    reply.value = wants_value ? &value : nullptr;
    reply.exception = wants_details ? &exception : nullptr;
    reply.bad_argument = wants_details ? &bad_argument : nullptr;

    succeeded_ += reply.result == S_OK ? 1 : 0;
    failed_inside_ += reply.result == DISP_E_EXCEPTION ? 1 : 0;
    check(frame, reply, what);
    for (std::size_t index = 0; index < frame.arguments.size(); ++index) {
        if (content_of(frame.arguments[index]) != before[index]) {
            problem("argument " + std::to_string(index) + " changed", what);
        }
    }
    VariantClear(&value);
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrHelpFile);
    // Not before: releasing the variables may call it.
    rubbish_.other_objects.clear();
}

void DispatchFuzzer::check(const Frame& frame, const Reply& reply, const std::string& what) {
    char number[16];
    std::snprintf(number, sizeof number, "%08lx", static_cast<unsigned long>(reply.result));
    const std::string where = what + " -> " + number;
    if (!is_documented(reply.result)) problem("undocumented result", where);
    if (reply.value != nullptr) {
        if (reply.result != S_OK && reply.value->vt != VT_EMPTY) {
            problem("a failed call has a result", where);
        } else if (!is_sound(*reply.value)) {
            problem("unsound result", where);
        }
    }
    if (reply.bad_argument != nullptr && names_an_argument(reply.result) &&
        *reply.bad_argument >= std::max<std::size_t>(frame.arguments.size(), 1)) {
        problem("argument out of range: " + std::to_string(*reply.bad_argument), where);
    }
    if (reply.exception != nullptr && reply.result == DISP_E_EXCEPTION) {
        if (reply.exception->scode >= 0) problem("no failure number", where);
        if (!text_of(reply.exception->bstrSource).starts_with(L"Kovrel.")) {
            problem("no source of a failure", where);
        }
    }
    for (std::size_t index = 0; index < frame.variables.size(); ++index) {
        const Variant& variable = frame.variables[index];
        const VARTYPE type = frame.variable_types[index];
        if (type != VT_VARIANT && variable.vt != type) problem("a variable's type changed", where);
        if ((variable.vt & VT_BYREF) != 0) problem("a variable became a reference", where);
    }
}

void DispatchFuzzer::call() {
    call_one(0);
    if (RubbishObject::alive() != 0) {
        problem("objects kept: " + std::to_string(RubbishObject::alive()), "the last call");
    }
    Random& random = rubbish_.random;
    if (random.one_in(40)) instances_[random.below(instances_.size())] = nullptr;
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
}

void DispatchFuzzer::release_all() {
    for (ComPtr<IDispatch>& instance : instances_) instance = nullptr;
    if (OwnLibrary::get().can_unload() != S_OK) problem("instances left", "all released");
}

}  // namespace kovrel::test
