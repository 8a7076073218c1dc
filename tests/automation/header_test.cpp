// Calls members of every class of version 1.0 through the generated header, and (in the program
// version_1_0_tests) through the header that came with that version.
#include <cmath>
#include <gtest/gtest.h>
#include <kovrel.h>

#include "automation/safe_array.h"
#include "tests/support/box_watcher.h"
#include "tests/support/late.h"
#include "tests/support/scripted_object.h"
#include "tests/support/test_folder.h"

namespace kovrel::test {
namespace {

template <class Class, class Interface>
ComPtr<Interface> make() {
    ComPtr<Interface> instance;
    EXPECT_EQ(CoCreateInstance(__uuidof(Class), nullptr, CLSCTX_INPROC_SERVER, __uuidof(Interface),
                               instance.put_void()),
              S_OK);
    return instance;
}

/// A text variable of a caller's: empty for a result, or with what a member is to read.
struct Text {
    Text() = default;
    explicit Text(std::wstring_view text) : raw(new_bstr(text)) {}
    Text(const Text&) = delete;
    Text& operator=(const Text&) = delete;
    ~Text() { SysFreeString(raw); }

    [[nodiscard]] std::string read() const { return narrow(std::wstring(text_of(raw))); }

    BSTR raw = nullptr;
};

std::string last_description() {
    ComPtr<IErrorInfo> info;
    Text description;
    if (GetErrorInfo(0, info.put()) == S_OK) info->GetDescription(&description.raw);
    return description.read();
}

constexpr HRESULT failure_number(int number) {
    return MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, number);
}

TEST(EarlyCalls, ClsFFechas) {
    const auto calendar = make<Kovrel::clsFFechas, Kovrel::_clsFFechas>();
    ASSERT_TRUE(calendar);
    Text name(L"Facturas");
    EXPECT_EQ(calendar->put_AppOrigen(&name.raw), S_OK);
    Text read;
    EXPECT_EQ(calendar->get_AppOrigen(&read.raw), S_OK);
    EXPECT_EQ(read.read(), "Facturas");

    short year = 24;
    Text four;
    EXPECT_EQ(calendar->ConvierteAñoA4(&year, &four.raw), S_OK);
    EXPECT_EQ(four.read(), "2024");
    EXPECT_EQ(year, 2024);

    short month = 2;
    short days = 0;
    EXPECT_EQ(calendar->Dias_Mes(&month, &year, &days), S_OK);
    EXPECT_EQ(days, 29);
    VARIANT_BOOL leap = VARIANT_FALSE;
    EXPECT_EQ(calendar->EsBisiesto(2024, &leap), S_OK);
    EXPECT_EQ(leap, VARIANT_TRUE);

    constexpr DATE friday = 45366;  // 15 March 2024
    DATE date = friday;
    DATE monday = 0;
    EXPECT_EQ(calendar->PrimerDiaSemana(&date, &monday), S_OK);
    EXPECT_EQ(monday, friday - 4);
    short week = 0;
    EXPECT_EQ(calendar->SemanaEnElMes(friday, &week), S_OK);
    EXPECT_EQ(week, 3);

    BYTE march = 3;
    DATE last = 0;
    EXPECT_EQ(calendar->ultimodia_mesanterior(&march, &year, &last), S_OK);
    EXPECT_EQ(last, friday - 15);
    Text month_name;
    EXPECT_EQ(calendar->mes_letra(&march, &month_name.raw), S_OK);
    EXPECT_EQ(month_name.read(), "MARZO");

    SYSTEMTIME now{};
    GetLocalTime(&now);
    short this_month = 0;
    short this_year = 0;
    DATE first = 0;
    EXPECT_EQ(calendar->PrimerDiaMesActual(&this_month, &this_year, &first), S_OK);
    EXPECT_EQ(this_month, now.wMonth);
    EXPECT_EQ(this_year, now.wYear);

    short no_month = -1;
    EXPECT_EQ(calendar->PrimerDiaMesActual(&no_month, &year, &first), failure_number(13));
    EXPECT_EQ(last_description(), "No coinciden los tipos");
    EXPECT_EQ(calendar->PrimerDiaMesActual(nullptr, &year, &first), E_POINTER);
}

TEST(EarlyCalls, ClsCSql) {
    const auto literals = make<Kovrel::clsCSQL, Kovrel::_clsCSQL>();
    ASSERT_TRUE(literals);
    const auto expect_text = [](auto&& call, const char* expected) {
        Text text;
        EXPECT_EQ(call(&text.raw), S_OK);
        EXPECT_EQ(text.read(), expected);
    };
    Variant number(-0.456);
    expect_text([&](BSTR* text) { return literals->Conv_Double(&number, text); }, "-0.46");
    expect_text([&](BSTR* text) { return literals->Conv_Double4(&number, text); }, "-0.4560");
    double plain = 1234.5;
    expect_text([&](BSTR* text) { return literals->Conv_DoubleDeDouble(&plain, text); }, "1234.50");
    Text typed(L"15/03/2024");
    expect_text([&](BSTR* text) { return literals->Conv_Date(&typed.raw, text); }, "#03/15/2024#");
    DATE date = 45366.75;
    expect_text([&](BSTR* text) { return literals->Conv_Date_Date(&date, text); }, "#03/15/2024#");
    Text name(L"Núñez");
    expect_text([&](BSTR* text) { return literals->Conv_String(&name.raw, text); }, "'Núñez'");
    VARIANT_BOOL yes = VARIANT_TRUE;
    short value = 0;
    EXPECT_EQ(literals->Conv_Boolean(&yes, &value), S_OK);
    EXPECT_EQ(value, -1);
}

TEST(EarlyCalls, CgsFileOpR) {
    const auto files = make<Kovrel::cgsFileOpR, Kovrel::_cgsFileOpR>();
    ASSERT_TRUE(files);
    const auto flags =
        static_cast<Kovrel::eOFN>(Kovrel::OFN_EXPLORER | Kovrel::OFN_FORCESHOWHIDDEN);
    EXPECT_EQ(files->put_Flags(flags), S_OK);
    EXPECT_EQ(files->put_hWnd(0x12345678), S_OK);
    EXPECT_EQ(files->put_CancelError(VARIANT_TRUE), S_OK);
    EXPECT_EQ(files->put_InitDir(Bstr(L"C:\\Año").get()), S_OK);
    EXPECT_EQ(files->put_FilterIndex(-3), S_OK);
    auto read_flags = Kovrel::eOFN{};
    long window = 0;
    long index = 0;
    VARIANT_BOOL cancel_error = VARIANT_FALSE;
    Text folder;
    EXPECT_EQ(files->get_Flags(&read_flags), S_OK);
    EXPECT_EQ(files->get_hWnd(&window), S_OK);
    EXPECT_EQ(files->get_CancelError(&cancel_error), S_OK);
    EXPECT_EQ(files->get_InitDir(&folder.raw), S_OK);
    EXPECT_EQ(files->get_FilterIndex(&index), S_OK);
    EXPECT_EQ(read_flags, 0x10080000);
    EXPECT_EQ(window, 0x12345678);
    EXPECT_EQ(cancel_error, VARIANT_TRUE);
    EXPECT_EQ(folder.read(), "C:\\Año");
    EXPECT_EQ(index, -3);

    Text path;
    Variant name;
    Variant ending;
    EXPECT_EQ(files->SplitPath(Bstr(L"C:\\a\\b.c").get(), &path.raw, &name, &ending), S_OK);
    EXPECT_EQ(path.read(), "C:\\a");
    EXPECT_EQ(narrow(name.to_text()), "b.c");
    EXPECT_EQ(narrow(ending.to_text()), "c");

    Text digits;
    EXPECT_EQ(files->QuitarCaracterEx(Bstr(L"12.345.678").get(), Bstr(L".").get(),
                                      Variant::missing(), &digits.raw),
              S_OK);
    EXPECT_EQ(digits.read(), "12345678");

    const TestFolder settings;
    const Bstr file(settings / L"a.ini");
    const Bstr section(L"Sección");
    const Bstr key(L"Clave");
    EXPECT_EQ(files->SaveSetting(file.get(), section.get(), key.get(), Bstr(L"sí").get()), S_OK);
    Text kept;
    EXPECT_EQ(files->GetSetting(file.get(), section.get(), key.get(), Variant(L"no"), &kept.raw),
              S_OK);
    EXPECT_EQ(kept.read(), "sí");
    EXPECT_EQ(files->DeleteSetting(file.get(), section.get(), key.get()), S_OK);
    Text otherwise;
    EXPECT_EQ(files->LeerIni(file.get(), section.get(), key.get(), Variant(L"no"), &otherwise.raw),
              S_OK);
    EXPECT_EQ(otherwise.read(), "no");
}

TEST(EarlyCalls, ClsProfile) {
    const auto profile = make<Kovrel::clsProfile, Kovrel::_clsProfile>();
    ASSERT_TRUE(profile);
    Text folder;
    EXPECT_EQ(profile->AñadirBackSlash(Bstr(L"C:\\Año").get(), &folder.raw), S_OK);
    EXPECT_EQ(folder.read(), "C:\\Año\\");
    const TestFolder present;
    Text path(present.path());
    VARIANT_BOOL create = VARIANT_FALSE;
    VARIANT_BOOL tell = VARIANT_FALSE;
    VARIANT_BOOL there = VARIANT_FALSE;
    EXPECT_EQ(profile->ExisteCarpeta(&path.raw, &create, &tell, &there), S_OK);
    EXPECT_EQ(there, VARIANT_TRUE);
}

TEST(EarlyCalls, ClsFZip) {
    const auto archives = make<Kovrel::clsFZip, Kovrel::_clsFZip>();
    ASSERT_TRUE(archives);
    const TestFolder folder;
    const Bstr first(folder.write(L"uno.txt", "1"));
    const Bstr second(folder.write(L"dos.txt", "22"));
    Kovrel::ZIPnames names{};
    names.Nombres[0] = first.get();
    names.Nombres[1] = second.get();
    Text name(L"a.zip");
    Text where(folder.path());
    const BoxWatcher no_box;
    Text archive;
    EXPECT_EQ(archives->GenerarZip(&name.raw, &where.raw, &names, &archive.raw), S_OK);
    EXPECT_EQ(archive.read(), narrow(folder / L"a.zip"));
    const std::string content = content_of(folder / L"a.zip");
    EXPECT_EQ(content.substr(0, 4), "PK\x03\x04");
    // Its last record, which the number of entries stands in.
    EXPECT_EQ(content.at(content.size() - 12), 2);
}

TEST(EarlyCalls, ClsAdodbServices) {
    const auto services = make<Kovrel::clsADODBServices, Kovrel::_clsADODBServices>();
    ASSERT_TRUE(services);
    const BoxWatcher no_box;
    const auto field = ScriptedObject::make();
    field->property(L"Value", Variant::null());
    IDispatch* object = field.get();
    Text file(KOVREL_TEST_PICTURES L"\\photo.bmp");
    EXPECT_EQ(services->PutImageInField(&object, &file.raw), S_OK);
    const Variant stored = field->value(L"Value");
    EXPECT_EQ(ArrayAccess<BYTE>(array_in(stored, VT_UI1, 1)).elements().size(),
              content_of(KOVREL_TEST_PICTURES L"\\photo.bmp").size());
    ComPtr<IPictureDisp> picture;
    EXPECT_EQ(services->GetImageFromField(&object, picture.put()), S_OK);
    ASSERT_TRUE(picture);
    OLE_XSIZE_HIMETRIC width = 0;
    EXPECT_EQ(picture.query<IPicture>()->get_Width(&width), S_OK);
    EXPECT_EQ(std::lround(width * 96 / 2540.0), 320);

    const auto records = ScriptedObject::make();
    records->property(L"EOF", Variant(false))
        .property(L"BOF", Variant(false))
        .property(L"AbsolutePosition", Variant(3))
        .property(L"RecordCount", Variant(10));
    object = records.get();
    Text title(L"Registro ");
    Variant location;
    EXPECT_EQ(services->RecordLocation(&object, &title.raw, &location), S_OK);
    EXPECT_EQ(narrow(location.to_text()), "Registro 3 de 10");
}

TEST(EarlyCalls, ClsFGen) {
    const auto general = make<Kovrel::clsFGen, Kovrel::_clsFGen>();
    ASSERT_TRUE(general);
    const auto expect_text = [](auto&& call, const char* expected) {
        Text text;
        EXPECT_EQ(call(&text.raw), S_OK);
        EXPECT_EQ(text.read(), expected);
    };
    VARIANT_BOOL tell = VARIANT_FALSE;
    expect_text(
        [&](BSTR* text) { return general->Verifica_NIF(Bstr(L"12345678a").get(), &tell, text); },
        "12345678Z");
    Text typed(L"12.345.678-Z");
    EXPECT_EQ(general->QuitaCaracteresyEspacios(&typed.raw), S_OK);
    EXPECT_EQ(typed.read(), "12345678Z");
    long number = 12345678;
    expect_text([&](BSTR* text) { return general->LetraNIF(&number, text); }, "Z");
    double amount = 12.5;
    expect_text([&](BSTR* text) { return general->ConvEurosALetra(&amount, text); },
                "DOCE EUROS CON CINCUENTA CÉNTIMOS");
    Text none;
    long internal = 0;
    expect_text(
        [&](BSTR* text) {
            return general->ConvNumeroALetra(Variant(21), &none.raw, &none.raw, &none.raw,
                                             &none.raw, &internal, text);
        },
        "veintiuno");
    Text account(L"20770024003102575766");
    expect_text([&](BSTR* text) { return general->Sucursal_CC(&account.raw, text); }, "0024");

    BYTE province = 0;
    EXPECT_EQ(general->ProvinciaDeCP(Bstr(L"28001").get(), &province), S_OK);
    EXPECT_EQ(province, 28);
    short key = L'x';
    VARIANT_BOOL positive = VARIANT_FALSE;
    VARIANT_BOOL comma = VARIANT_FALSE;
    short answer = -1;
    EXPECT_EQ(general->Solo_Numero(&key, &positive, &comma, &answer), S_OK);
    EXPECT_EQ(key, 0);
    EXPECT_EQ(answer, 0);

    Variant null = Variant::null();
    Variant substitute(L"nada");
    Variant value;
    EXPECT_EQ(general->Nz(&null, &substitute, &value), S_OK);
    EXPECT_EQ(narrow(value.to_text()), "nada");
    float seconds = 0.25F;
    const ULONGLONG start = GetTickCount64();
    EXPECT_EQ(general->Espera(&seconds), S_OK);
    EXPECT_GE(GetTickCount64() - start, 200U);
}

TEST(EarlyCalls, ClsMensajes) {
    const auto general = make<Kovrel::clsFGen, Kovrel::_clsFGen>();
    ASSERT_TRUE(general);
    Text name(L"Facturas");
    EXPECT_EQ(general->put_AppOrigen(&name.raw), S_OK);
    ComPtr<Kovrel::_clsMensajes> messages;
    EXPECT_EQ(general->get_Mensajes(messages.put()), S_OK);
    ASSERT_TRUE(messages);
    Text inherited;
    EXPECT_EQ(messages->get_AppOrigen(&inherited.raw), S_OK);
    EXPECT_EQ(inherited.read(), "Facturas");

    const auto others = make<Kovrel::clsMensajes, Kovrel::_clsMensajes>();
    EXPECT_EQ(general->putref_Mensajes(others.get()), S_OK);
    ComPtr<Kovrel::_clsMensajes> replaced;
    EXPECT_EQ(general->get_Mensajes(replaced.put()), S_OK);
    EXPECT_EQ(replaced, others);

    Text version;
    EXPECT_EQ(messages->get_ArchiVersion(&version.raw), S_OK);
    EXPECT_EQ(version.read(), "1.1.0");
    short found = 12;
    short current = 3;
    long pressed = 0;
    const BoxWatcher boxes({test::answer(IDNO)});
    EXPECT_EQ(messages->MsjBus_IrAlSiguienteRegistro(&found, &current, &pressed), S_OK);
    EXPECT_EQ(pressed, IDNO);
    ASSERT_EQ(boxes.seen().size(), 1U);
    EXPECT_EQ(narrow(boxes.seen()[0].text),
              "Registro 3 de 12 registros encontrados.\r\r¿Ir al siguiente?");
    EXPECT_EQ(narrow(boxes.seen()[0].title), "Facturas");
}

}  // namespace
}  // namespace kovrel::test
