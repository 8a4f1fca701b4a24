#include "convert/png.h"

#include "text/runtime_error.h"

#include <algorithm>
#include <cstdlib>

// Never none: what an allocation of 0 bytes gives is the system's choice.
#define STBIW_MALLOC(size) std::malloc(std::max<std::size_t>(static_cast<std::size_t>(size), 1))
#define STBIW_REALLOC(memory, size) std::realloc(memory, size)
#define STBIW_FREE(memory) std::free(memory)
#define STB_IMAGE_WRITE_IMPLEMENTATION
#define STB_IMAGE_WRITE_STATIC
#define STBI_WRITE_NO_STDIO
#include <stb/stb_image_write.h>

namespace tamarind::convert {

std::string EncodePng(const Picture& picture) {
    constexpr int kChannels = 4;
    std::string bytes;
    const auto append = [](void* target, void* data, int size) {
        static_cast<std::string*>(target)->append(static_cast<const char*>(data), static_cast<std::size_t>(size));
    };
    const bool isEmpty = picture.width < 1 || picture.height < 1;
    if (isEmpty || stbi_write_png_to_func(append, &bytes, picture.width, picture.height, kChannels, picture.rgba.data(),
                                          picture.width * kChannels) == 0) {
        throw text::RuntimeError(text::ErrorNumber::DeviceIoError,
                                 "The picture is empty, or there is not enough memory for it.");
    }
    return bytes;
}

} // namespace tamarind::convert
