#include "tests/robustness/sensible.h"

#include <olectl.h>

#include <map>

#include "automation/safe_array.h"

namespace kovrel::test {
namespace {

Variant list_of(const wchar_t* first, const wchar_t* second) {
    SAFEARRAY* const array = SafeArrayCreateVector(VT_BSTR, 0, 2);
    Variant result = [&] {
        VARIANT list{};
        list.vt = VT_ARRAY | VT_BSTR;
        list.parray = array;
        return Variant::attach(list);
    }();
    for (LONG index = 0; index < 2; ++index) {
        SafeArrayPutElement(array, &index, Bstr(index == 0 ? first : second).get());
    }
    return result;
}

ComPtr<IDispatch> small_image() {
    PICTDESC description{};
    description.cbSizeofstruct = sizeof description;
    description.picType = PICTYPE_BITMAP;
    HDC const screen = GetDC(nullptr);
    description.bmp.hbitmap = CreateCompatibleBitmap(screen, 4, 4);
    ReleaseDC(nullptr, screen);
    ComPtr<IDispatch> picture;
    OleCreatePictureIndirect(&description, IID_IPictureDisp, TRUE, picture.put_void());
    return picture;
}

std::vector<ScriptedRecordset::Row> rows() {
    return {{Variant(L"A"), Variant(1), Variant::null()},
            {Variant(L"B"), Variant(2), Variant(L"dos")}};
}

/// Values by parameter name; other parameters get a default of their type.
const std::map<std::wstring, Variant>& values_by_name() {
    static const std::map<std::wstring, Variant> values{
        {L"Nif", Variant(L"12345678A")},  // a wrong letter, which shows a box
        {L"DNI", Variant(12345678)},
        {L"CCC", Variant(L"20770024003102575767")},  // wrong check digits
        {L"banco", Variant(L"2077")},
        {L"sucursal", Variant(L"0024")},
        {L"cuenta", Variant(L"3102575766")},
        {L"strCifNif", Variant(L"12.345.678-Z")},
        {L"Numero", Variant(1234.56)},
        {L"dblNumero", Variant(1234.56)},
        {L"Segundos", Variant(0.5)},
        {L"Fecha", Variant(L"29/02/2024")},
        {L"DtFecha", Variant(Date{45366})},
        {L"DtFechaDefecto", Variant(Date{45366})},
        {L"ObjFechaMenor", Variant(Date{45366})},
        {L"ObjFechaMayor", Variant(Date{1})},
        {L"IntAño", Variant(2024)},
        {L"Anyo", Variant(2024)},
        {L"Año", Variant(2024)},
        {L"IntMes", Variant(2)},
        {L"File", Variant(L"uno.txt")},
        {L"lpFileName", Variant(L".\\prueba.ini")},
        {L"sIniFile", Variant(L".\\prueba.ini")},
        {L"strPath", Variant(L"carpeta")},
        {L"strNombreFicheroZip", Variant(L"archivo.zip")},
        {L"strRutaSalida", Variant(L"carpeta")},
        {L"sTodo", Variant(L"C:\\carpeta\\fichero.txt")},
        {L"vFilter", Variant(L"Textos (*.txt)|*.txt")},
        {L"vFlags", Variant(0)},
        {L"vhWnd", Variant(0)},
        {L"hWndOwner", Variant(0)},
        {L"Porcentaje", Variant(40)},
        {L"boBotones", Variant(true)},
        {L"lgAltoMensaje", Variant(900)},
        {L"lgAnchoFrm", Variant(6000)},
        {L"lgTopFrm", Variant(300)},
        {L"lgLeftFrm", Variant(300)},
        {L"lgForeColor", Variant(255)},
        {L"intNumCampos", Variant(2)},
        {L"boMensajes", Variant(true)},
        {L"BoMsj", Variant(true)},
        {L"pulsa", Variant(97)},
        {L"Columna", Variant(0)},
        {L"Campo", Variant(L"clave")},
        {L"Archivo", Variant(L"entradas.zip")},
        {L"Ficheros", Variant(L"uno.txt")},
        {L"Base", Variant(L"")},
        {L"Carpeta", Variant(L"carpeta")},
        {L"Patrones", Variant(L"")},
        {L"Booleano", Variant(true)},
    };
    return values;
}

}  // namespace

SensibleHost::SensibleHost()
    : records_(rows(), {L"clave", L"orden", L"texto"}), image_(small_image()) {
    control_->property(L"Text", Variant(L"x"))
        .property(L"Tag", Variant(L"Dato"))
        .property(L"Value", Variant(Date{45000}))
        .property(L"MaxLength", Variant(9))
        .property(L"ListCount", Variant(2))
        .property(L"MatchedWithList", Variant(false))
        .method(L"SetFocus")
        .method(L"DropDown")
        .default_member(L"Value");
    const auto bytes = [](const auto&) {
        Variant array = new_byte_array(70);
        const ArrayAccess<std::uint8_t> access(array.parray);
        access.elements()[0] = 'B';
        access.elements()[1] = 'M';
        return array;
    };
    field_->property(L"Value", bytes, [](const auto&) { return Variant(); })
        .property(L"ActualSize", Variant(140))
        .method(L"GetChunk", bytes)
        .method(L"AppendChunk");
    picture_->property(L"AutoRedraw", Variant(false))
        .property(L"ScaleWidth", Variant(100))
        .property(L"ScaleHeight", Variant(20))
        .property(L"DrawMode", Variant(1))
        .property(L"CurrentX", Variant(0))
        .property(L"CurrentY", Variant(0))
        .method(L"TextWidth", [](const auto&) { return Variant(20); })
        .method(L"TextHeight", [](const auto&) { return Variant(10); })
        .method(L"Cls")
        .method(L"Print")
        .method(L"Line")
        .method(L"Refresh");
    progress_->method(L"BarraProgresoActualiza").method(L"BarraProgresoCancelada");
    error_->property(L"Number", Variant(-2147217900))
        .property(L"Description", Variant(L"Error de sintaxis"));
    errors_->property(L"Count", Variant(2)).method(L"Item", [this](const auto&) {
        return Variant(ComPtr<IDispatch>(error_.get()));
    });
    connection_->property(L"Errors", Variant(ComPtr<IDispatch>(errors_.get())));
}

ULONG SensibleHost::references() const {
    image_->AddRef();
    return image_->Release() + control_->references() + field_->references() +
           picture_->references() + progress_->references() + error_->references() +
           errors_->references() + connection_->references() + records_.object().references() +
           combo_.object().references();
}

Variant SensibleHost::object(const std::wstring& parameter) {
    const auto given = [](const ComPtr<ScriptedObject>& object) {
        return Variant(ComPtr<IDispatch>(object.get()));
    };
    if (parameter == L"Obj" || parameter == L"Cmb" || parameter == L"DtCmb") return given(control_);
    if (parameter == L"Picture") return given(picture_);
    if (parameter == L"Progreso") return given(progress_);
    if (parameter == L"colecErrors") return given(errors_);
    if (parameter == L"Cnn") return given(connection_);
    if (parameter == L"cmbCombo") return combo_.argument();
    if (parameter == L"rsRecordset" || parameter == L"adoRs") {
        records_.position = 0;
        return records_.argument();
    }
    return given(field_);
}

Variant SensibleHost::argument(const OwnClass& of_class, const OwnMember& member,
                               std::size_t parameter) {
    const std::wstring name =
        parameter < member.parameters.size() ? member.parameters[parameter] : std::wstring();
    if (member.types[parameter] == VT_DISPATCH) return object(name);
    if (name == L"pic") return Variant(image_);
    if (name == L"NombresFicheros1") return list_of(L"uno.txt", L"dos.txt");
    if (name == L"Bytes") return new_byte_array(3);
    if (name == L"Lista") return list_of(L"12345678Z", L"12345678A");
    if (member.name == L"Mensajes") return Variant(OwnLibrary::get().create(L"clsMensajes"));
    // In two members this parameter is a text, in the others a date.
    const auto known = values_by_name().find(name);
    if (known != values_by_name().end()) return known->second;
    if (member.types[parameter] == VT_BSTR || member.types[parameter] == VT_VARIANT) {
        return Variant(of_class.name + L" ñ");
    }
    return Variant(1);
}

std::vector<Variant> SensibleHost::arguments(const OwnClass& of_class, const OwnMember& member) {
    std::vector<Variant> result;
    for (std::size_t index = 0; index < member.types.size(); ++index) {
        result.push_back(argument(of_class, member, index));
    }
    return result;
}

HRESULT sensible_answer(const OwnMember& member) {
    constexpr auto subscript_out_of_range = static_cast<HRESULT>(0x800A0009);
    const bool is_item = member.id == DISPID_VALUE && member.kind == DISPATCH_METHOD;
    return is_item ? subscript_out_of_range : S_OK;
}

HRESULT call_member(IDispatch* instance, const OwnMember& member,
                    const std::vector<Variant>& arguments, Variant* result) {
    std::vector<VARIANT> reversed(arguments.rbegin(), arguments.rend());
    DISPID put_id = DISPID_PROPERTYPUT;
    const bool puts = (member.kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    DISPPARAMS parameters{reversed.data(), puts ? &put_id : nullptr,
                          static_cast<UINT>(reversed.size()), puts ? 1U : 0U};
    EXCEPINFO exception{};
    Variant ignored;
    const HRESULT answer =
        instance->Invoke(member.id, IID_NULL, LOCALE_USER_DEFAULT, member.kind, &parameters,
                         result != nullptr ? result : &ignored, &exception, nullptr);
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrHelpFile);
    return answer == DISP_E_EXCEPTION ? exception.scode : answer;
}

}  // namespace kovrel::test
