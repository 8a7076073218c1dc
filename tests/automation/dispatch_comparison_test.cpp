// Every shape of a late-bound call, compared with the platform's DispInvoke over the type library.
// Intended differences are listed here with their reasons.
#include "tests/automation/dispatch_comparison.h"

#include <gtest/gtest.h>

namespace kovrel::test {
namespace {

struct Deviation {
    const char* shape;
    const char* own;
};

/// A call that is answered differently from the platform on purpose, and the answer.
struct MeantDeviations {
    const char* reason;
    std::vector<Deviation> calls;
};

const std::vector<MeantDeviations> meant_deviations{
    {"Script hosts pass variants by reference, and compiled ones variables of any type: each is "
     "converted, and written back where the new value fits.",
     {
         {"a wider variable", "S_OK; result texto 2024; variable entero32 2024"},
         {"a narrower variable", "S_OK; result texto 2024; variable byte 24"},
         {"a text variable for a number", "S_OK; result texto 2024; variable texto 2024"},
         {"a number's variable for a text", "S_OK; result vacío; variable entero32 5"},
         {"a script's variable", "S_OK; result texto 2024; variable entero16 2024"},
         {"a script's variable for a text", "S_OK; result vacío; variable texto ab"},
     }},
    {"A name that is none of the member's, or one that is taken, is told as such, with the "
     "argument "
     "that has it.",
     {
         {"the last by name for a taken place", "DISP_E_PARAMNOTFOUND"},
         {"twice the same name", "DISP_E_PARAMNOTFOUND"},
         {"a name too far", "DISP_E_PARAMNOTFOUND"},
         {"a negative name", "DISP_E_PARAMNOTFOUND"},
         {"a put name for a method", "DISP_E_PARAMNOTFOUND"},
         {"a name that is none beside others", "DISP_E_PARAMNOTFOUND"},
     }},
    {"A required argument that is marked missing, or is none of the named ones, is told as such.",
     {
         {"a required one missing", "DISP_E_PARAMNOTOPTIONAL"},
         {"the last required one missing", "DISP_E_PARAMNOTOPTIONAL"},
         {"a required number missing", "DISP_E_PARAMNOTOPTIONAL"},
         {"a required variable missing", "DISP_E_PARAMNOTOPTIONAL"},
         {"only the last by name", "DISP_E_PARAMNOTOPTIONAL"},
         {"a required one left out by name", "DISP_E_PARAMNOTOPTIONAL"},
     }},
    {"One argument too many or too few is a wrong count for properties too.",
     {
         {"one of none", "DISP_E_BADPARAMCOUNT"},
         {"an argument too many to read", "DISP_E_BADPARAMCOUNT"},
         {"read with a put name", "DISP_E_BADPARAMCOUNT"},
         {"nothing to put", "DISP_E_BADPARAMCOUNT"},
         {"two values to put", "DISP_E_BADPARAMCOUNT"},
         {"a property, flags 4", "DISP_E_BADPARAMCOUNT"},
         {"a property, flags 5", "DISP_E_BADPARAMCOUNT"},
         {"a property, flags 12", "DISP_E_BADPARAMCOUNT"},
         {"a property's value, flags 2", "DISP_E_BADPARAMCOUNT"},
         {"a property's value, flags 3", "DISP_E_BADPARAMCOUNT"},
     }},
    {"A value that is passed as a property's is put, whatever else the flags ask for; hosts that "
     "do "
     "not say what it is, and those without an object assignment, put theirs too.",
     {
         {"a property's value, flags 6", "S_OK; result vacío"},
         {"a property's value, flags 15", "S_OK; result vacío"},
         {"a property's value, flags 65535", "S_OK; result vacío"},
         {"put by the parameter's place", "S_OK; result vacío"},
         {"put without a name", "S_OK; result vacío"},
         {"an object, flags 4", "S_OK; result vacío"},
     }},
    {"An object that there is none of does not fit, as any object without a value.",
     {
         {"no object for a number", "DISP_E_TYPEMISMATCH"},
         {"no object for a number's variable", "DISP_E_TYPEMISMATCH"},
         {"no object for a byte's variable", "DISP_E_TYPEMISMATCH"},
         {"no object for a text", "DISP_E_TYPEMISMATCH"},
         {"no object for a text's variable", "DISP_E_TYPEMISMATCH"},
         {"no object for a flag's variable", "DISP_E_TYPEMISMATCH"},
         {"no object for a date's variable", "DISP_E_TYPEMISMATCH"},
     }},
    {"Wine's dispatch reads through a null pointer where an optional variable with a default is "
     "left out, and is not asked.",
     {
         {"optional variables with a default left out",
          "S_OK; result entero16 49; variable entero16 49"},
         {"an optional variable with a default missing",
          "S_OK; result entero16 49; variable entero16 49"},
         {"an optional flag with a default left out", "S_OK; result texto 12345678Z"},
     }},
};

/// The answer expected where it differs from the platform's on purpose; null for all others.
const char* own_answer_meant_to(const CallShape& shape) {
    for (const MeantDeviations& group : meant_deviations) {
        for (const Deviation& call : group.calls) {
            if (shape.name == call.shape) return call.own;
        }
    }
    return nullptr;
}

TEST(DispatchComparison, CallsAreAnsweredAsThePlatformAnswersThem) {
    const BoxWatcher no_box;
    std::size_t deviations = 0;
    for (const CallShape& shape : all_shapes()) {
        SCOPED_TRACE(shape.name);
        const std::string own = answer_to(shape, Dispatch::own);
        if (const char* const meant = own_answer_meant_to(shape)) {
            ++deviations;
            EXPECT_EQ(own, meant);
            const bool faults = shape.name.find(" with a default ") != std::string::npos;
            if (faults) continue;
            EXPECT_NE(own, answer_to(shape, Dispatch::platform)) << "deviates no more";
        } else {
            EXPECT_EQ(own, answer_to(shape, Dispatch::platform));
        }
    }
    std::size_t listed = 0;
    for (const MeantDeviations& group : meant_deviations) listed += group.calls.size();
    EXPECT_EQ(deviations, listed) << "a call in the list is none of those compared";
}

// Arguments of Invoke that DispInvoke does not get.
TEST(DispatchComparison, ArgumentsOfInvokeItself) {
    const auto object = create(L"Kovrel.clsFFechas");
    const DISPID id = id_of(object.get(), L"EsBisiesto");
    Variant year(2024);
    DISPPARAMS parameters{&year, nullptr, 1, 0};
    const auto answer = [&](REFIID interface_id, LCID locale, DISPPARAMS& handed) {
        Variant result(12);
        const HRESULT code = object->Invoke(id, interface_id, locale, DISPATCH_METHOD, &handed,
                                            &result, nullptr, nullptr);
        EXPECT_EQ(result.vt, SUCCEEDED(code) ? VT_BOOL : VT_EMPTY);
        return code;
    };
    for (const LCID locale : {LOCALE_NEUTRAL, LOCALE_USER_DEFAULT, 0x0407UL, 0xFFFFUL}) {
        EXPECT_EQ(answer(IID_NULL, locale, parameters), S_OK);
    }
    EXPECT_EQ(answer(IID_IDispatch, LOCALE_USER_DEFAULT, parameters), DISP_E_UNKNOWNINTERFACE);
    DISPPARAMS no_arguments{nullptr, nullptr, 1, 0};
    EXPECT_EQ(answer(IID_NULL, LOCALE_USER_DEFAULT, no_arguments), E_INVALIDARG);
    DISPPARAMS no_names{&year, nullptr, 1, 1};
    EXPECT_EQ(answer(IID_NULL, LOCALE_USER_DEFAULT, no_names), E_INVALIDARG);
}

}  // namespace
}  // namespace kovrel::test
