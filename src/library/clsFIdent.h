// The identifiers in use today, checked without a word to the user and with a reason that can be
// stored.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "automation/class_info.h"
#include "automation/native_type.h"
#include "library/eIdentificador.h"
#include "library/eMotivo.h"

namespace kovrel {

/// Failure 5 for a kind that the enumeration has not, and for idDesconocido where a text is to be
/// checked, normalized, formatted or corrected.
class clsFIdent {
 public:
    static const ClassInfo class_info;

    [[nodiscard]] bool Comprueba(eIdentificador Tipo, std::wstring_view Texto,
                                 eMotivo& Motivo) const;
    [[nodiscard]] eMotivo MotivoDe(eIdentificador Tipo, std::wstring_view Texto) const;
    /// Failure 5 for a reason that the enumeration has not.
    [[nodiscard]] std::wstring TextoMotivo(eMotivo Motivo) const;
    /// idDesconocido for a text that is none of them.
    [[nodiscard]] eIdentificador TipoDe(std::wstring_view Texto) const;
    [[nodiscard]] std::wstring TextoTipo(eIdentificador Tipo) const;
    [[nodiscard]] std::wstring Normaliza(eIdentificador Tipo, std::wstring_view Texto) const;
    [[nodiscard]] std::wstring Formatea(eIdentificador Tipo, std::wstring_view Texto) const;
    /// Empty when the right text cannot be known.
    [[nodiscard]] std::wstring Corrige(eIdentificador Tipo, std::wstring_view Texto) const;
    /// Empty for a text that is no right NIF.
    [[nodiscard]] std::wstring Titular(std::wstring_view Nif) const;
    /// Empty for a wrong CCC.
    [[nodiscard]] std::wstring CCCaIBAN(std::wstring_view CCC) const;
    /// Empty for anything but a right Spanish IBAN.
    [[nodiscard]] std::wstring IBANaCCC(std::wstring_view IBAN) const;
    /// An array of reasons. `Lista` is an array of one dimension, or one as GetRows gives them,
    /// with the fields first, of which `Columna` is the index of one. `Progreso` is Nothing or the
    /// clsFGen whose progress window shows how far it is. Failure 13 for anything but an array of
    /// texts or variants, 9 for another number of dimensions or a column that is not there.
    [[nodiscard]] Variant CompruebaLista(eIdentificador Tipo, ValueArgument Lista,
                                         std::int32_t Columna, ComPtr<IDispatch> Progreso) const;
    /// The number of records whose field is wrong, and their places, from 1. The recordset is read
    /// from its first record, and is left where it was if it has bookmarks.
    [[nodiscard]] std::int32_t CompruebaRecordset(eIdentificador Tipo,
                                                  ComPtr<IDispatch> rsRecordset,
                                                  std::wstring_view Campo, Variant& Posiciones,
                                                  ComPtr<IDispatch> Progreso) const;

 private:
    [[nodiscard]] static Identifier rule_of(eIdentificador Tipo);
};

}  // namespace kovrel
