#pragma once

#include "text/runtime_error.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace tamarind::markers {

/// The error that ends an action, or nothing.
template <typename Action> std::optional<text::RuntimeError> ErrorOf(const Action& action) {
    try {
        static_cast<void>(action());
    } catch (const text::RuntimeError& error) {
        return error;
    }
    return std::nullopt;
}

/// Expects that an action fails with this error, and tells why in a sentence that holds `words`.
template <typename Action> void ExpectError(text::ErrorNumber number, const std::string& words, const Action& action) {
    const auto error = ErrorOf(action);
    ASSERT_TRUE(error.has_value()) << "nothing failed";
    EXPECT_EQ(error->Code(), number);
    EXPECT_NE(error->Details().find(words), std::string::npos) << error->Details();
}

} // namespace tamarind::markers
