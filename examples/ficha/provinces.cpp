#include "provinces.h"

#include <array>

namespace ficha {

const wchar_t* province_name(int number) {
    static constexpr std::array names{L"Álava",       L"Albacete",
                                      L"Alicante",    L"Almería",
                                      L"Ávila",       L"Badajoz",
                                      L"Baleares",    L"Barcelona",
                                      L"Burgos",      L"Cáceres",
                                      L"Cádiz",       L"Castellón",
                                      L"Ciudad Real", L"Córdoba",
                                      L"La Coruña",   L"Cuenca",
                                      L"Gerona",      L"Granada",
                                      L"Guadalajara", L"Guipúzcoa",
                                      L"Huelva",      L"Huesca",
                                      L"Jaén",        L"León",
                                      L"Lérida",      L"La Rioja",
                                      L"Lugo",        L"Madrid",
                                      L"Málaga",      L"Murcia",
                                      L"Navarra",     L"Orense",
                                      L"Asturias",    L"Palencia",
                                      L"Las Palmas",  L"Pontevedra",
                                      L"Salamanca",   L"Santa Cruz de Tenerife",
                                      L"Cantabria",   L"Segovia",
                                      L"Sevilla",     L"Soria",
                                      L"Tarragona",   L"Teruel",
                                      L"Toledo",      L"Valencia",
                                      L"Valladolid",  L"Vizcaya",
                                      L"Zamora",      L"Zaragoza",
                                      L"Ceuta",       L"Melilla"};
    static_assert(names.size() == 52);
    if (number < 1 || number > static_cast<int>(names.size())) return L"";
    return names.at(static_cast<std::size_t>(number) - 1);
}

}  // namespace ficha
