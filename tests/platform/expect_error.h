#pragma once

#include "text/runtime_error.h"

#include <gtest/gtest.h>
#include <optional>
#include <string>

namespace tamarind::tests {

/// The error that `step` throws; nothing when it throws none.
template <typename Step> std::optional<text::RuntimeError> ErrorOf(const Step& step) {
    try {
        step();
    } catch (const text::RuntimeError& error) {
        return error;
    }
    return std::nullopt;
}

/// Its number; 0 when `step` throws nothing.
template <typename Step> int NumberOfError(const Step& step) {
    const std::optional<text::RuntimeError> error = ErrorOf(step);
    return error ? error->Number() : 0;
}

template <typename Step> void ExpectError(const Step& step, text::ErrorNumber number) {
    EXPECT_EQ(NumberOfError(step), static_cast<int>(number));
}

} // namespace tamarind::tests
