// clsADODBServices: pictures stored in fields, objects that fail or call back, and early binding.
#include <kovrel.h>
#include <utility>

#include "tests/automation/images.h"
#include "tests/support/ado_recordset.h"

namespace kovrel::test {
namespace {

TEST_F(Images, StoringAPictureKeepsItsFile) {
    BoxWatcher no_box;
    Field source;
    store(source.argument(), picture_file(L"photo.bmp"));
    const auto picture = load(source.argument()).query<IDispatch>();
    ASSERT_TRUE(picture);
    Field target;
    EXPECT_EQ(
        call(services_.get(), L"PutPictureInField", {target.argument(), Variant(picture)}).result,
        S_OK);
    const auto files = temporary_files();
    ASSERT_EQ(files.size(), 1U);
    EXPECT_EQ(files[0].stem().wstring().size(), 8U);
    EXPECT_EQ(files[0].wstring().find_first_not_of(L"0123456789", files[0].wstring().size() - 12),
              files[0].wstring().size() - 4);
    EXPECT_EQ(target.value(), content_of(files[0].wstring()));
    EXPECT_EQ(size_of(load(target.argument())), (std::pair<long, long>{320, 240}));
}

TEST_F(Images, EveryKindOfPictureIsStored) {
    BoxWatcher no_box;
    for (const auto& [name, type] : every_kind) {
        SCOPED_TRACE(narrow(name));
        Field source;
        store(source.argument(), picture_file(name));
        const auto picture = load(source.argument());
        ASSERT_TRUE(picture);
        Field target;
        EXPECT_EQ(call(services_.get(), L"PutPictureInField",
                       {target.argument(), Variant(picture.query<IDispatch>())})
                      .result,
                  S_OK);
        const auto stored = load(target.argument());
        ASSERT_TRUE(stored);
        short its_type = PICTYPE_NONE;
        EXPECT_EQ(stored->get_Type(&its_type), S_OK);
        EXPECT_EQ(its_type, type);
        EXPECT_EQ(size_of(stored), size_of(picture));
    }
}

TEST_F(Images, AHostWithoutANameHasBoxesWithoutATitle) {
    put(services_.get(), L"AppOrigen", Variant(L""));
    const std::wstring missing = folder_ / L"falta.bin";
    const Variant nothing{ComPtr<IDispatch>()};
    BoxWatcher boxes({answer(IDOK), answer(IDOK), answer(IDOK), answer(IDOK)});
    store(nothing, missing);
    store_large(nothing, missing);
    load(nothing, L"GetLargeImageFromField");
    EXPECT_EQ(call(services_.get(), L"PutPictureInField", {nothing, nothing}).result, S_OK);
    for (const SeenBox& box : boxes.seen()) {
        EXPECT_EQ(box.title, L"") << narrow(as_line(box));
        EXPECT_EQ(box.style, 16);
    }
}

TEST_F(Images, NoPictureToStore) {
    Field field;
    PICTDESC description{};
    description.cbSizeofstruct = sizeof(description);
    description.picType = PICTYPE_NONE;
    ComPtr<IDispatch> none;
    ASSERT_EQ(OleCreatePictureIndirect(&description, IID_IPictureDisp, TRUE, none.put_void()),
              S_OK);
    BoxWatcher boxes({answer(IDOK), answer(IDOK)});
    EXPECT_EQ(call(services_.get(), L"PutPictureInField",
                   {field.argument(), Variant{ComPtr<IDispatch>()}})
                  .result,
              S_OK);
    EXPECT_EQ(call(services_.get(), L"PutPictureInField", {field.argument(), Variant(none)}).result,
              S_OK);
    EXPECT_EQ(lines_of(boxes),
              (Lines{failure_line(L"91\\r (Variable de objeto o bloque With no establecido",
                                  L"PutPictureInField"),
                     failure_line(L"481\\r (Imagen no válida", L"PutPictureInField")}));
    EXPECT_EQ(field.object_->log(), Log{});
    EXPECT_TRUE(temporary_files().empty());
}

TEST_F(Images, ValuesThatAreNotPicturesAreRefused) {
    Field field;
    EXPECT_EQ(
        call(services_.get(), L"PutPictureInField", {field.argument(), field.argument()}).result,
        DISP_E_TYPEMISMATCH);
    EXPECT_EQ(call(services_.get(), L"PutImageInField", {L"campo", L"x"}).result,
              DISP_E_TYPEMISMATCH);
}

TEST_F(Images, TheRecordLocation) {
    BoxWatcher no_box;
    auto records = ScriptedObject::make();
    records->property(L"EOF", Variant(false))
        .property(L"BOF", Variant(false))
        .property(L"AbsolutePosition", Variant(std::int32_t{3}))
        .property(L"RecordCount", Variant(std::int32_t{10}));
    EXPECT_EQ(location(to_variant(records)), L"Registro 3 de 10");
    EXPECT_EQ(text_of_result(call(services_.get(), L"RecordLocation", {to_variant(records)})),
              L"3 de 10");
    records->property(L"EOF", Variant(true));
    EXPECT_EQ(location(to_variant(records)), L"");
    records->property(L"EOF", Variant(false)).property(L"BOF", Variant(true));
    EXPECT_EQ(location(to_variant(records)), L"");
    records->property(L"BOF", Variant(false)).property(L"AbsolutePosition", Variant(L"x"));
    EXPECT_EQ(location(to_variant(records)), L"VOID");
    records->fails(L"AbsolutePosition", failure(3251, L"No se puede"));
    EXPECT_EQ(location(to_variant(records)), L"VOID");
    records->remove(L"EOF");
    EXPECT_EQ(location(to_variant(records)), L"VOID");
    EXPECT_EQ(location(Variant{ComPtr<IDispatch>()}), L"VOID");
    EXPECT_EQ(records->references(), 1U);
}

TEST_F(Images, FieldsThatReleaseThemselvesOrCallBack) {
    const int before = ScriptedObject::alive();
    {
        BoxWatcher no_box;
        auto field = ScriptedObject::make();
        ScriptedObject* const raw = field.get();
        field->property(
            L"Value", [](const auto&) { return Variant(); },
            [&](const auto&) {
                field = nullptr;
                return Variant();
            });
        Variant argument = to_variant(ComPtr<ScriptedObject>(raw));
        store(argument, folder_.write(L"a.bin", "x"));
        argument = Variant();
        EXPECT_EQ(ScriptedObject::alive(), before);
    }
    BoxWatcher no_box;
    Field inner;
    Field outer;
    outer.object_->property(
        L"Value", [](const auto&) { return Variant(); },
        [&](const auto&) {
            store(inner.argument(), folder_ / L"a.bin");
            return Variant();
        });
    store(outer.argument(), folder_.write(L"a.bin", "interior"));
    EXPECT_EQ(inner.value(), "interior");
}

TEST_F(Images, EarlyBound) {
    const auto services = services_.query<Kovrel::_clsADODBServices>();
    ASSERT_TRUE(services);
    BoxWatcher no_box;
    Field field;
    IDispatch* raw = field.object_.get();
    BSTR file = SysAllocString(picture_file(L"photo.gif").c_str());
    EXPECT_EQ(services->PutImageInField(&raw, &file), S_OK);
    EXPECT_EQ(services->PutLargeImageInField(&raw, &file), S_OK);
    SysFreeString(file);
    for (const auto member : {&Kovrel::_clsADODBServices::GetImageFromField,
                              &Kovrel::_clsADODBServices::GetLargeImageFromField}) {
        ComPtr<IPictureDisp> picture;
        EXPECT_EQ((services.get()->*member)(&raw, picture.put()), S_OK);
        ASSERT_TRUE(picture);
        Field target;
        IDispatch* raw_target = target.object_.get();
        IPictureDisp* raw_picture = picture.get();
        EXPECT_EQ(services->PutPictureInField(&raw_target, &raw_picture), S_OK);
        EXPECT_GT(target.value().size(), 0U);
    }
}

TEST_F(Images, EarlyBoundFailures) {
    const auto services = services_.query<Kovrel::_clsADODBServices>();
    ASSERT_TRUE(services);
    Field field;
    IDispatch* raw = field.object_.get();
    IDispatch* nothing = nullptr;
    IPictureDisp* no_picture = nullptr;
    Bstr file(folder_ / L"falta.bin");
    BSTR raw_file = file.get();
    BoxWatcher boxes({answer(IDOK), answer(IDOK), answer(IDOK), answer(IDOK), answer(IDOK)});
    EXPECT_EQ(services->PutImageInField(&raw, &raw_file), S_OK);
    EXPECT_EQ(services->PutLargeImageInField(&raw, &raw_file), S_OK);
    EXPECT_EQ(services->PutPictureInField(&raw, &no_picture), S_OK);
    ComPtr<IPictureDisp> picture;
    EXPECT_EQ(services->GetImageFromField(&raw, picture.put()), S_OK);
    EXPECT_FALSE(picture);
    EXPECT_EQ(services->GetLargeImageFromField(&nothing, picture.put()), S_OK);
    EXPECT_FALSE(picture);
    Variant location;
    Bstr title(L"Registro ");
    BSTR raw_title = title.get();
    EXPECT_EQ(services->RecordLocation(&raw, &raw_title, &location), S_OK);
    EXPECT_EQ(text_of(location.bstrVal), L"VOID");
    const std::wstring missing = L"53\\r (No se encontró el archivo";
    const std::wstring not_set = L"91\\r (Variable de objeto o bloque With no establecido";
    EXPECT_EQ(lines_of(boxes), (Lines{failure_line(missing, L"PutImageInField"),
                                      failure_line(missing, L"PutLargeImageInField"),
                                      failure_line(not_set, L"PutPictureInField"),
                                      narrow(L"0|kovrel|ERROR  94: Uso no válido de Null|1"),
                                      failure_line(not_set, L"GetLargeImageFromField")}));
    EXPECT_EQ(field.object_->references(), 1U);
}

TEST_F(Images, ARealFieldOfARecordset) {
    const auto recordset = make_recordset({{L"Foto", AdoType::long_binary, 1'000'000}});
    ASSERT_TRUE(recordset) << "no ADO here";
    BoxWatcher no_box;
    const HostObject records(recordset);
    records.call(L"AddNew");
    const Variant field = records.element(L"Fields", 0);
    store(field, picture_file(L"photo.jpg"));
    EXPECT_EQ(content_in(HostObject(field).get(L"Value")), content_of(picture_file(L"photo.jpg")));
    EXPECT_EQ(size_of(load(field)), (std::pair<long, long>{320, 240}));
}

}  // namespace
}  // namespace kovrel::test
