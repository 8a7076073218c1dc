// clsAvisos: its events, which show, answer and cancel.
#include <functional>

#include "tests/automation/avisos.h"
#include "tests/support/event_sink.h"
#include "tests/support/test_folder.h"

namespace kovrel::test {
namespace {

/// The arguments of the event Aviso.
struct AvisoGiven {
    explicit AvisoGiven(const DISPPARAMS& given)
        : aviso(given.rgvarg[2].pdispVal),
          answer(*given.rgvarg[1].plVal),
          is_shown(*given.rgvarg[0].pboolVal) {}
    ComPtr<IDispatch> aviso;
    LONG& answer;
    VARIANT_BOOL& is_shown;
};

class AvisosEvents : public Avisos {
 protected:
    static ComPtr<EventSink> sink(std::function<void(AvisoGiven&)> reaction) {
        return EventSink::make(Kovrel::DIID__clsAvisosEvents,
                               [reaction = std::move(reaction)](DISPID event, DISPPARAMS& given) {
                                   EXPECT_EQ(event, Kovrel::_clsAvisosEvents::id_Aviso);
                                   EXPECT_EQ(given.cArgs, 3U);
                                   EXPECT_EQ(given.rgvarg[2].vt, VT_DISPATCH);
                                   EXPECT_EQ(given.rgvarg[1].vt, VT_BYREF | VT_I4);
                                   EXPECT_EQ(given.rgvarg[0].vt, VT_BYREF | VT_BOOL);
                                   AvisoGiven arguments(given);
                                   reaction(arguments);
                                   return S_OK;
                               });
    }
    DWORD listen(const ComPtr<EventSink>& sink) {
        const DWORD cookie = attach(avisos_.get(), Kovrel::DIID__clsAvisosEvents, *sink.get());
        EXPECT_NE(cookie, 0U);
        return cookie;
    }
};

TEST_F(AvisosEvents, ComeBeforeTheBoxAndLetItThrough) {
    const auto listener = sink([](AvisoGiven& given) {
        EXPECT_EQ(line_of(given.aviso), noted_wrong_nif);
        EXPECT_EQ(given.answer, IDOK);
        EXPECT_EQ(given.is_shown, VARIANT_TRUE);
        EXPECT_TRUE(top_level_windows({L"#32770", {}, GetCurrentProcessId()}).empty());
    });
    listen(listener);
    const BoxWatcher boxes({answer(IDOK)});
    wrong_nif();
    EXPECT_EQ(listener->calls, 1);
    EXPECT_EQ(last_line(), noted_wrong_nif);
}

TEST_F(AvisosEvents, MayAnswerInsteadOfTheBox) {
    const auto listener = sink([](AvisoGiven& given) {
        given.answer = IDNO;
        given.is_shown = VARIANT_FALSE;
    });
    listen(listener);
    const BoxWatcher no_box;
    EXPECT_EQ(ask(), IDNO);
    EXPECT_EQ(get(last().get(), L"Respuesta").value.to_int32(), IDNO);
}

TEST_F(AvisosEvents, AnAnswerThatTheBoxDoesNotHaveIsNotTaken) {
    const auto listener = sink([](AvisoGiven& given) {
        given.answer = IDCANCEL;
        given.is_shown = VARIANT_FALSE;
    });
    listen(listener);
    const BoxWatcher no_box;
    EXPECT_EQ(ask(), IDYES);
    EXPECT_EQ(get(last().get(), L"Respuesta").value.to_int32(), IDYES);
}

TEST_F(AvisosEvents, AloneNothingIsNoted) {
    set_mode(event_mode);
    const auto listener = sink([](AvisoGiven& given) {
        EXPECT_EQ(given.is_shown, VARIANT_FALSE);
        given.answer = IDNO;
    });
    const DWORD cookie = listen(listener);
    {
        const BoxWatcher no_box;
        EXPECT_EQ(ask(), IDNO);
        EXPECT_EQ(listener->calls, 1);
        EXPECT_EQ(count(), 0);
        connection_point(avisos_.get(), Kovrel::DIID__clsAvisosEvents)->Unadvise(cookie);
        EXPECT_EQ(ask(), IDYES);
    }
    const auto showing = sink([](AvisoGiven& given) { given.is_shown = VARIANT_TRUE; });
    listen(showing);
    const BoxWatcher boxes({answer(IDNO)});
    EXPECT_EQ(ask(), IDNO);
}

TEST_F(AvisosEvents, SilentlyShowNothing) {
    set_mode(silent_mode);
    const auto listener = sink([](AvisoGiven& given) {
        given.is_shown = VARIANT_TRUE;
        given.answer = IDNO;
    });
    listen(listener);
    const BoxWatcher no_box;
    EXPECT_EQ(ask(), IDNO);
    EXPECT_EQ(count(), 1);
}

TEST_F(AvisosEvents, WhatAHandlerSaysIsNoEvent) {
    set_mode(silent_mode);
    auto listener =
        sink([&](AvisoGiven& /*given*/) { call(messages_.get(), L"MsjFechaIncorrecta"); });
    listen(listener);
    const BoxWatcher no_box;
    EXPECT_EQ(wrong_nif(), L"12345678Z");
    EXPECT_EQ(listener->calls, 1);
    EXPECT_EQ(count(), 2);
    EXPECT_EQ(wrong_nif(), L"12345678Z");
    EXPECT_EQ(listener->calls, 2);
}

TEST_F(AvisosEvents, CallsWithinACallAreToldApart) {
    set_mode(silent_mode);
    const auto listener =
        sink([&](AvisoGiven& /*given*/) { call(messages_.get(), L"MsjFechaIncorrecta"); });
    listen(listener);
    const BoxWatcher no_box;
    const TestFolder folder;
    call(create(L"Kovrel.clsProfile").get(), L"ExisteCarpeta",
         {Variant(folder / L"nueva"), Variant(true), Variant(true)});
    std::vector<std::wstring> members;
    for (int place = 1; place <= count(); ++place) {
        const auto aviso = call(avisos_.get(), L"Item", {Variant(place)}).value.to_object();
        members.push_back(get(aviso.get(), L"Miembro").value.to_text());
    }
    const std::wstring outer = L"clsProfile.ExisteCarpeta";
    const std::wstring inner = L"clsMensajes.MsjFechaIncorrecta";
    EXPECT_EQ(members, (std::vector<std::wstring>{outer, inner, outer, inner}));
}

TEST_F(AvisosEvents, AHandlerMayLetGoOfItsAvisos) {
    set_mode(silent_mode);
    const auto listener = sink([&](AvisoGiven& given) {
        avisos_ = {};
        given.answer = IDNO;
    });
    listen(listener);
    {
        const BoxWatcher no_box;
        EXPECT_EQ(ask(), IDNO);
    }
    EXPECT_EQ(listener->references, 1U);
    const BoxWatcher boxes({answer(IDYES)});
    EXPECT_EQ(ask(), IDYES);
    EXPECT_EQ(listener->calls, 1);
}

TEST_F(AvisosEvents, AHandlerThatFailsHarmsNobody) {
    set_mode(silent_mode);
    const auto failing = EventSink::make(Kovrel::DIID__clsAvisosEvents,
                                         [](DISPID, DISPPARAMS&) { return DISP_E_EXCEPTION; });
    const auto listener = sink([](AvisoGiven& given) { given.answer = IDNO; });
    listen(failing);
    listen(listener);
    const BoxWatcher no_box;
    EXPECT_EQ(ask(), IDNO);
    EXPECT_EQ(failing->calls, 1);
}

TEST_F(AvisosEvents, TheModeMayChangeInAHandler) {
    const auto listener = sink([&](AvisoGiven& given) {
        set_mode(silent_mode);
        given.is_shown = VARIANT_TRUE;
    });
    listen(listener);
    const BoxWatcher no_box;
    EXPECT_EQ(ask(), IDYES);
}

TEST_F(AvisosEvents, TellProgressWhichTheyMayCancel) {
    set_mode(silent_mode);
    std::vector<std::string> told;
    const auto listener =
        EventSink::make(Kovrel::DIID__clsAvisosEvents, [&](DISPID event, DISPPARAMS& given) {
            if (event == Kovrel::_clsAvisosEvents::id_Aviso) {
                told.push_back(line_of(AvisoGiven(given).aviso));
                return S_OK;
            }
            EXPECT_EQ(event, Kovrel::_clsAvisosEvents::id_Progreso);
            EXPECT_EQ(given.rgvarg[2].vt, VT_I4);
            told.push_back(narrow(std::to_wstring(given.rgvarg[2].lVal) + L" " +
                                  std::wstring(text_of(given.rgvarg[1].bstrVal))));
            *given.rgvarg[0].pboolVal = given.rgvarg[2].lVal >= 50 ? VARIANT_TRUE : VARIANT_FALSE;
            return S_OK;
        });
    listen(listener);
    const BoxWatcher no_box;
    call(general_.get(), L"BarraProgresoInicia", {Variant(L"Copia"), Variant(L"Empieza")});
    const auto is_canceled_after = [&](int percentage) {
        call(general_.get(), L"BarraProgresoActualiza", {Variant(percentage), Variant(L"va")});
        return call(general_.get(), L"BarraProgresoCancelada").value.to_bool();
    };
    EXPECT_FALSE(is_canceled_after(49));
    EXPECT_TRUE(is_canceled_after(50));
    EXPECT_TRUE(is_canceled_after(51));
    EXPECT_EQ(told, (std::vector<std::string>{"4|clsFGen.BarraProgresoInicia|Copia|Empieza|0|1|0",
                                              "49 va", "50 va"}));
}

TEST_F(AvisosEvents, CancelAWindowThatIsShown) {
    const auto listener =
        EventSink::make(Kovrel::DIID__clsAvisosEvents, [](DISPID event, DISPPARAMS& given) {
            if (event == Kovrel::_clsAvisosEvents::id_Progreso) {
                *given.rgvarg[0].pboolVal = VARIANT_TRUE;
            }
            return S_OK;
        });
    listen(listener);
    call(general_.get(), L"BarraProgresoInicia", {Variant(L"Copia"), Variant(L"Empieza")});
    const WindowQuery window{L"Kovrel.frmBarraProgreso", {}, GetCurrentProcessId()};
    EXPECT_EQ(top_level_windows(window).size(), 1U);
    call(general_.get(), L"BarraProgresoActualiza", {Variant(5), Variant(L"va")});
    EXPECT_TRUE(call(general_.get(), L"BarraProgresoCancelada").value.to_bool());
    EXPECT_TRUE(top_level_windows(window).empty());
}

TEST_F(AvisosEvents, NameTheirInterface) {
    ComPtr<IProvideClassInfo2> provider;
    ASSERT_EQ(avisos_->QueryInterface(IID_IProvideClassInfo2, provider.put_void()), S_OK);
    GUID id{};
    EXPECT_EQ(provider->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &id), S_OK);
    EXPECT_TRUE(IsEqualGUID(id, Kovrel::DIID__clsAvisosEvents));
    ComPtr<ITypeInfo> described;
    ASSERT_EQ(provider->GetClassInfo(described.put()), S_OK);
    TYPEATTR* attributes = nullptr;
    described->GetTypeAttr(&attributes);
    EXPECT_EQ(attributes->typekind, TKIND_COCLASS);
    ASSERT_EQ(attributes->cImplTypes, 2);
    described->ReleaseTypeAttr(attributes);
    INT flags = 0;
    described->GetImplTypeFlags(1, &flags);
    EXPECT_EQ(flags, IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE);
    // Classes without events have none.
    EXPECT_FALSE(connection_point(general_.get(), Kovrel::DIID__clsAvisosEvents));
}

}  // namespace
}  // namespace kovrel::test
