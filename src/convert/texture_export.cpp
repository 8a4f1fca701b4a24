#include "convert/texture_export.h"

#include "convert/companion.h"
#include "convert/dds_header.h"
#include "convert/hex.h"
#include "convert/texture_xml.h"
#include "platform/myfile.h"
#include "platform/paths.h"
#include "platform/safe_write.h"
#include "text/runtime_error.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace tamarind::convert {

using platform::BusyPointer;
using platform::Icon;
using session::EditorContext;
using text::ErrorNumber;
using text::RuntimeError;

namespace {

constexpr const char* kUnable = "Sorry, unable to convert files of the following type at this time:-";

/// What of the XML becomes the picture.
struct Source {
    const TextureFormat* format = nullptr;
    Blobs found;
    std::vector<std::int32_t> sizes;
    DdsPicture picture;
};

bool Refuse(EditorContext& context, const std::string& text) {
    context.ui.Show({.text = text});
    return false;
}

bool TakeFormat(EditorContext& context, std::string_view xml, Source& source) {
    const std::optional<std::string_view> format = FormatText(xml);
    if (!format) return Refuse(context, "There is no texture in the text editor: its text has no \"<Format\".");
    source.format = FindFormat(*format);
    if (source.format != nullptr) return true;
    return Refuse(context, kUnable + (" " + std::string(*format)) + "\r\n");
}

bool TakeBlobs(EditorContext& context, std::string_view xml, Source& source) {
    source.found = FindBlobs(xml);
    if (source.found.blobs.size() > kMostBlobs) {
        return Refuse(context, std::string(kUnable) + "Multiple-Texture file.\r\n");
    }
    if (source.found.isBroken) {
        return Refuse(context, "This texture is damaged: a \"<d:blob\" in it has no size or no end.");
    }
    if (source.found.blobs.empty()) {
        return Refuse(context, "This texture holds no picture: there is no \"<d:blob\" in it.");
    }
    for (const Blob& blob : source.found.blobs)
        source.sizes.push_back(BlobSize(blob));
    return true;
}

bool TakeMeasures(EditorContext& context, std::string_view xml, Source& source) {
    DdsPicture& picture = source.picture;
    picture.layout = source.format->layout;
    picture.levels = source.sizes.size();
    picture.firstBlobSize = source.sizes.front();
    try {
        picture.width = ReadDimension(NumberText(xml, "<Width"));
        picture.height = ReadDimension(NumberText(xml, "<Height"));
        return true;
    } catch (const RuntimeError& error) {
        if (error.Code() != ErrorNumber::TypeMismatch) throw;
        return Refuse(context, "This texture is damaged: its width or height is no number.");
    }
}

/// The decoded bytes of all blobs, one directly behind the other.
std::vector<std::uint8_t> DecodeBlobs(EditorContext& context, const Source& source) {
    // A size may say anything; the memory taken is what the hex text can fill.
    const auto capacity = [&source](std::size_t i) {
        return std::min(static_cast<std::size_t>(source.sizes[i]), source.found.blobs[i].hex.size() / 2);
    };
    std::size_t most = 0;
    for (std::size_t i = 0; i < source.sizes.size(); ++i)
        most += capacity(i);
    std::vector<std::uint8_t> bytes(most);
    std::size_t count = 0;
    for (std::size_t i = 0; i < source.sizes.size(); ++i) {
        count += DecodeHex(source.found.blobs[i].hex, std::span(bytes).subspan(count, capacity(i)));
        context.ui.ProcessEvents();
    }
    bytes.resize(count);
    return bytes;
}

std::string_view View(std::span<const std::uint8_t> bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

/// Header and bytes, and zeros up to the sum of the sizes where the blobs are shorter.
void WritePicture(EditorContext& context, const std::string& path, const Source& source,
                  std::span<const std::uint8_t> bytes) {
    std::int64_t total = 0;
    for (const std::int32_t size : source.sizes)
        total += size;
    if (total > std::numeric_limits<std::int32_t>::max() - static_cast<std::int64_t>(kDdsHeaderSize)) {
        throw RuntimeError(ErrorNumber::Overflow);
    }
    const auto header = MakeDdsHeader(source.picture);
    platform::WriteSafely(context.platform.files, path, [&](platform::OutputFile& sink) {
        sink.Write(View(header));
        sink.Write(View(bytes));
        static constexpr std::array<std::uint8_t, 65536> kZeros{};
        for (auto missing = static_cast<std::size_t>(total) - bytes.size(); missing > 0;) {
            const std::size_t count = std::min(missing, kZeros.size());
            sink.Write(View(std::span(kZeros).first(count)));
            missing -= count;
        }
    });
}

/// Everything up to the closing message; nothing when it was refused.
std::optional<Source> Convert(EditorContext& context, const std::string& xml, const Exported& paths,
                              const std::string& original) {
    auto& files = context.platform.files;
    if (platform::FileExists(files, paths.dds)) files.Remove(paths.dds);
    context.ui.ProcessEvents();
    Source source;
    if (!TakeFormat(context, xml, source) || !TakeBlobs(context, xml, source) || !TakeMeasures(context, xml, source)) {
        return std::nullopt;
    }
    const std::vector<std::uint8_t> bytes = DecodeBlobs(context, source);
    // Never a new picture beside the companion of another texture.
    if (files.EntryExists(paths.dat)) files.Remove(paths.dat);
    WritePicture(context, paths.dds, source, bytes);
    context.ui.ProcessEvents();
    platform::WriteSafely(files, paths.dat, FormatCompanion(source.found.pieces, source.sizes, original));
    return source;
}

/// In the companion "#" stands for a double quote, so one that was there before comes back as such.
void WarnOfNumberSigns(EditorContext& context, const Blobs& found) {
    const auto hasSign = [](std::string_view piece) { return piece.find('#') != std::string_view::npos; };
    if (std::any_of(found.pieces.begin(), found.pieces.end(), hasSign)) {
        context.ui.ShowStatus("This texture's text holds the character #: it comes back as a double quote.");
    }
}

} // namespace

Exported ExportTexture(EditorContext& context) {
    if (context.session.FileBaseName.empty()) {
        context.ui.Show({.text = "Please open a texture first: there is none to convert."});
        return {};
    }
    Exported paths;
    paths.dds = context.session.TempFiles() + "\\" + context.session.FileBaseName + "dds";
    paths.dat = platform::WithLastThreeReplaced(paths.dds, "dat");
    std::optional<Source> source;
    {
        const BusyPointer busy(context.ui);
        const std::string original = context.view.FilePath();
        const std::string xml = context.view.EditorText();
        source = Convert(context, xml, paths, original);
        if (!source) return {};
        WarnOfNumberSigns(context, source->found);
    }
    context.ui.Show({.text = "If you wish to edit this file, then it must be saved with the following format:-\r\n"
                             "1. .DDS\r\n2. " +
                             std::string(source->format->label) + "\r\n3. Number of Mip-Maps - " +
                             std::to_string(source->sizes.size()),
                     .icon = Icon::Information,
                     .title = "Editing .dds files"});
    paths.done = true;
    return paths;
}

} // namespace tamarind::convert
