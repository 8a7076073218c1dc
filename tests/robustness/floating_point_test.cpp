// Hosts with a floating-point environment of their own: results are as in the default environment,
// no exception is raised, and afterwards the host's environment is in force again.
#include <array>
#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>

#include "runtime/failure.h"
#include "tests/robustness/last_words.h"
#include "tests/robustness/sensible.h"
#include "tests/robustness/unattended.h"
#include "tests/robustness/workplace.h"
#include "tests/support/every_way.h"
#include "tests/support/floating_point_host.h"

namespace kovrel::test {
namespace {

struct Member {
    const wchar_t* of_class;
    const wchar_t* name;
};
/// Members that calculate with their first argument.
constexpr std::array numeric{Member{L"clsFGen", L"redondeoa2"},
                             Member{L"clsFGen", L"redondeoa4"},
                             Member{L"clsFGen", L"CBolNum"},
                             Member{L"clsFGen", L"Nz"},
                             Member{L"clsFGen", L"ConvEurosALetra"},
                             Member{L"clsFGen", L"ConvNumeroALetra"},
                             Member{L"clsFGen", L"LetraNIF"},
                             Member{L"clsCSQL", L"Conv_Double"},
                             Member{L"clsCSQL", L"Conv_DoubleDeDouble"},
                             Member{L"clsCSQL", L"Conv_Double4"},
                             Member{L"clsCSQL", L"Conv_Date"},
                             Member{L"clsCSQL", L"Conv_Date_Date"},
                             Member{L"clsCSQL", L"Conv_Boolean"},
                             Member{L"clsFFechas", L"EsBisiesto"},
                             Member{L"clsFFechas", L"SemanaEnElMes"},
                             Member{L"clsFFechas", L"PrimerDiaSemana"},
                             Member{L"clsFFechas", L"UltimoDiaSemana"},
                             Member{L"clsFFechas", L"SemanaDel"}};

std::vector<Variant> amounts() {
    std::vector<Variant> result;
    using Limits = std::numeric_limits<double>;
    for (const double amount : {0.0,
                                0.005,
                                1.005,
                                2.675,
                                -0.456,
                                12.5,
                                1234.5601,
                                45366.75,
                                123456789.123456,
                                1e15 / 3,
                                2e304,
                                1e307,
                                -1e307,
                                Limits::max(),
                                Limits::denorm_min(),
                                1e-310,
                                Limits::infinity(),
                                -Limits::infinity(),
                                Limits::quiet_NaN(),
                                Limits::signaling_NaN()}) {
        result.emplace_back(amount);
    }
    result.emplace_back(0.1F);
    result.emplace_back(std::numeric_limits<float>::quiet_NaN());
    for (const wchar_t* const text :
         {L"1.234,56", L"0,1", L"1E307", L"-2E304", L"1E400", L"1E-400", L"99999999,995",
          L"15/03/2024", L"15/03/2024 23:59:59", L"el 12 de mayo"}) {
        result.emplace_back(text);
    }
    return result;
}

/// The environment that the library is called in, and the one found after the last call.
Environment host_environment = default_environment;
Environment own_environment;
Environment found_after;

/// Sets the host's environment around the calls only.
class Calls {
 public:
    explicit Calls(const Environment& host) {
        host_environment = host;
        AroundCalls::before = [] {
            own_environment = environment();
            set_environment(host_environment);
        };
        AroundCalls::after = [] {
            found_after = environment();
            set_environment(own_environment);
        };
    }
    Calls(const Calls&) = delete;
    Calls& operator=(const Calls&) = delete;
    ~Calls() { AroundCalls::before = AroundCalls::after = nullptr; }
};

void expect_own(const Environment& expected, const std::string& what) {
    EXPECT_EQ(found_after.x87, expected.x87) << what << ", " << expected.name;
    EXPECT_EQ(found_after.sse, expected.sse) << what << ", " << expected.name;
}

class HostsFloatingPoint : public testing::Test {
 protected:
    HostsFloatingPoint() {
        // Read back, since the processor ignores some bits.
        const HostWith none(default_environment);
        for (const Environment& host : host_environments) {
            set_environment(host);
            const Environment read = environment();
            hosts_.push_back({host.name, read.x87, read.sse});
        }
    }

    const Workplace workplace_;
    const Unattended unattended_;
    const OwnLibrary& library_ = OwnLibrary::get();
    std::vector<Environment> hosts_;
};

/// Everything that a call returns, as text; empty for an argument that cannot be passed that way.
std::string outcome_of(Way way, IDispatch* object, const Member& member, const Variant& amount) {
    Unattended::set_seed(1);
    const long boxes = Unattended::boxes();
    try {
        const Answer answer = call_in(way, object, member.name, {amount});
        std::string text = std::to_string(answer.result) + ' ' + shown(answer.value);
        for (const Variant& argument : answer.arguments) text += ", " + shown(argument);
        if (Unattended::boxes() != boxes) text += ' ' + narrow(Unattended::last_box());
        return text;
    } catch (const Failure&) {
        return {};
    }
}

TEST_F(HostsFloatingPoint, ChangesNoResult) {
    const std::vector<Variant> arguments = amounts();
    std::size_t compared = 0;
    for (const Member& member : numeric) {
        const auto instance = library_.create(member.of_class);
        for (const Way way : {Way::values, Way::early}) {
            for (const Variant& argument : arguments) {
                const std::string what =
                    narrow(member.name) + std::string(", ") + name_of(way) + ", " + shown(argument);
                announce(what);
                const std::string expected = outcome_of(way, instance.get(), member, argument);
                if (expected.empty()) continue;
                for (const Environment& host : hosts_) {
                    announce(what + ", " + host.name);
                    const Calls calls(host);
                    EXPECT_EQ(outcome_of(way, instance.get(), member, argument), expected)
                        << what << ", " << host.name;
                    expect_own(host, what);
                    ++compared;
                }
            }
        }
    }
    EXPECT_GT(compared, 5'000U);
}

TEST_F(HostsFloatingPoint, KnownResults) {
    const auto literals = library_.create(L"clsCSQL");
    const auto general = library_.create(L"clsFGen");
    for (const Environment& host : hosts_) {
        const Calls calls(host);
        for (const Way way : every_way) {
            EXPECT_EQ(
                shown(call_in(way, literals.get(), L"Conv_Double4", {Variant(L"1.234,56")}).value),
                "texto 1234.5600")
                << host.name;
            EXPECT_EQ(shown(call_in(way, general.get(), L"redondeoa2", {Variant(2.675)}).value),
                      "texto 2,68")
                << host.name;
        }
    }
}

/// The bytes of the value, since a conversion would calculate.
std::string as_it_is(const Variant& value) {
    if (value.vt == VT_BSTR) return shown(value);
    // The date prompt adds the time of day when its field is emptied and filled again.
    if (value.vt == VT_DATE) return "day " + std::to_string(std::floor(value.date));
    std::int64_t content = 0;
    std::memcpy(&content, &value.llVal, plain_size(value.vt));
    return std::to_string(value.vt) + ' ' + std::to_string(content);
}

TEST_F(HostsFloatingPoint, IsRestoredAfterEveryMember) {
    SensibleHost host;
    std::size_t calls = 0;
    for (const OwnClass& of_class : library_.classes()) {
        for (const OwnMember& member : of_class.members) {
            std::string expected;
            for (const Environment& own : {default_environment, hosts_.front(), hosts_[4]}) {
                const std::string what = narrow(of_class.name) + '.' + narrow(member.name);
                announce(what + ", " + own.name);
                const auto instance = library_.create(of_class);
                const auto arguments = host.arguments(of_class, member);
                Unattended::set_seed(1);
                Variant result;
                HRESULT answer = E_UNEXPECTED;
                {
                    const HostWith in_force(own);
                    answer = call_member(instance.get(), member, arguments, &result);
                    found_after = environment();
                }
                expect_own(own, what);
                if (result.vt == VT_DISPATCH) result = Variant();
                const std::string text = std::to_string(answer) + ' ' + as_it_is(result);
                if (expected.empty()) expected = text;
                EXPECT_EQ(text, expected) << what << ", " << own.name;
                ++calls;
            }
        }
    }
    EXPECT_GT(calls, 300U);
}

constexpr std::array members_with_events{Member{L"clsFGen", L"Espera"},
                                         Member{L"clsFGen", L"LanzaVerificadorNIFyCCC"},
                                         Member{L"clsFGen", L"Verifica_NIF"},
                                         Member{L"clsMensajes", L"MsgFormA"},
                                         Member{L"clsFFechas", L"PideFecha"},
                                         Member{L"cgsFileOpR", L"ShowOpen"},
                                         Member{L"clsProfile", L"BrowseForFolder"}};

TEST_F(HostsFloatingPoint, IsInForceInEventsAndKeepsTheirChanges) {
    SensibleHost host;
    const Environment own = hosts_.front();
    const Environment changed = hosts_[2];
    for (const Member& outer : members_with_events) {
        announce(narrow(outer.name));
        const OwnClass& of_class = library_.named(outer.of_class);
        const OwnMember& member = of_class.member(outer.name, DISPATCH_METHOD);
        const auto instance = library_.create(of_class);
        const auto general = library_.create(L"clsFGen");
        const auto arguments = host.arguments(of_class, member);
        Environment in_event;
        std::string rounded;
        Unattended::set_seed(3);
        Unattended::on_next_event([&] {
            in_event = environment();
            const HostWith none(default_environment);
            rounded =
                shown(call_in(Way::early, general.get(), L"redondeoa2", {Variant(2.675)}).value);
        });
        {
            const HostWith in_force(own);
            EXPECT_EQ(call_member(instance.get(), member, arguments), S_OK);
            found_after = environment();
        }
        EXPECT_EQ(in_event.x87, own.x87) << narrow(outer.name);
        EXPECT_EQ(in_event.sse, own.sse) << narrow(outer.name);
        EXPECT_EQ(rounded, "texto 2,68");
        expect_own(own, narrow(outer.name));

        Unattended::set_seed(3);
        Unattended::on_next_event([&] { set_environment(changed); });
        {
            const HostWith in_force(own);
            EXPECT_EQ(call_member(instance.get(), member, arguments), S_OK);
            found_after = environment();
        }
        expect_own(changed, narrow(outer.name));
        Unattended::on_next_event({});
    }
}

TEST_F(HostsFloatingPoint, IsInForceInHostObjectsAndKeepsTheirChanges) {
    const Environment own = hosts_.front();
    const Environment changed = hosts_[2];
    const auto general = library_.create(L"clsFGen");
    for (const bool fails : {false, true}) {
        std::vector<Environment> seen;
        const auto field = ScriptedObject::make();
        field
            ->property(L"Text",
                       [&](const ScriptedObject::Arguments&) {
                           seen.push_back(environment());
                           set_environment(changed);
                           if (fails) throw failure(380, L"Valor no válido");
                           return Variant(L"algo");
                       })
            .default_member(L"Text");
        const Variant argument{ComPtr<IDispatch>(field.get())};
        for (const Way way : {Way::values, Way::early}) {
            seen.clear();
            const Calls calls(own);
            call_in(way, general.get(), L"Requerido", {argument});
            ASSERT_FALSE(seen.empty());
            EXPECT_EQ(seen.front().x87, own.x87);
            EXPECT_EQ(seen.front().sse, own.sse);
            expect_own(changed, name_of(way));
        }
    }
}

/// The exception flags of both units.
struct Noted {
    std::uint16_t x87 = 0;
    std::uint32_t sse = 0;
};

Noted noted() {
    Noted result;
    asm volatile("fnstsw %0\n\tstmxcsr %1" : "=m"(result.x87), "=m"(result.sse));
    result.x87 &= 0xFF;
    result.sse &= 0x3F;
    return result;
}

Noted before_call;
Noted after_call;

TEST_F(HostsFloatingPoint, KeepsItsExceptionFlags) {
    const auto general = library_.create(L"clsFGen");
    // No flag, then a pending division by zero.
    for (void (*const note)() :
         {+[] { set_environment(host_environments[3]); },
          +[] {
              const std::uint16_t raised = 0x037B;
              const std::uint32_t divided = 0x1F84;
              asm volatile("fld1\n\tfldz\n\tfdivrp\n\tfstp %%st(0)\n\tfldcw %0\n\tldmxcsr %1"
                           :
                           : "m"(raised), "m"(divided));
          }}) {
        static void (*noting)() = nullptr;
        noting = note;
        AroundCalls::before = [] {
            noting();
            before_call = noted();
        };
        AroundCalls::after = [] {
            after_call = noted();
            set_environment(default_environment);
        };
        for (const double amount : {2.675, 1e307, std::nan("")}) {
            call_in(Way::values, general.get(), L"redondeoa2", {Variant(amount)});
            EXPECT_EQ(after_call.x87, before_call.x87) << amount;
            EXPECT_EQ(after_call.sse, before_call.sse) << amount;
        }
    }
    EXPECT_EQ(before_call.x87 & 0x84, 0x84);
    AroundCalls::before = AroundCalls::after = nullptr;
}

}  // namespace
}  // namespace kovrel::test
