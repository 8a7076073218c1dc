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

}  // namespace
}  // namespace kovrel
