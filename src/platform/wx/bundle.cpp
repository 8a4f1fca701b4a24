#include "platform/wx/bundle.h"

#define STB_IMAGE_IMPLEMENTATION
#define STB_IMAGE_STATIC
#define STBI_ONLY_PNG
#define STBI_NO_STDIO
#include <stb/stb_image.h>

#include <wx/image.h>

#include <memory>

namespace tamarind::platform {

wxBitmap BitmapFromPng(const unsigned char* png, std::size_t size) {
    constexpr int kChannels = 4;
    int width = 0;
    int height = 0;
    const std::unique_ptr<stbi_uc, void (*)(void*)> pixels(
        stbi_load_from_memory(png, static_cast<int>(size), &width, &height, nullptr, kChannels), stbi_image_free);
    if (!pixels) return {};
    wxImage image(width, height);
    image.InitAlpha();
    const stbi_uc* pixel = pixels.get();
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x, pixel += kChannels) {
            image.SetRGB(x, y, pixel[0], pixel[1], pixel[2]);
            image.SetAlpha(x, y, pixel[3]);
        }
    }
    return wxBitmap(image);
}

} // namespace tamarind::platform
