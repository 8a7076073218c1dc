// A clsAvisos and the classes that speak, for the tests of what it decides.
#pragma once

#include <gtest/gtest.h>
#include <kovrel.h>

#include "tests/support/box_watcher.h"
#include "tests/support/early.h"

namespace kovrel::test {

constexpr std::int32_t shown_mode = Kovrel::maMostrar;
constexpr std::int32_t silent_mode = Kovrel::maSilencio;
constexpr std::int32_t event_mode = Kovrel::maEvento;

class Avisos : public testing::Test {
 protected:
    static ComPtr<IDispatch> new_avisos(std::int32_t mode) {
        auto avisos = create(L"Kovrel.clsAvisos");
        EXPECT_EQ(put(avisos.get(), L"Modo", Variant(mode)).result, S_OK);
        return avisos;
    }
    void set_mode(std::int32_t mode) {
        EXPECT_EQ(put(avisos_.get(), L"Modo", Variant(mode)).result, S_OK);
    }

    [[nodiscard]] std::int32_t count() const { return count_of(avisos_); }
    static std::int32_t count_of(const ComPtr<IDispatch>& avisos) {
        return get(avisos.get(), L"Count").value.to_int32();
    }
    [[nodiscard]] ComPtr<IDispatch> last() const {
        return get(avisos_.get(), L"Ultimo").value.to_object();
    }
    /// "kind|member|title|text|style|answer|number" of an aviso.
    static std::string line_of(const ComPtr<IDispatch>& aviso) {
        std::wstring line;
        for (const wchar_t* const name :
             {L"Clase", L"Miembro", L"Titulo", L"Texto", L"Estilo", L"Respuesta", L"Numero"}) {
            if (!line.empty()) line += L'|';
            line += get(aviso.get(), name).value.to_text();
        }
        return narrow(line);
    }
    [[nodiscard]] std::string last_line() const { return line_of(last()); }

    /// A wrong control letter, which a box tells.
    std::wstring wrong_nif() {
        return text_of_result(
            call(general_.get(), L"Verifica_NIF", {Variant(L"12345678A"), Variant(true)}));
    }
    /// A question with the buttons Yes and No.
    std::int32_t ask() {
        return call(messages_.get(), L"MsjFact_DeseaEditarFacturacion").value.to_int32();
    }

    ComPtr<IDispatch> avisos_ = create(L"Kovrel.clsAvisos");
    const ComPtr<IDispatch> general_ = create(L"Kovrel.clsFGen");
    const ComPtr<IDispatch> messages_ = create(L"Kovrel.clsMensajes");
};

inline constexpr const wchar_t* wrong_nif_text =
    L"La letra del N.I.F. 'A' es incorrecta y será sustituida por la correcta: 'Z'";
inline constexpr const char* noted_wrong_nif =
    "1|clsFGen.Verifica_NIF|Error en la letra del N.I.F.|La letra del N.I.F. 'A' es incorrecta y "
    "será sustituida por la correcta: 'Z'|48|1|0";

}  // namespace kovrel::test
