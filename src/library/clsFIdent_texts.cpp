// clsFIdent: single texts.
#include "identifiers/identifier.h"
#include "library/clsFIdent.h"
#include "runtime/failure.h"

namespace kovrel {

Identifier clsFIdent::rule_of(eIdentificador Tipo) {
    if (Tipo < eIdentificador::idNIF || Tipo > eIdentificador::idEAN13) {
        throw Failure(FailureNumber::invalid_argument);
    }
    return static_cast<Identifier>(Tipo);
}

bool clsFIdent::Comprueba(eIdentificador Tipo, std::wstring_view Texto, eMotivo& Motivo) const {
    Motivo = MotivoDe(Tipo, Texto);
    return Motivo == eMotivo::moCorrecto;
}

eMotivo clsFIdent::MotivoDe(eIdentificador Tipo, std::wstring_view Texto) const {
    return static_cast<eMotivo>(identifier_fault(rule_of(Tipo), Texto));
}

std::wstring clsFIdent::TextoMotivo(eMotivo Motivo) const {
    if (Motivo < eMotivo::moCorrecto || Motivo > eMotivo::moCuenta) {
        throw Failure(FailureNumber::invalid_argument);
    }
    return std::wstring(fault_text(static_cast<IdentifierFault>(Motivo)));
}

eIdentificador clsFIdent::TipoDe(std::wstring_view Texto) const {
    return static_cast<eIdentificador>(identifier_kind(Texto));
}

std::wstring clsFIdent::TextoTipo(eIdentificador Tipo) const {
    return std::wstring(kind_text(rule_of(Tipo)));
}

std::wstring clsFIdent::Normaliza(eIdentificador Tipo, std::wstring_view Texto) const {
    return normalized_identifier(rule_of(Tipo), Texto);
}

std::wstring clsFIdent::Formatea(eIdentificador Tipo, std::wstring_view Texto) const {
    return formatted_identifier(rule_of(Tipo), Texto);
}

std::wstring clsFIdent::Corrige(eIdentificador Tipo, std::wstring_view Texto) const {
    return corrected_identifier(rule_of(Tipo), Texto).value_or(std::wstring());
}

std::wstring clsFIdent::Titular(std::wstring_view Nif) const {
    return std::wstring(holder_kind(Nif));
}

std::wstring clsFIdent::CCCaIBAN(std::wstring_view CCC) const {
    return iban_of_account(CCC).value_or(std::wstring());
}

std::wstring clsFIdent::IBANaCCC(std::wstring_view IBAN) const {
    return account_of_iban(IBAN).value_or(std::wstring());
}

}  // namespace kovrel
