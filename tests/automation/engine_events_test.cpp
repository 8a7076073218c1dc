// Events: the sinks of hosts, attached to a connection point.
#include <olectl.h>

#include <gtest/gtest.h>
#include <ocidl.h>

#include "automation/bstr.h"
#include "automation/object.h"
#include "tests/automation/sample_list.h"
#include "tests/support/event_sink.h"
#include "tests/support/late.h"

namespace kovrel::test {
namespace {

class Events : public testing::Test {
 protected:
    ComPtr<IConnectionPoint> point() { return connection_point(list_.get(), sample_events.id); }

    DWORD attach(const ComPtr<EventSink>& sink) {
        const DWORD cookie = test::attach(list_.get(), sample_events.id, *sink.get());
        EXPECT_NE(cookie, 0U);
        return cookie;
    }

    bool add(const wchar_t* text) {
        return call(list_.get(), L"Agrega", {Variant(text)}).value.to_bool();
    }
    [[nodiscard]] std::wstring item(int place) {
        return call(list_.get(), L"Item", {Variant(place)}).value.to_text();
    }

    ComPtr<IDispatch> list_ = create_instance<SampleList>();
};

TEST_F(Events, ReachASinkWithTheirArgumentsWhichItMayChange) {
    const auto sink = EventSink::make(sample_events.id, [](DISPID event, DISPPARAMS& given) {
        EXPECT_EQ(event, SampleList::adding);
        EXPECT_EQ(given.cArgs, 3U);
        EXPECT_EQ(text_of(given.rgvarg[2].bstrVal), L"uno");
        EXPECT_EQ(given.rgvarg[1].vt, VT_BYREF | VT_BSTR);
        EXPECT_EQ(given.rgvarg[0].vt, VT_BYREF | VT_BOOL);
        SysReAllocString(given.rgvarg[1].pbstrVal, L"otro");
        return S_OK;
    });
    const DWORD cookie = attach(sink);
    EXPECT_TRUE(add(L"uno"));
    EXPECT_EQ(item(1), L"otro");
    EXPECT_EQ(point()->Unadvise(cookie), S_OK);
    EXPECT_TRUE(add(L"dos"));
    EXPECT_EQ(item(2), L"dos");
    EXPECT_EQ(sink->calls, 1);
    EXPECT_EQ(sink->references, 1U);
    EXPECT_EQ(point()->Unadvise(cookie), CONNECT_E_NOCONNECTION);
}

TEST_F(Events, AFailingSinkDoesNotKeepThemFromTheNext) {
    const auto failing =
        EventSink::make(sample_events.id, [](DISPID, DISPPARAMS&) { return DISP_E_EXCEPTION; });
    const auto refusing = EventSink::make(sample_events.id, [](DISPID, DISPPARAMS& given) {
        *given.rgvarg[0].pboolVal = VARIANT_FALSE;
        return S_OK;
    });
    attach(failing);
    attach(refusing);
    EXPECT_FALSE(add(L"uno"));
    EXPECT_EQ(failing->calls, 1);
    EXPECT_EQ(refusing->calls, 1);
    EXPECT_EQ(get(list_.get(), L"Count").value.to_int32(), 0);
    list_ = {};
    EXPECT_EQ(failing->references, 1U);
    EXPECT_EQ(refusing->references, 1U);
}

TEST_F(Events, ASinkThatIsDetachedMeanwhileIsNotCalled) {
    DWORD second = 0;
    const auto detaching = EventSink::make(
        sample_events.id, [&](DISPID, DISPPARAMS&) { return point()->Unadvise(second); });
    const auto detached =
        EventSink::make(sample_events.id, [](DISPID, DISPPARAMS&) { return S_OK; });
    attach(detaching);
    second = attach(detached);
    EXPECT_TRUE(add(L"uno"));
    EXPECT_EQ(detaching->calls, 1);
    EXPECT_EQ(detached->calls, 0);
}

TEST_F(Events, ASinkMayLetGoOfTheInstance) {
    const ULONG before = live_objects();
    const auto releasing = EventSink::make(sample_events.id, [&](DISPID, DISPPARAMS&) {
        list_ = {};
        return S_OK;
    });
    attach(releasing);
    IDispatch* const list = list_.get();
    EXPECT_EQ(call(list, L"Agrega", {Variant(L"uno")}).result, S_OK);
    EXPECT_EQ(releasing->calls, 1);
    EXPECT_EQ(releasing->references, 1U);
    EXPECT_EQ(live_objects(), before - 1);
}

TEST_F(Events, SinksThatAnswerToIDispatchAloneAreTaken) {
    const auto plain = EventSink::make(IID_IDispatch, [](DISPID, DISPPARAMS&) { return S_OK; });
    attach(plain);
    EXPECT_TRUE(add(L"uno"));
    EXPECT_EQ(plain->calls, 1);
    const auto other = EventSink::make(IID_IPersist, [](DISPID, DISPPARAMS&) { return S_OK; });
    DWORD cookie = 7;
    EXPECT_EQ(point()->Advise(other.get(), &cookie), CONNECT_E_CANNOTCONNECT);
    EXPECT_EQ(cookie, 0U);
    EXPECT_EQ(point()->Advise(nullptr, &cookie), E_POINTER);
    EXPECT_EQ(point()->Advise(other.get(), nullptr), E_POINTER);
    EXPECT_EQ(other->references, 1U);
}

TEST_F(Events, TheContainerHasOnePoint) {
    const auto container = list_.query<IConnectionPointContainer>();
    ComPtr<IConnectionPoint> none;
    EXPECT_EQ(container->FindConnectionPoint(IID_IDispatch, none.put()), CONNECT_E_NOCONNECTION);
    EXPECT_EQ(container->FindConnectionPoint(sample_events.id, nullptr), E_POINTER);
    ComPtr<IEnumConnectionPoints> points;
    ASSERT_EQ(container->EnumConnectionPoints(points.put()), S_OK);
    ComPtr<IConnectionPoint> only;
    EXPECT_EQ(points->Next(1, only.put(), nullptr), S_OK);
    EXPECT_EQ(only.get(), point().get());
    EXPECT_EQ(points->Next(1, none.put(), nullptr), S_FALSE);
    IID id{};
    EXPECT_EQ(only->GetConnectionInterface(&id), S_OK);
    EXPECT_TRUE(IsEqualIID(id, sample_events.id));
    ComPtr<IConnectionPointContainer> back;
    EXPECT_EQ(only->GetConnectionPointContainer(back.put()), S_OK);
    EXPECT_EQ(back.query<IUnknown>().get(), list_.query<IUnknown>().get());
}

TEST_F(Events, TheConnectionsAreListed) {
    const auto first = EventSink::make(sample_events.id, [](DISPID, DISPPARAMS&) { return S_OK; });
    const auto second = EventSink::make(sample_events.id, [](DISPID, DISPPARAMS&) { return S_OK; });
    attach(first);
    const DWORD cookie = attach(second);
    ComPtr<IEnumConnections> connections;
    ASSERT_EQ(point()->EnumConnections(connections.put()), S_OK);
    CONNECTDATA found[3] = {};
    ULONG count = 0;
    EXPECT_EQ(connections->Next(3, found, &count), S_FALSE);
    ASSERT_EQ(count, 2U);
    EXPECT_EQ(found[0].pUnk, first.get());
    EXPECT_EQ(found[1].pUnk, second.get());
    EXPECT_EQ(found[1].dwCookie, cookie);
    for (ULONG index = 0; index < count; ++index) found[index].pUnk->Release();
}

TEST_F(Events, TheInstanceNamesTheirInterface) {
    const auto provider = list_.query<IProvideClassInfo2>();
    ASSERT_TRUE(provider);
    GUID id{};
    EXPECT_EQ(provider->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &id), S_OK);
    EXPECT_TRUE(IsEqualGUID(id, sample_events.id));
    EXPECT_EQ(provider->GetGUID(7, &id), E_INVALIDARG);
    EXPECT_EQ(provider->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, nullptr), E_POINTER);
}

}  // namespace
}  // namespace kovrel::test
