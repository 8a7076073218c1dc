// Events: the sinks of hosts, attached to a connection point.
#include <olectl.h>

#include <functional>
#include <gtest/gtest.h>
#include <ocidl.h>
#include <utility>

#include "automation/bstr.h"
#include "automation/object.h"
#include "tests/automation/sample_list.h"
#include "tests/support/late.h"

namespace kovrel::test {
namespace {

/// A sink whose reaction the test gives. Arguments come in reverse order.
class Sink final : public IDispatch {
 public:
    using Reaction = std::function<HRESULT(DISPPARAMS&)>;

    explicit Sink(Reaction reaction, const GUID& id = sample_events.id)
        : reaction_(std::move(reaction)), id_(id) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) override {
        *result = nullptr;
        if (!IsEqualIID(id, IID_IUnknown) && !IsEqualIID(id, id_)) return E_NOINTERFACE;
        *result = this;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override { return --references; }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* /*count*/) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT /*index*/, LCID /*locale*/,
                                          ITypeInfo** /*result*/) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID /*id*/, LPOLESTR* /*names*/, UINT /*count*/,
                                            LCID /*locale*/, DISPID* /*ids*/) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID /*id*/, LCID /*locale*/, WORD flags,
                                     DISPPARAMS* parameters, VARIANT* /*result*/,
                                     EXCEPINFO* exception, UINT* /*bad_argument*/) override {
        EXPECT_EQ(member, SampleList::adding);
        EXPECT_EQ(flags, DISPATCH_METHOD);
        ++calls;
        const HRESULT result = reaction_(*parameters);
        if (result == DISP_E_EXCEPTION) exception->bstrDescription = SysAllocString(L"falla");
        return result;
    }

    int calls = 0;
    ULONG references = 1;

 private:
    const Reaction reaction_;
    const GUID id_;
};

class Events : public testing::Test {
 protected:
    ComPtr<IConnectionPoint> point() {
        ComPtr<IConnectionPoint> found;
        const auto container = list_.query<IConnectionPointContainer>();
        EXPECT_EQ(container->FindConnectionPoint(sample_events.id, found.put()), S_OK);
        return found;
    }

    DWORD attach(Sink& sink) {
        DWORD cookie = 0;
        EXPECT_EQ(point()->Advise(&sink, &cookie), S_OK);
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
    Sink sink([](DISPPARAMS& given) {
        EXPECT_EQ(given.cArgs, 3U);
        EXPECT_EQ(given.cNamedArgs, 0U);
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
    EXPECT_EQ(sink.calls, 1);
    EXPECT_EQ(sink.references, 1U);
    EXPECT_EQ(point()->Unadvise(cookie), CONNECT_E_NOCONNECTION);
}

TEST_F(Events, AFailingSinkDoesNotKeepThemFromTheNext) {
    Sink failing([](DISPPARAMS&) { return DISP_E_EXCEPTION; });
    Sink refusing([](DISPPARAMS& given) {
        *given.rgvarg[0].pboolVal = VARIANT_FALSE;
        return S_OK;
    });
    attach(failing);
    attach(refusing);
    EXPECT_FALSE(add(L"uno"));
    EXPECT_EQ(failing.calls, 1);
    EXPECT_EQ(refusing.calls, 1);
    EXPECT_EQ(get(list_.get(), L"Count").value.to_int32(), 0);
    list_ = {};
    EXPECT_EQ(failing.references, 1U);
    EXPECT_EQ(refusing.references, 1U);
}

TEST_F(Events, ASinkThatIsDetachedMeanwhileIsNotCalled) {
    DWORD second = 0;
    Sink detaching([&](DISPPARAMS&) { return point()->Unadvise(second); });
    Sink detached([](DISPPARAMS&) { return S_OK; });
    attach(detaching);
    second = attach(detached);
    EXPECT_TRUE(add(L"uno"));
    EXPECT_EQ(detaching.calls, 1);
    EXPECT_EQ(detached.calls, 0);
}

TEST_F(Events, ASinkMayLetGoOfTheInstance) {
    const ULONG before = live_objects();
    Sink releasing([&](DISPPARAMS&) {
        list_ = {};
        return S_OK;
    });
    attach(releasing);
    IDispatch* const list = list_.get();
    EXPECT_EQ(call(list, L"Agrega", {Variant(L"uno")}).result, S_OK);
    EXPECT_EQ(releasing.calls, 1);
    EXPECT_EQ(releasing.references, 1U);
    EXPECT_EQ(live_objects(), before - 1);
}

TEST_F(Events, SinksThatAnswerToIDispatchAloneAreTaken) {
    Sink plain([](DISPPARAMS&) { return S_OK; }, IID_IDispatch);
    attach(plain);
    EXPECT_TRUE(add(L"uno"));
    EXPECT_EQ(plain.calls, 1);
    Sink other([](DISPPARAMS&) { return S_OK; }, IID_IPersist);
    DWORD cookie = 7;
    EXPECT_EQ(point()->Advise(&other, &cookie), CONNECT_E_CANNOTCONNECT);
    EXPECT_EQ(cookie, 0U);
    EXPECT_EQ(point()->Advise(nullptr, &cookie), E_POINTER);
    EXPECT_EQ(point()->Advise(&other, nullptr), E_POINTER);
    EXPECT_EQ(other.references, 1U);
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
    Sink first([](DISPPARAMS&) { return S_OK; });
    Sink second([](DISPPARAMS&) { return S_OK; });
    attach(first);
    const DWORD cookie = attach(second);
    ComPtr<IEnumConnections> connections;
    ASSERT_EQ(point()->EnumConnections(connections.put()), S_OK);
    CONNECTDATA found[3] = {};
    ULONG count = 0;
    EXPECT_EQ(connections->Next(3, found, &count), S_FALSE);
    ASSERT_EQ(count, 2U);
    EXPECT_EQ(found[0].pUnk, &first);
    EXPECT_EQ(found[1].pUnk, &second);
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
