#include "convert/texture_import.h"

#include "convert/companion.h"
#include "convert/dds_header.h"
#include "convert/hex.h"
#include "convert/working_files.h"
#include "platform/converter.h"
#include "platform/myfile.h"
#include "platform/paths.h"
#include "platform/safe_write.h"
#include "text/code_page.h"
#include "text/runtime_error.h"
#include "text/search.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>
#include <variant>

#include <fmt/format.h>

namespace tamarind::convert {

using platform::Answer;
using platform::BusyPointer;
using platform::Buttons;
using platform::Files;
using platform::ForDisplay;
using session::EditorContext;
using text::ErrorNumber;
using text::RuntimeError;
using Ending = Imported::Ending;

namespace {

/// The files that one import works with.
struct Paths {
    explicit Paths(const std::string& chosen)
        : dds(chosen), dat(platform::WithLastThreeReplaced(chosen, "dat")),
          xml(platform::WithLastThreeReplaced(chosen, "xml")), binary(platform::WithLastThreeReplaced(chosen, "bin")) {}

    std::string dds;
    std::string dat;
    std::string xml;
    std::string binary;
};

/// Nothing when it was refused.
std::optional<Companion> ReadCompanion(EditorContext& context, const Paths& paths) {
    auto& files = context.platform.files;
    if (!platform::FileExists(files, paths.dat)) {
        context.ui.Show({.text = "No header file found in TempFiles for this .dds file, cannot process further."});
        return std::nullopt;
    }
    auto read = ParseCompanion(platform::ReadBytes(files, paths.dat));
    if (const auto* const fault = std::get_if<CompanionFault>(&read)) {
        context.ui.Show(
            {.text = fmt::format("{}\r\ncannot be used: in line {} there should be {}. Nothing was changed.",
                                 ForDisplay(paths.dat), fault->line, fault->expected)});
        return std::nullopt;
    }
    return std::get<Companion>(std::move(read));
}

/// Working files beside a .dds outside TempFiles may be somebody's own, and the game file must be none of them.
bool AreOurs(EditorContext& context, const Paths& paths, const std::string& original) {
    const auto isOriginal = [&original](const std::string& path) { return text::EqualNoCase(path, original); };
    for (const std::string& path : {paths.xml, paths.binary}) {
        const bool isWorkingFolder = text::EqualNoCase(platform::FolderOf(path), context.session.TempFiles());
        if (!isOriginal(path) && (isWorkingFolder || !context.platform.files.EntryExists(path))) continue;
        context.ui.Show({.text = ForDisplay(path) + "\r\nwould be overwritten. Please put the .dds file and its .dat "
                                                    "file into TempFiles. Nothing was changed."});
        return false;
    }
    return true;
}

bool Confirm(EditorContext& context, const Paths& paths, const std::string& original) {
    return context.ui.Show({.text = "This option will convert your modified file " + ForDisplay(paths.dds) + "\r\nto " +
                                    ForDisplay(original) + "\r\nand create a backup of the original file. Continue?",
                            .buttons = Buttons::YesNo}) == Answer::Yes;
}

/// A piece of XML and a line end, without each line feed that stands directly before the end of a blob.
void AppendPiece(std::string& xml, std::string_view piece) {
    constexpr std::string_view kBlobEnd = "</d:blob";
    if (piece.starts_with(kBlobEnd) && xml.ends_with('\n')) xml.pop_back();
    for (std::size_t end = piece.find(kBlobEnd, 1); end != std::string_view::npos; end = piece.find(kBlobEnd, 1)) {
        const std::size_t kept = piece[end - 1] == '\n' ? end - 1 : end;
        xml += piece.substr(0, kept);
        piece.remove_prefix(end);
    }
    xml += piece;
    xml += "\r\n";
}

/// The texture's XML with the picture's pixels: each blob takes its size of them, as long as there are any.
std::string RebuildXml(EditorContext& context, const Companion& companion, const std::string& picture) {
    std::string_view pixels = picture;
    pixels.remove_prefix(std::min(kDdsHeaderSize, pixels.size()));
    std::size_t length = HexLinesLength(pixels.size()) + companion.sizes.size();
    for (const std::string& piece : companion.pieces)
        length += piece.size() + 2;
    std::string xml;
    xml.reserve(length);
    AppendPiece(xml, companion.pieces.front());
    bool isShort = false;
    for (std::size_t i = 0; i < companion.sizes.size(); ++i) {
        const auto size = static_cast<std::size_t>(companion.sizes[i]);
        isShort = isShort || pixels.size() < size;
        AppendHexLines(xml, pixels.substr(0, size));
        pixels.remove_prefix(std::min(size, pixels.size()));
        AppendPiece(xml, companion.pieces[i + 1]);
    }
    if (isShort) context.ui.ShowStatus("The picture is smaller than the texture was: its last levels stay short.");
    return xml;
}

/// The rebuilt XML in the text editor and in its file; false when it could not be written, which was shown.
bool WriteXml(EditorContext& context, const Paths& paths, const Companion& companion) {
    auto& files = context.platform.files;
    const std::string xml = RebuildXml(context, companion, platform::ReadBytes(files, paths.dds));
    ReplaceEditorText(context, xml);
    return platform::WriteUniFile(files, context.ui, paths.xml, xml);
}

/// The game file is in place already: a working file that stays does no harm.
void RemoveQuietly(Files& files, const std::string& path) {
    try {
        files.Remove(path, true);
    } catch (const RuntimeError&) {
        return;
    }
}

/// The converter's output takes the place of the game file, whose name is free; across file systems by a copy.
void PutInPlace(Files& files, const std::string& output, const std::string& original, const std::string& backup) {
    files.CopyAttributes(backup, output);
    try {
        files.Rename(output, original);
        return;
    } catch (const RuntimeError&) {
        if (files.EntryExists(original) || !files.EntryExists(output)) throw;
    }
    platform::CopyFile(files, output, original);
    RemoveQuietly(files, output);
}

/// Converts the XML and puts the result in the game file's place. Throws FileNotFound when there is no result.
void ConvertAndPlace(EditorContext& context, const Paths& paths, const std::string& original,
                     const std::string& backup) {
    auto& files = context.platform.files;
    platform::ConvertToTexture(context.platform.processes, context.ui, context.ConverterFolders(),
                               context.session.TempFiles(), paths.xml, paths.binary);
    if (!platform::FileExists(files, paths.binary)) {
        throw RuntimeError(ErrorNumber::FileNotFound, "The converter did not write " + ForDisplay(paths.binary) + ".");
    }
    if (!backup.empty()) {
        PutInPlace(files, paths.binary, original, backup);
        return;
    }
    platform::ReplaceGameFile(files, original, paths.binary);
    RemoveQuietly(files, paths.binary);
}

/// After a failure: says where the old content is and offers to put it back. Returns what came of it.
std::string OfferBackup(EditorContext& context, const RuntimeError& error, const std::string& original,
                        const std::string& backup) {
    auto& files = context.platform.files;
    const std::string where = "The original content of " + ForDisplay(original) + " is in " + ForDisplay(backup) + ".";
    if (files.EntryExists(original)) return where;
    const std::string cause = error.Details().empty() ? "" : "\r\n" + ForDisplay(error.Details());
    if (context.ui.Show({.text = error.Description() + cause + "\r\n" + where + "\r\nPut it back at once?",
                         .buttons = Buttons::YesNo}) != Answer::Yes) {
        return where;
    }
    try {
        files.Rename(backup, original);
        return "The game file is unchanged.";
    } catch (const RuntimeError& second) {
        return "It could not be put back: " + second.Description() + ". " + where;
    }
}

/// From the XML to the game file; returns the backup.
std::string ReplaceOriginal(EditorContext& context, const Paths& paths, const std::string& original) {
    auto& files = context.platform.files;
    // Otherwise an output left from before would pass for the one of a failed conversion.
    if (files.EntryExists(paths.binary)) files.Remove(paths.binary, true);
    std::string backup = platform::FreeBackupName(files, original);
    if (!backup.empty()) files.Rename(original, backup);
    try {
        ConvertAndPlace(context, paths, original, backup);
    } catch (const RuntimeError& error) {
        if (backup.empty()) throw error.With("No backup name is free: the game file has not been renamed.");
        throw error.With(OfferBackup(context, error, original, backup));
    }
    return backup;
}

} // namespace

Imported ImportTexture(EditorContext& context) {
    const std::string chosen = context.ui.AskForFile(
        {.title = "View .dds file", .filter = "DDS Files (*.dds)|*.dds", .startFolder = context.session.TempFiles()});
    return chosen.empty() ? Imported{} : ImportTextureFrom(context, chosen);
}

Imported ImportTextureFrom(EditorContext& context, const std::string& dds) {
    const Paths paths(dds);
    const BusyPointer busy(context.ui);
    const std::optional<Companion> companion = ReadCompanion(context, paths);
    if (!companion) return {Ending::Refused};
    const std::string& original = companion->original;
    const std::string tempBase = platform::WithLastThreeReplaced(dds, "");
    if (!AreOurs(context, paths, original) || !MayConvert(context, tempBase, original)) return {Ending::Refused};
    const Converting converting(context.session, tempBase);
    if (!Confirm(context, paths, original)) return {Ending::Declined};
    if (!WriteXml(context, paths, *companion)) return {Ending::Refused};
    const std::string backup = ReplaceOriginal(context, paths, original);
    const std::string kept = backup.empty() ? "" : ", old content in " + ForDisplay(backup);
    context.ui.ShowStatus("Saved " + ForDisplay(original) + kept);
    return {Ending::Done, original, backup};
}

} // namespace tamarind::convert
