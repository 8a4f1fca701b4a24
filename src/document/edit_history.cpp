#include "document/edit_history.h"

#include <utility>

namespace tamarind::document {
namespace {

bool IsTyping(const Edit& edit) {
    return edit.kind == Edit::Kind::Characters || edit.kind == Edit::Kind::AttributeValue;
}

} // namespace

bool EditHistory::Continues(const Edit& edit) const {
    if (!isTyping_ || !IsTyping(edit) || done_.empty() || done_.back().size() != 1) return false;
    const Edit& last = done_.back().front();
    return last.kind == edit.kind && last.node == edit.node && last.index == edit.index;
}

void EditHistory::Add(Edit edit) {
    undone_.clear();
    if (Continues(edit)) {
        done_.back().front().after = std::move(edit.after);
        return;
    }
    isTyping_ = IsTyping(edit);
    done_.emplace_back().push_back(std::move(edit));
}

void EditHistory::Add(EditStep step) {
    if (step.empty()) return;
    undone_.clear();
    isTyping_ = false;
    done_.push_back(std::move(step));
}

void EditHistory::Clear() {
    done_.clear();
    undone_.clear();
    isTyping_ = false;
}

EditStep* EditHistory::TakeUndo() {
    isTyping_ = false;
    if (done_.empty()) return nullptr;
    undone_.push_back(std::move(done_.back()));
    done_.pop_back();
    return &undone_.back();
}

EditStep* EditHistory::TakeRedo() {
    isTyping_ = false;
    if (undone_.empty()) return nullptr;
    done_.push_back(std::move(undone_.back()));
    undone_.pop_back();
    return &done_.back();
}

} // namespace tamarind::document
