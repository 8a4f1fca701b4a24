#include "editors/tree_search.h"

#include "editors/document_commands.h"
#include "editors/tree_editor.h"
#include "platform/myfile.h"

#include <algorithm>
#include <utility>

namespace tamarind::editors {

using document::clsNode;
using platform::Icon;
using session::EditorContext;

namespace {

bool IsWordCharacter(std::string_view text, std::size_t index) { return platform::IsPlainName(text.substr(index, 1)); }

std::string_view TextOf(const clsNode& node, SearchIn where) {
    return where == SearchIn::RowTexts ? node.NodeName : node.NodeCharacters;
}

/// A document's rows in order, from a given one on.
class Rows {
public:
    Rows(const document::Document& document, std::size_t startRow) {
        if (document.IsEmpty()) return;
        walk_.emplace(document.Top());
        while (row_ + 1 < startRow && walk_->Next() != nullptr)
            ++row_;
    }
    /// Null after the last.
    clsNode* Next() {
        const clsNode* const node = walk_ ? walk_->Next() : nullptr;
        ++row_;
        // The walk gives what it was handed; the document itself is not constant.
        return const_cast<clsNode*>(node);
    }
    /// Of the node that Next() gave last, from 1.
    [[nodiscard]] std::size_t Row() const { return row_; }

private:
    std::optional<document::Walk> walk_;
    std::size_t row_ = 0;
};

bool HasTooManyRows(const document::Document& document) {
    Rows rows(document, 1);
    std::size_t count = 0;
    while (count < kTooManyRows && rows.Next() != nullptr)
        ++count;
    return count == kTooManyRows;
}

bool RefuseForSize(EditorContext& context) {
    if (!HasTooManyRows(context.document.document)) return false;
    context.ui.Show({.text = "Unfortunately, this file is too long for this Search to work.\r\n"
                             "Please open in the Tamarind editor and run Search there."});
    return true;
}

bool RefuseForMissingReplacement(EditorContext& context, const std::string& replacement) {
    if (!replacement.empty()) return false;
    context.ui.Show({.text = "You have not entered anything in the Replace box?"});
    return true;
}

/// The row that this search starts at.
std::size_t StartSearch(EditorContext& context, const std::string& text) {
    auto& open = context.document;
    if (open.search.text != text || open.search.changes != open.changes) open.search.startRow = 1;
    open.search.text = text;
    open.search.changes = open.changes;
    if (open.search.startRow == 1) context.view.UnmarkRows();
    return open.search.startRow;
}

void EndSearch(EditorContext& context, bool hasFound) {
    context.document.search.startRow = 1;
    if (!hasFound) context.ui.Show({.text = "Not found", .icon = Icon::None});
}

/// Selects a found row; the attribute area shows it.
void Select(EditorContext& context, const clsNode& node) {
    context.view.SelectRow(node);
    ClickRow(context, node.Key);
}

void Mark(EditorContext& context, const std::vector<clsNode*>& found) {
    if (found.empty()) return;
    context.view.MarkRows({found.begin(), found.end()});
    Select(context, *found.back());
}

} // namespace

bool IsWholeWord(std::string_view text, std::size_t position, std::size_t length) {
    const std::size_t after = position - 1 + length;
    if (position > 1 && IsWordCharacter(text, position - 2)) return false;
    return after >= text.size() || !IsWordCharacter(text, after);
}

bool Holds(std::string_view text, const text::FoldedKey& key, bool wholeWord) {
    std::size_t position = text::FindNoCase(text, key);
    // Letters of other alphabets may differ in length from their capitals, so the match itself is measured.
    while (wholeWord && position != 0 &&
           !IsWholeWord(text, position, text::MatchLengthNoCase(text.substr(position - 1), key.Text()))) {
        position = text::FindNoCase(text, key, position + 1);
    }
    return position != 0;
}

std::vector<clsNode*> MatchingRows(const document::Document& document, SearchIn where, const SearchRequest& request,
                                   std::size_t startRow) {
    const text::FoldedKey key(request.text);
    std::vector<clsNode*> found;
    Rows rows(document, startRow);
    while (clsNode* const node = rows.Next()) {
        if (Holds(TextOf(*node, where), key, request.wholeWord)) found.push_back(node);
    }
    return found;
}

void FindNextRow(EditorContext& context, SearchIn where, const SearchRequest& request) {
    if (RefuseForSize(context)) return;
    auto& open = context.document;
    const text::FoldedKey key(request.text);
    Rows rows(open.document, StartSearch(context, request.text));
    const clsNode* last = nullptr;
    while (const clsNode* const node = rows.Next()) {
        last = node;
        if (!Holds(TextOf(*node, where), key, request.wholeWord)) continue;
        open.search.startRow = rows.Row() + 1;
        context.view.MarkRows({node});
        Select(context, *node);
        // While the question is asked, the rows may change under the search.
        if (!context.view.AskToGoOn() || open.search.changes != open.changes) return;
    }
    // An element's text is that of the row which is selected: the search in texts has come to the last one.
    if (where == SearchIn::ElementTexts && last != nullptr) Select(context, *last);
    EndSearch(context, false);
}

std::optional<std::vector<clsNode*>> FindAllRows(EditorContext& context, SearchIn where, const SearchRequest& request) {
    if (RefuseForSize(context)) return std::nullopt;
    const std::size_t start = StartSearch(context, request.text);
    auto found = MatchingRows(context.document.document, where, request, start);
    Mark(context, found);
    EndSearch(context, !found.empty());
    return found;
}

void ReplaceInShown(EditorContext& context, const std::string& shown, const std::string& text,
                    const std::string& replacement) {
    if (RefuseForMissingReplacement(context, replacement)) return;
    if (context.document.SelectedNode == nullptr) return;
    const std::string replaced = text::ReplaceAllNoCase(shown, text, replacement);
    if (replaced == shown) return;
    auto& open = context.document;
    const bool isUnchanged = open.search.changes == open.changes;
    context.view.ShowCharacters(replaced);
    open.history.EndTyping();
    EditCharacters(context, replaced);
    open.history.EndTyping();
    // "Find" and "Replace" can be used in turn.
    if (isUnchanged) open.search.changes = open.changes;
}

void ReplaceInAll(EditorContext& context, const SearchRequest& request, const std::string& replacement) {
    if (RefuseForMissingReplacement(context, replacement) || RefuseForSize(context)) return;
    auto& open = context.document;
    const std::size_t start = StartSearch(context, request.text);
    const auto found = MatchingRows(open.document, SearchIn::ElementTexts, request, start);
    document::EditStep step;
    for (clsNode* const node : found) {
        std::string replaced = text::ReplaceAllNoCase(node->NodeCharacters, request.text, replacement);
        if (replaced == node->NodeCharacters) continue;
        document::Edit edit{.kind = document::Edit::Kind::Characters, .node = node, .marksModified = true};
        edit.before = node->NodeCharacters;
        open.document.SetCharacters(*node, replaced);
        edit.after = std::move(replaced);
        step.push_back(std::move(edit));
    }
    if (!step.empty()) {
        ++open.changes;
        SetModified(context, true);
    }
    open.history.Add(std::move(step));
    Mark(context, found);
    EndSearch(context, !found.empty());
}

} // namespace tamarind::editors
