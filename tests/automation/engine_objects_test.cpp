// Instances and the host's objects that they work with.
#include <gtest/gtest.h>

#include "automation/host_object.h"
#include "automation/object.h"
#include "runtime/failure.h"
#include "tests/automation/sample.h"
#include "tests/support/failure_of.h"
#include "tests/support/late.h"

namespace kovrel::test {
namespace {

TEST(Objects, AreCounted) {
    const ULONG before = live_objects();
    {
        const auto sample = create_instance<Sample>();
        EXPECT_EQ(live_objects(), before + 1);
        const auto again = sample.query<IDispatch>();
        EXPECT_EQ(live_objects(), before + 1);
    }
    EXPECT_EQ(live_objects(), before);
}

TEST(Objects, AnswerTheirInterfacesAndNoOther) {
    const auto sample = create_instance<Sample>();
    for (const IID& id : {IID_IUnknown, IID_IDispatch, Sample::class_info.interface_id,
                          IID_ISupportErrorInfo, IID_IProvideClassInfo}) {
        ComPtr<IUnknown> found;
        EXPECT_EQ(sample->QueryInterface(id, found.put_void()), S_OK);
    }
    ComPtr<IUnknown> none;
    EXPECT_EQ(sample->QueryInterface(IID_IPersist, none.put_void()), E_NOINTERFACE);
    EXPECT_FALSE(none);
    EXPECT_EQ(sample->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
    // The identity of an object is its IUnknown, whichever interface it is asked through.
    ComPtr<IUnknown> direct;
    ComPtr<IUnknown> through_support;
    sample->QueryInterface(IID_IUnknown, direct.put_void());
    sample.query<ISupportErrorInfo>()->QueryInterface(IID_IUnknown, through_support.put_void());
    EXPECT_EQ(direct.get(), through_support.get());
}

TEST(HostObjects, ReadWriteAndCall) {
    const auto sample = create_instance<Sample>();
    const HostObject object(sample);
    object.put(L"Nombre", Variant(L"Ana"));
    EXPECT_EQ(object.get(L"NOMBRE").to_text(), L"Ana");
    EXPECT_EQ(object.call(L"Resta", {Variant(3), Variant(2)}).to_text(), L"3-2-7");
    object.put_object(L"Objeto", Variant(sample));
    EXPECT_EQ(object.get(L"Objeto").pdispVal, sample.get());
    object.put_object(L"Objeto", Variant(ComPtr<IDispatch>()));
    EXPECT_TRUE(object.has(L"Añade"));
    EXPECT_FALSE(object.has(L"Quita"));
}

TEST(HostObjects, FailuresKeepNumberAndDescription) {
    const auto sample = create_instance<Sample>();
    const HostObject object(sample);
    EXPECT_EQ(failure_of([&] { object.call(L"NoExiste"); }), 438);
    EXPECT_EQ(failure_of([&] { object.put(L"Doble", Variant(1)); }), 438);
    EXPECT_EQ(failure_of([&] { object.call(L"Falla", {Variant(53), Variant(1)}); }), 53);
    EXPECT_EQ(failure_of([&] { object.call(L"Falla", {Variant(-5), Variant(1)}); }), -5);
    EXPECT_EQ(failure_of([&] { object.call(L"Doble", {Variant(L"x")}); }), 13);
    EXPECT_EQ(failure_of([&] { object.call(L"Doble"); }), 450);
    EXPECT_EQ(failure_of([&] { (void)object.default_value(); }), 438);
    EXPECT_EQ(failure_of([] { const HostObject none(ComPtr<IDispatch>{}); }), 91);
    EXPECT_EQ(failure_of([] { const HostObject none(Variant(5)); }), 424);
    try {
        object.call(L"Falla", {Variant(-5), Variant(1)});
        FAIL();
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.description(), L"Descripción del anfitrión");
    }
}

TEST(Variants, ConvertOrFailWithTheRightNumber) {
    EXPECT_EQ(failure_of([] { (void)Variant::null().to_text(); }), 94);
    EXPECT_EQ(failure_of([] { (void)Variant(L"x").to_double(); }), 13);
    EXPECT_EQ(failure_of([] { (void)Variant(1e10).to_int32(); }), 6);
    EXPECT_EQ(Variant().to_text(), L"");
    EXPECT_EQ(Variant::null().to_text_or_empty(), L"");
}

TEST(Variants, NumericTest) {
    EXPECT_TRUE(Variant().is_numeric());
    EXPECT_TRUE(Variant(true).is_numeric());
    EXPECT_TRUE(Variant(1.5).is_numeric());
    EXPECT_TRUE(Variant(L"12").is_numeric());
    EXPECT_FALSE(Variant(L"").is_numeric());
    EXPECT_FALSE(Variant(L"doce").is_numeric());
    EXPECT_FALSE(Variant::null().is_numeric());
    EXPECT_FALSE(Variant::missing().is_numeric());
    EXPECT_FALSE(Variant(Date{1}).is_numeric());
}

TEST(Variants, DateTest) {
    EXPECT_TRUE(Variant(Date{1}).is_date());
    EXPECT_TRUE(Variant(L"15/03/2024").is_date());
    EXPECT_FALSE(Variant(L"").is_date());
    EXPECT_FALSE(Variant(L"hoy").is_date());
    EXPECT_FALSE(Variant(5).is_date());
    EXPECT_FALSE(Variant::null().is_date());
}

}  // namespace
}  // namespace kovrel::test
