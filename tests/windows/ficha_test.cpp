// The sample host's customer form, from its first field to the archive on the disk.
#include <array>

#include "tests/windows/ficha_form.h"

namespace kovrel::test {
namespace {

constexpr int file_name_list = 0x47C;  // of the system's open-file dialog

/// A picture of one colour, 8 by 8 pixels of 24 bits.
std::string red_picture() {
    constexpr std::size_t header = 54;
    constexpr std::size_t pixels = std::size_t{8} * 8 * 3;
    std::string bytes(header + pixels, '\0');
    bytes.replace(0, 2, "BM");
    bytes[2] = static_cast<char>(header + pixels);
    bytes[10] = header;
    bytes[14] = 40;
    bytes[18] = bytes[22] = 8;
    bytes[26] = 1;
    bytes[28] = 24;
    for (std::size_t at = header + 2; at < bytes.size(); at += 3) bytes[at] = '\xFF';
    return bytes;
}

struct ExportFolder {
    TestFolder folder_{L"Ficha ñ"};
};

/// With the customer in memory, since no database is named.
class Ficha : public testing::Test, public ExportFolder, public FichaForm {
 protected:
    Ficha()
        : FichaForm(L"\"" + (folder_ / L"salida") + L"\"", L"Ficha de cliente (solo en memoria)") {}
};

TEST_F(Ficha, FieldsAreCheckedAsTheyAreLeft) {
    EXPECT_EQ(leave_to_box(), "48|Clientes|El dato  \"Nombre\" no puede quedar vacío.|1");
    type(IDC_NAME, L"Ana Sanz");
    leave_to(IDC_TAX_ID);

    type(IDC_TAX_ID, L"12345678a", L"12345678A");
    EXPECT_EQ(leave_to_box(L"Error en la letra del N.I.F."),
              "48|Error en la letra del N.I.F.|La letra del N.I.F. 'A' es incorrecta y será "
              "sustituida por la correcta: 'Z'|1");
    shows(IDC_TAX_ID, L"12345678Z");

    type(IDC_POSTAL_CODE, L"2800");
    EXPECT_EQ(leave_to_box(), "48|Clientes|Escriba el dato \"Código postal\" correctamente.|1");
    type(IDC_POSTAL_CODE, L"28004");
    leave_to(IDC_ACCOUNT);
    shows(IDC_PROVINCE, L"Madrid");

    type(IDC_ACCOUNT, L"20850103000300731702");
    EXPECT_EQ(leave_to_box(L"Datos bancarios incorrectos"),
              "48|Datos bancarios incorrectos|Datos bancarios incorrectos. Por favor revise el "
              "'Código de Cuenta Cliente'\\r\\r          D.C. Correcto.......: 92|1");
    type(IDC_ACCOUNT, L"20850103920300731702");
    leave_to(IDC_START);
}

TEST_F(Ficha, ACompanysNumberIsNotCorrected) {
    type(IDC_NAME, L"Acero y Hierro, S.A.");
    leave_to(IDC_TAX_ID);
    type(IDC_TAX_ID, L"a28015866", L"A28015866");
    EXPECT_EQ(leave_to_box(L"ATENCIÓN"),
              "16|ATENCIÓN|El último número no corresponde a un CIF correcto.|1");
    EXPECT_TRUE(has_focus(IDC_TAX_ID));
    shows(IDC_TAX_ID, L"A28015866");
}

TEST_F(Ficha, DatesAreFilteredCheckedAndAsked) {
    type(IDC_NAME, L"Ana Sanz");
    press_key('A', Modifier::alt);
    type(IDC_START, L"31/02x/2024", L"31/02/2024");
    EXPECT_EQ(leave_to_box(), "48|Clientes|Escriba la fecha correctamente.|1");
    type(IDC_START, L"15/03/2024");
    press_key('B', Modifier::alt);
    type(IDC_END, L"14/03/2024");
    EXPECT_EQ(leave_to_box(),
              "48|Clientes|La fecha de baja debe ser posterior o igual a la fecha de alta.|1");
    type(IDC_END, L"15/03/2024");
    leave_to(IDC_ASK_END);

    press_key('L', Modifier::alt);
    HWND const prompt = window(L"Kovrel.frmFECHA1", L"Clientes");
    EXPECT_TRUE(find_control(prompt, L"Static", L"¿Desde qué fecha es cliente?"));
    ask(field(IDC_START), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L""));
    EXPECT_TRUE(bring_to_front(prompt));
    press_key(VK_RETURN);
    shows(IDC_START, L"15/03/2024");
}

TEST_F(Ficha, ThePaymentMethodIsOneOfTheRecordset) {
    std::vector<std::string> items;
    for (WPARAM item = 0; item < static_cast<WPARAM>(ask(field(IDC_PAYMENT), CB_GETCOUNT));
         ++item) {
        std::array<wchar_t, 100> text{};
        ask(field(IDC_PAYMENT), CB_GETLBTEXT, item, reinterpret_cast<LPARAM>(text.data()));
        items.push_back(narrow(text.data()));
    }
    EXPECT_EQ(items, (std::vector<std::string>{"Contado", "Domiciliación bancaria", "Transferencia",
                                               "Letra a 30 días"}));
    type(IDC_NAME, L"Ana Sanz");
    press_key('D', Modifier::alt);
    type(IDC_PAYMENT, L"Cheque");
    EXPECT_EQ(leave_to_box(), "64|Clientes|¡Seleccione un elemento de la lista!|1");
    EXPECT_TRUE(wait_until([&] { return ask(field(IDC_PAYMENT), CB_GETDROPPEDSTATE) != 0; }));
}

TEST_F(Ficha, TheBalanceIsRoundedAndWrittenInWords) {
    type(IDC_NAME, L"Ana Sanz");
    press_key('S', Modifier::alt);
    type(IDC_BALANCE, L"x1234.567", L"1234,567");
    press_key(VK_TAB);
    shows(IDC_BALANCE, L"1234,57");
    shows(IDC_BALANCE_WORDS,
          L"MIL DOSCIENTOS TREINTA Y CUATRO EUROS CON CINCUENTA Y SIETE CÉNTIMOS");
    press_key('S', Modifier::alt);
    type(IDC_BALANCE, L"1-2");
    EXPECT_EQ(leave_to_box(), "48|Clientes|Escriba el dato \"Saldo\" correctamente.|1");
}

TEST_F(Ficha, WhatIsMissingIsToldWhenSaving) {
    type(IDC_NAME, L"Ana Sanz");
    press_key(VK_RETURN);
    EXPECT_EQ(answer_box_of(L"Clientes"), "48|Clientes|El dato  \"NIF\" no puede quedar vacío.|1");
    EXPECT_TRUE(has_focus(IDC_TAX_ID));
    shows(IDC_STATUS, L"");
    press_key('N', Modifier::alt);
    fill();
    press_key(VK_RETURN);
    shows(IDC_STATUS, L"Cliente guardado.");
}

TEST_F(Ficha, ThePhotographGoesThroughTheRecordIntoTheArchive) {
    const std::wstring picture = folder_.write(L"foto.bmp", red_picture());
    fill();
    press_key('E', Modifier::alt);
    HWND const open = window(dialog_class, L"Elegir la fotografía");
    EXPECT_TRUE(wait_until([&] { return find_control(open, file_name_list) != nullptr; }));
    ask(find_control(open, file_name_list), WM_SETTEXT, 0,
        reinterpret_cast<LPARAM>(picture.c_str()));
    PostMessageW(open, WM_COMMAND, IDOK, 0);
    EXPECT_TRUE(wait_until_closed(open));

    RECT frame{};
    GetWindowRect(field(IDC_PHOTOGRAPH), &frame);
    HDC const screen = GetDC(nullptr);
    EXPECT_TRUE(wait_until([&] {
        return GetPixel(screen, (frame.left + frame.right) / 2, (frame.top + frame.bottom) / 2) ==
               RGB(255, 0, 0);
    }));
    ReleaseDC(nullptr, screen);

    EXPECT_TRUE(bring_to_front(handle()));
    press_key('X', Modifier::alt);
    window(L"Kovrel.frmBarraProgreso", L"Exportación del cliente");
    HWND const report = window(L"Kovrel.frmDialogo", L"Exportación del cliente");
    const std::wstring archive = folder_ / L"salida\\cliente.zip";
    EXPECT_EQ(text_of(find_control(report, L"Edit")),
              L"El cliente se ha exportado a este archivo:\r\n\r\n    " + archive +
                  L"\r\n\r\nContiene:\r\n\r\n    cliente.txt\r\n    foto.bmp\r\n");
    EXPECT_EQ(content_of(archive).substr(0, 4), "PK\x03\x04");
    EXPECT_EQ(content_of(folder_ / L"salida\\cliente.txt"),
              "\xEF\xBB\xBFNombre: Ana Sanz\r\nNIF: 12345678Z\r\nCódigo postal: \r\nCuenta: \r\n"
              "Fecha de alta: 15/03/2024\r\nFecha de baja: \r\nForma de pago: Contado\r\n"
              "Saldo: \r\n");
    EXPECT_TRUE(bring_to_front(report));
    press_key(VK_RETURN);
    EXPECT_TRUE(wait_until_closed(report));
    EXPECT_TRUE(bring_to_front(handle()));
    press_key(VK_ESCAPE);
    EXPECT_TRUE(wait_until_closed(handle()));
}

TEST_F(Ficha, ACanceledExportLeavesNothing) {
    fill();
    press_key('X', Modifier::alt);
    HWND const progress = window(L"Kovrel.frmBarraProgreso");
    EXPECT_TRUE(bring_to_front(progress));
    press_key(VK_RETURN);
    EXPECT_EQ(answer_box_of(L"Clientes"), "48|Clientes|Proceso cancelado.|1");
    EXPECT_FALSE(std::filesystem::exists(folder_ / L"salida\\cliente.zip"));
}

}  // namespace
}  // namespace kovrel::test
