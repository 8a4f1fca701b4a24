#include "platform/windows/dialog/screen_scale.h"

#include <cstring>

namespace tamarind::platform {
namespace {

/// A function that only later systems have, or null. They are not linked, so that the program starts on every one.
template <typename Function> Function UserFunction(const char* name) {
    const FARPROC found = GetProcAddress(GetModuleHandleW(L"user32.dll"), name);
    Function function = nullptr;
    static_assert(sizeof function == sizeof found);
    std::memcpy(&function, &found, sizeof function);
    return function;
}

int SystemDpi() {
    HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    return dpi > 0 ? dpi : kPlainDpi;
}

} // namespace

int DpiOf(HWND window) {
    const auto dpiForWindow = UserFunction<UINT(WINAPI*)(HWND)>("GetDpiForWindow");
    const UINT dpi = window == nullptr || dpiForWindow == nullptr ? 0 : dpiForWindow(window);
    return dpi > 0 ? static_cast<int>(dpi) : SystemDpi();
}

int Scaled(int pixels, int dpi) { return MulDiv(pixels, dpi, kPlainDpi); }

HFONT MakeMessageFont(int dpi) {
    NONCLIENTMETRICSW metrics = {};
    metrics.cbSize = sizeof metrics;
    const auto forDpi = UserFunction<BOOL(WINAPI*)(UINT, UINT, PVOID, UINT, UINT)>("SystemParametersInfoForDpi");
    if (forDpi != nullptr &&
        forDpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, static_cast<UINT>(dpi)) != 0) {
        return CreateFontIndirectW(&metrics.lfMessageFont);
    }
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    metrics.lfMessageFont.lfHeight = MulDiv(metrics.lfMessageFont.lfHeight, dpi, SystemDpi());
    return CreateFontIndirectW(&metrics.lfMessageFont);
}

SIZE OuterSize(SIZE inside, DWORD style, int dpi) {
    RECT frame = {0, 0, inside.cx, inside.cy};
    const auto forDpi = UserFunction<BOOL(WINAPI*)(LPRECT, DWORD, BOOL, DWORD, UINT)>("AdjustWindowRectExForDpi");
    if (forDpi == nullptr || forDpi(&frame, style, FALSE, 0, static_cast<UINT>(dpi)) == 0) {
        AdjustWindowRectEx(&frame, style, FALSE, 0);
    }
    return {frame.right - frame.left, frame.bottom - frame.top};
}

} // namespace tamarind::platform
