#include "taxid/tax_id_kind.h"

#include <array>

#include "runtime/text.h"

namespace kovrel {

std::wstring_view tax_id_kind(std::wstring_view letter, const Regional& regional) {
    constexpr std::wstring_view letters = L"ABCDEFGHJKLMNPQRSUVWXY";
    constexpr std::array<std::wstring_view, letters.size()> descriptions{
        L"A - Sociedad Anónima",
        L"B - Sociedad de Responsabilidad Limitada",
        L"C - Sociedad Colectiva",
        L"D - Sociedad Comanditaria",
        L"E - Comunidad de Bienes",
        L"F - Sociedad Cooperativa",
        L"G - Asociación",
        L"H - Comunidad de Propietarios",
        L"J - Sociedad Civil",
        L"K - Formato antiguo",
        L"L - Formato antiguo",
        L"M - Formato antiguo",
        L"N - Entidad Extranjera",
        L"P - Corporación local",
        L"Q - Organismo público",
        L"R - Institución Religiosa",
        L"S - Organo de la administración",
        L"U - Unión Temporal de Empresas",
        L"V - Otro Tipo",
        L"W - Entidad No Residente",
        L"X - NIE: Número Identificador de Extranjero",
        L"Y - NIE: Número Identificador de Extranjero",
    };
    if (regional.number(letter)) return L"NIF - Número de Identificación Fiscal";
    const auto position = letters.find(regional.capitals(letter));
    return position == std::wstring_view::npos ? L"ERROR" : descriptions[position];
}

}  // namespace kovrel
