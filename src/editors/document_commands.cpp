#include "editors/document_commands.h"

#include "document/clsXMLParse.h"
#include "document/xml_writer.h"
#include "platform/paths.h"
#include "text/runtime_error.h"

#include <fmt/format.h>

#include <chrono>
#include <utility>

namespace tamarind::editors {

using platform::Answer;
using platform::Buttons;
using platform::Icon;
using session::EditorContext;

namespace {

void EmptyDocument(EditorContext& context) {
    auto& open = context.document;
    context.view.ClearTree();
    open.history.Clear();
    open.document = document::Document();
    ++open.changes;
    open.SelectedNode = nullptr;
    open.KeyCounter = 0;
    open.isOpen = false;
    open.hasFileName = false;
    open.canCopy = false;
    context.view.EnableAttributeArea(false);
}

std::string ParseFailure(const std::string& path, const document::XmlError& error) {
    return fmt::format("{}\r\ncannot be read as XML: {}.\r\nLine {}, column {}.", platform::ForDisplay(path),
                       error.what(), error.Line(), error.Column());
}

/// Lets the window live during long work: called often, it processes events now and then.
class Breather {
public:
    explicit Breather(platform::UserInterface& ui) : ui_(ui) {}
    void operator()() {
        const auto now = Clock::now();
        if (now - last_ < kPause) return;
        ui_.ProcessEvents();
        last_ = Clock::now();
    }

private:
    using Clock = std::chrono::steady_clock;
    static constexpr std::chrono::milliseconds kPause{50};
    platform::UserInterface& ui_;
    Clock::time_point last_ = Clock::now();
};

} // namespace

void SetModified(EditorContext& context, bool modified) {
    const std::string caption = context.view.Caption();
    const bool marked = caption.ends_with('*');
    if (modified && !marked) context.view.SetCaption(caption + "*");
    if (!modified && marked) context.view.SetCaption(caption.substr(0, caption.size() - 1));
    context.document.isModified = modified;
    context.document.canSaveAs = true;
    context.view.UpdateCommands();
}

bool MayDropChanges(EditorContext& context) {
    if (!context.document.isModified) return true;
    const Answer answer = context.ui.Show({.text = "The current file has been modified.\r\n"
                                                   "Do you wish to saves these changes?",
                                           .icon = Icon::Question,
                                           .title = "Modified File",
                                           .buttons = Buttons::YesNoCancel});
    if (answer == Answer::Cancel || (answer == Answer::Yes && !SaveXmlFile(context))) return false;
    SetModified(context, false);
    return true;
}

bool NewDocument(EditorContext& context, const std::string& path) {
    if (!MayDropChanges(context)) return false;
    SetModified(context, false);
    EmptyDocument(context);
    context.view.SetCaption("XML File Editor - ");
    context.document.path = path;
    context.view.UpdateCommands();
    return true;
}

bool LoadXmlFile(EditorContext& context) {
    auto& open = context.document;
    EmptyDocument(context);
    const std::string path = open.path;
    try {
        document::Document loaded = document::LoadXml(context.platform.files, path, Breather(context.ui));
        // Another file may have been opened meanwhile: then that one stays.
        if (open.path != path) return false;
        if (!open.document.IsEmpty()) EmptyDocument(context);
        open.document = std::move(loaded);
        ++open.changes;
    } catch (const document::XmlError& error) {
        context.view.UpdateCommands();
        context.ui.Show({.text = ParseFailure(path, error)});
        return false;
    }
    open.KeyCounter = static_cast<document::NodeKey>(document::CountElements(open.document.Top()));
    open.isOpen = true;
    open.hasFileName = true;
    open.canSaveAs = true;
    context.view.ShowTree(open.document);
    context.view.UpdateCommands();
    return true;
}

bool SaveXmlFile(EditorContext& context) {
    auto& open = context.document;
    try {
        document::WriteXmlFile(open.document, context.platform.files, open.path);
    } catch (const text::RuntimeError& error) {
        context.ui.Show({.text = "Unable to save the file: " + error.Description(), .title = "Save Failed"});
        return false;
    }
    open.isOpen = true;
    SetModified(context, false);
    return true;
}

} // namespace tamarind::editors
