#pragma once

#include <windows.h>

namespace tamarind::platform {

/// What 100 % is.
inline constexpr int kPlainDpi = 96;

/// The resolution at which the window is shown; before it is shown, with no window, the system's.
[[nodiscard]] int DpiOf(HWND window);

/// Pixels of a screen of 96 dpi on one of `dpi`.
[[nodiscard]] int Scaled(int pixels, int dpi);

/// The system's font for messages, at that resolution. The caller deletes it.
[[nodiscard]] HFONT MakeMessageFont(int dpi);

/// The outer size of a window with that inside.
[[nodiscard]] SIZE OuterSize(SIZE inside, DWORD style, int dpi);

} // namespace tamarind::platform
