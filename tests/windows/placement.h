#pragma once

class wxWindow;

namespace tamarind::tests {

/// Expects of every control within the window, at any depth, that it lies inside of what holds it, covers no other one
/// and is large enough for its caption. Returns how many there are.
int ExpectWellPlaced(const wxWindow& window);

} // namespace tamarind::tests
