// Zip archives with what people expect of them today: folders, any name, what happened to each
// file, and taking out.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "automation/class_info.h"
#include "automation/native_type.h"
#include "library/app_origin.h"
#include "library/clsEntradas.h"
#include "library/eExistentes.h"
#include "library/eModoArchivo.h"
#include "zip/archive_engine.h"

namespace kovrel {

/// Lists of names and patterns are texts with "|" between them. For the failures see
/// zip/archive_engine.h. Every operation tells how far it is: in the window of `Progreso`, a
/// clsFGen, or without one to the thread's clsAvisos; cancelled, it ends with what it has reached,
/// an archive that was being written stays as it was, and the result's Cancelado is true.
class clsFArchivo : public AppOrigen {
 public:
    static const ClassInfo class_info;

    [[nodiscard]] std::int32_t get_Nivel() const { return level_; }
    /// 0 (stored), 1 (fastest) to 9 (smallest). Failure 5.
    void set_Nivel(std::int32_t level);
    [[nodiscard]] double get_LimiteBytes() const { return most_bytes_; }
    /// Failure 5 for a negative one, or one past 2^63.
    void set_LimiteBytes(double bytes);
    [[nodiscard]] std::int32_t get_LimiteProporcion() const { return most_ratio_; }
    /// Failure 5 below 1.
    void set_LimiteProporcion(std::int32_t ratio);
    [[nodiscard]] eExistentes get_Existentes() const { return existing_; }
    /// Failure 5.
    void set_Existentes(eExistentes existing);

    /// `Ficheros`: a text, or an array of texts.
    [[nodiscard]] InstanceOf<clsEntradas> Comprime(std::wstring_view Archivo,
                                                   ValueArgument Ficheros, std::wstring_view Base,
                                                   eModoArchivo Modo,
                                                   ComPtr<IDispatch> Progreso) const;
    [[nodiscard]] InstanceOf<clsEntradas> Lista(std::wstring_view Archivo) const;
    [[nodiscard]] InstanceOf<clsEntradas> Prueba(std::wstring_view Archivo,
                                                 std::wstring_view Patrones,
                                                 ComPtr<IDispatch> Progreso) const;
    [[nodiscard]] InstanceOf<clsEntradas> Extrae(std::wstring_view Archivo,
                                                 std::wstring_view Carpeta,
                                                 std::wstring_view Patrones,
                                                 ComPtr<IDispatch> Progreso) const;

    bool Recursivo = true;
    bool Ocultos = true;
    bool SinCarpetas = false;
    std::wstring Excluye;
    std::wstring Comentario;

 private:
    [[nodiscard]] TakeRequest request_of(std::wstring_view patterns) const;

    std::int32_t level_ = 6;
    double most_bytes_ = 4294967296.0;
    std::int32_t most_ratio_ = 250;
    eExistentes existing_ = eExistentes::exConserva;
};

}  // namespace kovrel
