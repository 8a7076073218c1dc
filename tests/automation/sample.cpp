#include "tests/automation/sample.h"

#include <new>
#include <stdexcept>

#include "automation/declare.h"

namespace kovrel::test {
namespace {

constexpr ClassIdentity identity{
    L"Prueba",
    L"Sample",
    {0x7c1d6c52, 0x4d2f, 0x4a1c, {0x9f, 0x60, 0x1b, 0x0d, 0x3e, 0x55, 0x10, 0x01}},
    {0x7c1d6c52, 0x4d2f, 0x4a1c, {0x9f, 0x60, 0x1b, 0x0d, 0x3e, 0x55, 0x10, 0x02}},
};

constexpr auto declared =
    declare<Sample>(identity, L"")
        .field<&Sample::Campo>(L"Campo", L"")
        .property<&Sample::get_Nombre, &Sample::set_Nombre>(L"Nombre", L"")
        .object_property<&Sample::get_Objeto, &Sample::set_Objeto>(L"Objeto", L"")
        .method<&Sample::Doble>(L"Doble", {L"valor"}, L"")
        .method<&Sample::Añade>(L"Añade", {L"texto", optional(L"sufijo", L"!")}, L"")
        .method<&Sample::Resta>(L"Resta", {L"primero", L"segundo", optional(L"Año", 7)}, L"")
        .method<&Sample::Eco>(L"Eco", {L"valor"}, L"")
        .method<&Sample::Cambia>(L"Cambia", {L"valor", L"por"}, L"")
        .method<&Sample::Bandera>(L"Bandera", {optional(L"bandera", true, false)}, L"")
        .method<&Sample::Presencia>(
            L"Presencia", {optional(L"opcional"), optional(L"texto"), optional(L"numero")}, L"")
        .method<&Sample::Mañana>(L"Mañana", {L"dia"}, L"")
        .method<&Sample::Mitad>(L"Mitad", {L"valor"}, L"")
        .method<&Sample::Octeto>(L"Octeto", {L"valor"}, L"")
        .method<&Sample::Simple>(L"Simple", {L"valor"}, L"")
        .method<&Sample::HayObjeto>(L"HayObjeto", {L"objeto"}, L"")
        .method<&Sample::Une>(L"Une", {L"nombres"}, L"")
        .method<&Sample::Falla>(L"Falla", {L"numero", L"escrito"}, L"")
        .method<&Sample::SinMemoria>(L"SinMemoria", L"")
        .method<&Sample::Otra>(L"Otra", L"");

}  // namespace

constinit const RecordInfo SampleNames::info{
    .name = L"SampleNames",
    .help = L"",
    .id = {0x7c1d6c52, 0x4d2f, 0x4a1c, {0x9f, 0x60, 0x1b, 0x0d, 0x3e, 0x55, 0x10, 0x03}},
    .field = L"Nombres",
    .size = SampleNames::size,
};

constinit const ClassInfo Sample::class_info = class_tables<declared>;

std::int16_t Sample::Doble(std::int16_t& valor) {
    const std::int16_t before = valor;
    valor = static_cast<std::int16_t>(valor * 2);
    return before;
}

std::wstring Sample::Añade(std::wstring& texto, std::wstring sufijo) {
    texto += sufijo;
    return texto;
}

std::wstring Sample::Resta(std::int32_t primero, std::int32_t segundo, std::int32_t tercero) {
    return std::to_wstring(primero) + L"-" + std::to_wstring(segundo) + L"-" +
           std::to_wstring(tercero);
}

Variant Sample::Eco(const Variant& valor) {
    return valor;
}

void Sample::Cambia(Variant& valor, std::wstring por) {
    if (!por.empty()) valor = Variant(por);
}

bool Sample::Bandera(const bool& bandera) {
    return bandera;
}

std::wstring Sample::Presencia(Variant opcional, std::wstring texto, std::int16_t numero) {
    return (opcional.is_missing() ? L"falta" : L"está") + std::wstring(L",") + texto + L"," +
           std::to_wstring(numero);
}

Date Sample::Mañana(Date dia) {
    return {dia.days + 1};
}
double Sample::Mitad(const double& valor) {
    return valor / 2;
}
std::uint8_t Sample::Octeto(std::uint8_t valor) {
    return valor;
}
float Sample::Simple(float valor) {
    return valor;
}
bool Sample::HayObjeto(const ComPtr<IDispatch>& objeto) {
    return static_cast<bool>(objeto);
}

std::wstring Sample::Une(const SampleNames& nombres) {
    return nombres.texts[0] + L"|" + nombres.texts[1] + L"|" + nombres.texts[2];
}

void Sample::Falla(std::int32_t numero, std::int16_t& escrito) {
    escrito = 99;
    if (numero < 0) throw Failure(numero, L"Descripción del anfitrión");
    throw Failure(static_cast<FailureNumber>(numero));
}

void Sample::SinMemoria() {
    throw std::bad_alloc();
}
void Sample::Otra() {
    throw std::runtime_error("something else");
}

}  // namespace kovrel::test
