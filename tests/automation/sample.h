// A class of the tests' own, declared as the library's classes are, with one member for each thing
// that the engine must get right.
#pragma once

#include "automation/class_info.h"
#include "automation/native_type.h"

namespace kovrel::test {

struct SampleNames : TextRecord<3> {
    static const RecordInfo info;
};

class Sample {
 public:
    static const ClassInfo class_info;

    std::int32_t Campo = 0;

    [[nodiscard]] std::wstring get_Nombre() const { return name_; }
    void set_Nombre(const std::wstring& name) { name_ = name; }
    [[nodiscard]] ComPtr<IDispatch> get_Objeto() const { return object_; }
    void set_Objeto(ComPtr<IDispatch> object) { object_ = std::move(object); }

    /// Doubles the variable and returns what it was.
    std::int16_t Doble(std::int16_t& valor);
    std::wstring Añade(std::wstring& texto, std::wstring sufijo);
    std::wstring Resta(std::int32_t primero, std::int32_t segundo, std::int32_t tercero);
    Variant Eco(const Variant& valor);
    void Cambia(Variant& valor, std::wstring por);
    bool Bandera(const bool& bandera);
    std::wstring Presencia(Variant opcional, std::wstring texto, std::int16_t numero);
    Date Mañana(Date dia);
    double Mitad(const double& valor);
    std::uint8_t Octeto(std::uint8_t valor);
    float Simple(float valor);
    bool HayObjeto(const ComPtr<IDispatch>& objeto);
    std::wstring Une(const SampleNames& nombres);
    void Falla(std::int32_t numero, std::int16_t& escrito);
    void SinMemoria();
    void Otra();

 private:
    std::wstring name_;
    ComPtr<IDispatch> object_;
};

}  // namespace kovrel::test
