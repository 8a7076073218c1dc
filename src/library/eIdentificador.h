// The kinds of identifiers.
#pragma once

#include <cstdint>

#include "automation/class_info.h"
#include "identifiers/identifier.h"

namespace kovrel {

enum class eIdentificador : std::int32_t {
    idDesconocido = static_cast<std::int32_t>(Identifier::none),
    idNIF = static_cast<std::int32_t>(Identifier::nif),
    idDNI = static_cast<std::int32_t>(Identifier::dni),
    idNIE = static_cast<std::int32_t>(Identifier::nie),
    idNIFPersonal = static_cast<std::int32_t>(Identifier::personal_nif),
    idNIFEntidad = static_cast<std::int32_t>(Identifier::entity_nif),
    idCCC = static_cast<std::int32_t>(Identifier::bank_account),
    idIBAN = static_cast<std::int32_t>(Identifier::iban),
    idBIC = static_cast<std::int32_t>(Identifier::bic),
    idAcreedorSEPA = static_cast<std::int32_t>(Identifier::creditor),
    idIVA = static_cast<std::int32_t>(Identifier::vat),
    idSeguridadSocial = static_cast<std::int32_t>(Identifier::social_security),
    idCuentaCotizacion = static_cast<std::int32_t>(Identifier::contribution_account),
    idCodigoPostal = static_cast<std::int32_t>(Identifier::postal_code),
    idCUPS = static_cast<std::int32_t>(Identifier::cups),
    idReferenciaCatastral = static_cast<std::int32_t>(Identifier::cadastral_reference),
    idTarjeta = static_cast<std::int32_t>(Identifier::payment_card),
    idEAN13 = static_cast<std::int32_t>(Identifier::ean13),
};

extern const EnumInfo eIdentificador_info;

[[nodiscard]] constexpr const EnumInfo& enumeration_info(eIdentificador /*type*/) noexcept {
    return eIdentificador_info;
}

}  // namespace kovrel
