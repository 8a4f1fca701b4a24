// The plainest programs that do a texture's two ways, with a table for the digits:
//   plain_texture make XML           writes a DXT1 texture of 4096 x 4096 with 13 levels
//   plain_texture export XML DDS     a header's worth of zeros, and the bytes of all blobs
//   plain_texture import DDS XML     all bytes as one blob's lines of hexadecimal digits
#include "measure.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>

namespace {

constexpr std::size_t kHeader = 128;
constexpr std::string_view kDigits = "0123456789ABCDEF";

std::string Read(const char* path) {
    std::FILE* const file = std::fopen(path, "rb");
    if (file == nullptr) return {};
    std::fseek(file, 0, SEEK_END);
    std::string bytes(static_cast<std::size_t>(std::ftell(file)), '\0');
    std::rewind(file);
    bytes.resize(std::fread(bytes.data(), 1, bytes.size(), file));
    std::fclose(file);
    return bytes;
}

bool Write(const char* path, std::string_view bytes) {
    std::FILE* const file = std::fopen(path, "wb");
    const bool written = file != nullptr && std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
    return file != nullptr && std::fclose(file) == 0 && written;
}

void AppendLines(std::string& text, std::string_view bytes) {
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        text += kDigits[byte / 16];
        text += kDigits[byte % 16];
        if (i % 8 == 7 || i + 1 == bytes.size()) text += i % 32 == 31 || i + 1 == bytes.size() ? '\n' : ' ';
    }
}

std::string MakeTexture() {
    std::string xml = "<T>\r\n<Width>4096</Width>\r\n<Height>4096</Height>\r\n"
                      "<Format>HC_IMAGE_FORMAT_COMPRESSED</Format>\r\n";
    std::uint32_t random = 1;
    for (std::size_t side = 4096; side >= 1; side /= 2) {
        const std::size_t across = std::max<std::size_t>(side / 4, 1);
        std::string bytes(across * across * 8, '\0');
        for (char& byte : bytes) {
            random = random * 1664525U + 1013904223U;
            byte = static_cast<char>(random >> 24);
        }
        xml += "<d:blob d:size=\"" + std::to_string(bytes.size()) + "\">";
        AppendLines(xml, bytes);
        xml.pop_back();
        xml += "</d:blob>\r\n";
    }
    return xml + "</T>\r\n";
}

std::string Export(const std::string& xml) {
    std::array<signed char, 256> values{};
    values.fill(-1);
    for (std::size_t i = 0; i < kDigits.size(); ++i)
        values[static_cast<unsigned char>(kDigits[i])] = static_cast<signed char>(i);
    std::string dds(kHeader, '\0');
    dds.reserve(kHeader + xml.size() / 2);
    for (std::size_t at = xml.find("<d:blob"); at != std::string::npos; at = xml.find("<d:blob", at)) {
        const std::size_t end = xml.find("</d:blob", at);
        int first = -1;
        for (at = xml.find('>', at) + 1; at < end; ++at) {
            const int value = values[static_cast<unsigned char>(xml[at])];
            if (value < 0) continue;
            if (first < 0) {
                first = value;
            } else {
                dds += static_cast<char>(first * 16 + value);
                first = -1;
            }
        }
    }
    return dds;
}

std::string Import(const std::string& dds) {
    std::string xml = "<T>\r\n<d:blob d:size=\"1\">";
    xml.reserve(dds.size() * 2 + dds.size() / 4);
    AppendLines(xml, std::string_view(dds).substr(std::min(kHeader, dds.size())));
    return xml + "</d:blob>\r\n</T>\r\n";
}

} // namespace

int main(int argc, char** argv) {
    const tamarind::bench::Measure measure;
    if (argc == 3 && std::strcmp(argv[1], "make") == 0) return Write(argv[2], MakeTexture()) ? 0 : 1;
    if (argc != 4) {
        std::fputs("plain_texture make XML | export XML DDS | import DDS XML\n", stderr);
        return 2;
    }
    const std::string input = Read(argv[2]);
    const bool exports = std::strcmp(argv[1], "export") == 0;
    if (!Write(argv[3], exports ? Export(input) : Import(input))) return 1;
    measure.Print();
    return 0;
}
