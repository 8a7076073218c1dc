#include "runtime/failure.h"

#include <gtest/gtest.h>

namespace kovrel {
namespace {

TEST(Failure, TakesTheDescriptionOfItsNumber) {
    const Failure failure(FailureNumber::action_not_supported);
    EXPECT_EQ(failure.number(), 445);
    EXPECT_EQ(failure.description(), L"El objeto no admite esta acción");
}

TEST(Failure, KeepsTheDescriptionThatAHostsObjectGave) {
    const Failure failure(-2147217900, L"Error de sintaxis");
    EXPECT_EQ(failure.number(), -2147217900);
    EXPECT_EQ(failure.description(), L"Error de sintaxis");
}

TEST(Failure, AnUnknownNumberHasNoDescription) {
    EXPECT_EQ(failure_description(12345), L"");
}

TEST(Failure, EveryNumberHasItsDescription) {
    EXPECT_EQ(failure_description(5), L"Llamada a procedimiento o argumento no válidos");
    EXPECT_EQ(failure_description(6), L"Desbordamiento");
    EXPECT_EQ(failure_description(7), L"Memoria insuficiente");
    EXPECT_EQ(failure_description(9), L"Subíndice fuera del intervalo");
    EXPECT_EQ(failure_description(10), L"La matriz es fija o está bloqueada temporalmente");
    EXPECT_EQ(failure_description(11), L"División por cero");
    EXPECT_EQ(failure_description(13), L"No coinciden los tipos");
    EXPECT_EQ(failure_description(48), L"Error al cargar el archivo DLL");
    EXPECT_EQ(failure_description(52), L"Nombre o número de archivo incorrecto");
    EXPECT_EQ(failure_description(53), L"No se encontró el archivo");
    EXPECT_EQ(failure_description(57), L"Error de E/S de dispositivo");
    EXPECT_EQ(failure_description(58), L"El archivo ya existe");
    EXPECT_EQ(failure_description(61), L"Disco lleno");
    EXPECT_EQ(failure_description(62), L"La entrada supera el fin de archivo");
    EXPECT_EQ(failure_description(68), L"Dispositivo no disponible");
    EXPECT_EQ(failure_description(70), L"Permiso denegado");
    EXPECT_EQ(failure_description(71), L"El disco no está listo");
    EXPECT_EQ(failure_description(75), L"Error de acceso a la ruta o al archivo");
    EXPECT_EQ(failure_description(76), L"No se encontró la ruta de acceso");
    EXPECT_EQ(failure_description(91), L"Variable de objeto o bloque With no establecido");
    EXPECT_EQ(failure_description(94), L"Uso no válido de Null");
    EXPECT_EQ(failure_description(400),
              L"El formulario ya se muestra; no puede mostrarse de forma modal");
    EXPECT_EQ(failure_description(424), L"Se requiere un objeto");
    EXPECT_EQ(failure_description(429), L"El componente ActiveX no puede crear el objeto");
    EXPECT_EQ(failure_description(438), L"El objeto no admite esta propiedad o método");
    EXPECT_EQ(failure_description(445), L"El objeto no admite esta acción");
    EXPECT_EQ(failure_description(446), L"El objeto no admite argumentos con nombre");
    EXPECT_EQ(failure_description(447), L"El objeto no admite la configuración regional actual");
    EXPECT_EQ(failure_description(448), L"No se encontró el argumento con nombre");
    EXPECT_EQ(failure_description(449), L"Argumento no opcional");
    EXPECT_EQ(failure_description(450),
              L"Número de argumentos incorrecto o asignación de propiedad no válida");
    EXPECT_EQ(failure_description(451), L"El objeto no es una colección");
    EXPECT_EQ(failure_description(453), L"No se encontró la función DLL especificada");
    EXPECT_EQ(failure_description(458), L"La variable usa un tipo de automatización no admitido");
    EXPECT_EQ(failure_description(481), L"Imagen no válida");
    EXPECT_EQ(failure_description(521), L"No se puede abrir el Portapapeles");
}

}  // namespace
}  // namespace kovrel
