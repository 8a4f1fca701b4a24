#include "cli/texture_commands.h"

#include "cli/prepare.h"
#include "convert/game_file.h"
#include "convert/png.h"
#include "convert/texture_export.h"
#include "convert/texture_import.h"
#include "convert/texture_picture.h"
#include "platform/paths.h"
#include "platform/safe_write.h"
#include "text/runtime_error.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace tamarind::cli {

using nlohmann::ordered_json;
using session::EditorContext;

namespace {

/// One file of a command. `json` is its result, without the file where one of several would need it.
using OneFile = Result (*)(EditorContext& context, const std::string& file);

bool OpenTexture(EditorContext& context, const std::string& file) {
    context.session.CommandFile = platform::FromNative(file);
    context.session.UseCommandFile = true;
    return convert::OpenTextureFile(context);
}

Result Export(EditorContext& context, const std::string& file) {
    if (!OpenTexture(context, file)) return {Outcome::Failed};
    const convert::Exported exported = convert::ExportTexture(context);
    if (!exported.done) return {Outcome::Failed};
    const std::string dds = platform::ToNative(exported.dds);
    const std::string dat = platform::ToNative(exported.dat);
    return {Outcome::Done, {{"dds", dds}, {"dat", dat}}, dds + "\t" + dat + "\n"};
}

Outcome OutcomeOf(convert::Imported::Ending ending) {
    switch (ending) {
    case convert::Imported::Ending::Done: return Outcome::Done;
    case convert::Imported::Ending::Refused: return Outcome::Failed;
    case convert::Imported::Ending::Declined: return Outcome::Declined;
    }
    return Outcome::Failed;
}

Result Import(EditorContext& context, const std::string& dds) {
    const convert::Imported imported = convert::ImportTextureFrom(context, platform::FromNative(dds));
    if (imported.ending != convert::Imported::Ending::Done) return {OutcomeOf(imported.ending)};
    const std::string file = platform::ToNative(imported.file);
    const std::string backup = imported.backup.empty() ? "" : platform::ToNative(imported.backup);
    return {Outcome::Done,
            {{"file", file}, {"backup", backup.empty() ? ordered_json() : ordered_json(backup)}},
            file + "\t" + backup + "\n"};
}

/// One of several files: an error that ends it is told, and does not end the command.
Result RunOne(EditorContext& context, const std::string& file, OneFile command, ordered_json& error) {
    try {
        return command(context, file);
    } catch (const text::RuntimeError& caught) {
        error = {{"number", caught.Number()}, {"description", caught.Description()}};
        const std::string details = caught.Details().empty() ? "" : "\r\n" + platform::ForDisplay(caught.Details());
        context.ui.ShowStatus(
            fmt::format("{}: Run-time error {}: {}{}", file, caught.Number(), caught.Description(), details));
        return {Outcome::Failed};
    }
}

/// The worst of both: a failure, then a No.
Outcome Worse(Outcome left, Outcome right) {
    const auto rank = [](Outcome outcome) {
        return outcome == Outcome::Failed ? 2 : outcome == Outcome::Declined ? 1 : 0;
    };
    return std::max(left, right, [&rank](Outcome a, Outcome b) { return rank(a) < rank(b); });
}

/// One file as the command says, several as a list of what came of each.
Result RunEach(EditorContext& context, const Arguments& arguments, OneFile command) {
    PrepareGame(context, arguments);
    if (arguments.files.size() == 1) return command(context, arguments.files.front());
    Result all{Outcome::Done, ordered_json::object({{"files", ordered_json::array()}})};
    for (const std::string& file : arguments.files) {
        ordered_json error;
        Result one = RunOne(context, file, command, error);
        all.outcome = Worse(all.outcome, one.outcome);
        all.lines += one.lines;
        all.json["files"].push_back({{"argument", file}, {"result", std::move(one.json)}, {"error", std::move(error)}});
    }
    return all;
}

} // namespace

Result ExportTextures(EditorContext& context, const Arguments& arguments) {
    return RunEach(context, arguments, Export);
}

Result ImportTextures(EditorContext& context, const Arguments& arguments) {
    return RunEach(context, arguments, Import);
}

Result PreviewTexture(EditorContext& context, const Arguments& arguments) {
    PrepareGame(context, arguments);
    if (!OpenTexture(context, arguments.file)) return {Outcome::Failed};
    const convert::DecodedTexture decoded = convert::DecodeTexture(context.view.EditorText(), arguments.level);
    if (!decoded.picture) {
        context.ui.Show({.text = decoded.problem});
        return {Outcome::Failed};
    }
    const convert::Picture& picture = *decoded.picture;
    platform::WriteSafely(context.platform.files, platform::FromNative(arguments.output), convert::EncodePng(picture));
    return {Outcome::Done,
            {{"file", arguments.output},
             {"width", picture.width},
             {"height", picture.height},
             {"format", picture.label},
             {"level", picture.level},
             {"levels", picture.levels}},
            fmt::format("{}\t{}\t{}\t{}\t{}\t{}\n", arguments.output, picture.width, picture.height, picture.label,
                        picture.level, picture.levels)};
}

} // namespace tamarind::cli
