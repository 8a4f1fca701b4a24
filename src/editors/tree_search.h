#pragma once

#include "session/editor_context.h"
#include "text/search.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Searching and replacing over the rows of the tree. Letter case is ignored; what is searched for is plain text.
namespace tamarind::editors {

enum class SearchIn { RowTexts, ElementTexts };

struct SearchRequest {
    std::string text;
    bool wholeWord = false;
};

/// Whether neither character beside a match is a letter from A to Z or one of " $ ' , - and the full stop. Digits and
/// the underscore do not make a word longer. `position` counts bytes from 1.
[[nodiscard]] bool IsWholeWord(std::string_view text, std::size_t position, std::size_t length);

/// Whether the text holds the key; of several places one that is a whole word will do.
[[nodiscard]] bool Holds(std::string_view text, const text::FoldedKey& key, bool wholeWord);

/// The rows from `startRow` (from 1) to the last that match, in order.
[[nodiscard]] std::vector<document::clsNode*> MatchingRows(const document::Document& document, SearchIn where,
                                                           const SearchRequest& request, std::size_t startRow);

/// The number of rows that a search refuses.
inline constexpr std::size_t kTooManyRows = 65'501;

// The commands go on behind the row found last while the search text is the same and no row came, went or was renamed,
// else they begin with row 1; then the rows of the search before are bold no more.

/// Finds row by row, asking after each whether to go on.
void FindNextRow(session::EditorContext& context, SearchIn where, const SearchRequest& request);
/// Finds all rows at once. Nothing when the document was refused for its size: then the user was told.
std::optional<std::vector<document::clsNode*>> FindAllRows(session::EditorContext& context, SearchIn where,
                                                           const SearchRequest& request);
/// Replaces in `shown`, the text of the element that is shown.
void ReplaceInShown(session::EditorContext& context, const std::string& shown, const std::string& text,
                    const std::string& replacement);
/// Replaces in every element's text that matches.
void ReplaceInAll(session::EditorContext& context, const SearchRequest& request, const std::string& replacement);

} // namespace tamarind::editors
