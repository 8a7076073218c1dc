// clsFZip.GenerarZip: every way to pass the list, and the events during the call.
#include "tests/automation/zip_test.h"

namespace kovrel::test {
namespace {

using testing::ElementsAre;

/// Runs a function in the thread's message loop after a delay.
class Later {
 public:
    Later(UINT milliseconds, std::function<void()> action) {
        action_ = std::move(action);
        timer_ = SetTimer(nullptr, 0, milliseconds, &run);
    }
    Later(const Later&) = delete;
    Later& operator=(const Later&) = delete;
    ~Later() { KillTimer(nullptr, timer_); }

 private:
    static void CALLBACK run(HWND /*window*/, UINT /*message*/, UINT_PTR timer, DWORD /*time*/) {
        KillTimer(nullptr, timer);
        std::exchange(action_, nullptr)();
    }
    static inline std::function<void()> action_;
    UINT_PTR timer_;
};

TEST_F(Archives, ArraysOfEveryKind) {
    const std::vector<std::wstring> files{file("a.txt", "1"), file("b.txt", "2")};
    Variant variants = list_of(files);
    Variant texts = list_of(files, VT_BSTR);
    Variant from_one = list_of(files, VT_BSTR, 1);
    Variant typed;
    typed.vt = VT_BYREF | VT_ARRAY | VT_BSTR;
    typed.pparray = &texts.parray;
    const std::vector<LateArgument> lists{variants,
                                          texts,
                                          from_one,
                                          LateArgument::variable(variants),
                                          LateArgument::variable(texts),
                                          LateArgument::variable(typed)};
    BoxWatcher no_box;
    for (std::size_t index = 0; index < lists.size(); ++index) {
        const std::string name = std::to_string(index) + ".zip";
        EXPECT_EQ(
            text_of_result(call(zip_.get(), L"GenerarZip", {wide(name), folder(), lists[index]})),
            path(name));
        EXPECT_THAT(entries(name), ElementsAre("a.txt", "b.txt"));
    }
}

TEST_F(Archives, NamedArguments) {
    BoxWatcher no_box;
    const Outcome outcome = invoke(zip_.get(), L"generarzip", DISPATCH_METHOD,
                                   {list_of({file("a.txt", "1")}), L"a.zip", folder()},
                                   {L"NombresFicheros1", L"strNombreFicheroZip", L"strRutaSalida"});
    EXPECT_EQ(text_of_result(outcome), path("a.zip"));
}

TEST_F(Archives, TheRecordEarlyBound) {
    with_record_ = true;
    std::vector<std::wstring> files;
    files.reserve(100);
    for (int i = 0; i < 100; ++i) {
        files.push_back(file("d/" + std::to_string(i), std::to_string(i)));
    }
    BoxWatcher no_box;
    for (const std::size_t count : {std::size_t{1}, std::size_t{2}, std::size_t{100}}) {
        DeleteFileW(path("a.zip").c_str());
        EXPECT_EQ(generate(L"a.zip", {files.data(), files.data() + count}), path("a.zip"));
        EXPECT_EQ(entries("a.zip").size(), count);
    }
    BSTR nothing = nullptr;
    Bstr result;
    EXPECT_EQ(early<GenerateEarly>(zip_.get(), L"GenerarZip")(zip_.get(), &nothing, &nothing,
                                                              nullptr, result.put()),
              E_POINTER);
}

TEST_F(Archives, EveryCheckEarlyBound) {
    with_record_ = true;
    put(zip_.get(), L"AppOrigen", Variant(L"Gestión Ñ"));
    const std::wstring input = file("a.txt", "nuevo");
    expect_refusal(L"", folder(), {input}, L"Debe indicar un nombre de fichero correcto.",
                   L"kovrel");
    const std::wstring missing = folder() + L"\\no está";
    const std::wstring text =
        L"La carpeta de salida \"" + missing +
        L"\" no existe. Debe indicar una carpeta válida donde guardar el fichero comprimido.";
    expect_refusal(L"a.zip", missing, {input}, text.c_str(), L"Gestión Ñ");
    expect_refusal(L"a.zip", folder(), {L"", input}, nothing_to_pack, L"Gestión Ñ");
    file("a.zip", "");
    BoxWatcher boxes({answer(IDOK)});
    EXPECT_EQ(generate(L"a.zip", {input}), path("a.zip"));
    ASSERT_EQ(boxes.seen().size(), 1U);
    EXPECT_EQ(narrow(boxes.seen()[0].text), narrow(replaced_text));
    EXPECT_EQ(boxes.seen()[0].style, 48);
    EXPECT_EQ(narrow(boxes.seen()[0].title), narrow(L"Gestión Ñ"));
    EXPECT_EQ(content("a.zip", "a.txt"), "nuevo");
}

TEST_F(Archives, TheRecordLateBound) {
    ComPtr<ITypeLib> library;
    UINT place = 0;
    ASSERT_EQ(interface_of(zip_.get())->GetContainingTypeLib(library.put(), &place), S_OK);
    ComPtr<ITypeInfo> type;
    MEMBERID member = 0;
    USHORT found = 1;
    wchar_t name[] = L"ZIPnames";
    ASSERT_EQ(library->FindName(name, 0, type.put(), &member, &found), S_OK);
    ASSERT_EQ(found, 1U);
    ComPtr<IRecordInfo> info;
    ASSERT_EQ(GetRecordInfoFromTypeInfo(type.get(), info.put()), S_OK);

    std::array<BSTR, 100> record{};
    const Bstr text(file("a.txt", "1"));
    record[0] = text.get();
    VARIANT value{};
    value.vt = VT_BYREF | VT_RECORD;
    value.pvRecord = record.data();
    value.pRecInfo = info.get();
    BoxWatcher no_box;
    EXPECT_EQ(text_of_result(call(zip_.get(), L"GenerarZip", {L"a.zip", folder(), value})),
              path("a.zip"));
    EXPECT_EQ(text_of_result(call(zip_.get(), L"GenerarZip",
                                  {L"b.zip", folder(), LateArgument::variable(value)})),
              path("b.zip"));
    EXPECT_THAT(entries("b.zip"), ElementsAre("a.txt"));
}

TEST_F(Archives, WaitsHalfASecondDispatchingEventsUnderTheHourglass) {
    HCURSOR during = nullptr;
    SetCursor(LoadCursorW(nullptr, IDC_CROSS));
    const Later event(50, [&] { during = GetCursor(); });
    BoxWatcher no_box;
    const ULONGLONG start = GetTickCount64();
    EXPECT_EQ(generate(L"a.zip", {file("a.txt", "1")}), path("a.zip"));
    EXPECT_GE(GetTickCount64() - start, 480U);
    EXPECT_EQ(during, LoadCursorW(nullptr, IDC_WAIT));
    EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_ARROW));
}

TEST_F(Archives, AnArchiveDeletedDuringTheWaitIsNotReturned) {
    const Later event(50, [&] { EXPECT_TRUE(DeleteFileW(path("a.zip").c_str())); });
    BoxWatcher no_box;
    EXPECT_EQ(generate(L"a.zip", {file("a.txt", "1")}), L"");
}

TEST_F(Archives, AnotherArchiveMadeDuringTheWait) {
    std::wstring inner;
    const Later event(50, [&] { inner = generate(L"b.zip", {file("b.txt", "2")}); });
    BoxWatcher no_box;
    EXPECT_EQ(generate(L"a.zip", {file("a.txt", "1")}), path("a.zip"));
    EXPECT_EQ(inner, path("b.zip"));
    EXPECT_THAT(entries("a.zip"), ElementsAre("a.txt"));
    EXPECT_THAT(entries("b.zip"), ElementsAre("b.txt"));
}

TEST_F(Archives, TheHostReleasesTheObjectDuringTheWait) {
    const DISPID member = id_of(zip_.get(), L"GenerarZip");
    Variant list = list_of({file("a.txt", "1")});
    Variant name(L"a.zip");
    Variant where(folder());
    VARIANT reversed[] = {list, where, name};
    DISPPARAMS parameters{reversed, nullptr, 3, 0};
    IDispatch* const object = zip_.detach();
    const Later event(50, [&] { object->Release(); });
    Variant result;
    EXPECT_EQ(object->Invoke(member, IID_NULL, 0, DISPATCH_METHOD, &parameters, &result, nullptr,
                             nullptr),
              S_OK);
    EXPECT_EQ(text_of(result.bstrVal), path("a.zip"));
}

}  // namespace
}  // namespace kovrel::test
