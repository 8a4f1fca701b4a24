#pragma once

#include "platform/ui.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

/// One plain window with a few controls, for a program that must be small and therefore carries no window toolkit.
namespace tamarind::platform {

enum class ControlKind {
    Label,
    TextBox,
    ReadOnlyText, ///< several lines that can be read, scrolled and copied
    Button,
    DefaultButton, ///< the one that Enter presses, except in a text box
    ProgressBar,
};

/// The id of the button that Escape and the window's own cross press.
inline constexpr int kCancelButton = 2;

/// What a control does when the window gets larger in one direction.
enum class Growth { Stays, Moves, Stretches };

/// Places and sizes are pixels of a screen of 96 dpi; on any other they are scaled. Tab goes from control to control in
/// their order, and "&" in a text marks the letter that leads to the control.
struct DialogControl {
    int id = 0; ///< kCancelButton, or from 100 on
    ControlKind kind = ControlKind::Label;
    std::string text = {};
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    Growth across = Growth::Stays;
    Growth down = Growth::Stays;
    bool isHidden = false;
};

struct DialogDesign {
    std::string caption;
    int width = 0; ///< of the inside, also the least
    int height = 0;
    std::vector<DialogControl> controls;
};

class Dialog {
public:
    virtual ~Dialog() = default;

    // What happens in the window. Handlers run inside Run, and inside whatever waits there.
    std::function<void(int id)> onPress;             ///< of a button
    std::function<void(int id)> onEnter;             ///< Enter in a text box
    std::function<void(int id)> onLeave;             ///< the keys go elsewhere than to this text box
    std::function<bool(const Progress&)> onProgress; ///< as UserInterface::ShowProgress
    std::function<void()> onEndProgress;
    std::function<void(const std::string&)> onStatus;
    std::function<bool()> isStopRequested;

    virtual void SetCaption(const std::string& caption) = 0;
    virtual void SetText(int id, const std::string& text) = 0;
    [[nodiscard]] virtual std::string Text(int id) const = 0;
    virtual void SetEnabled(int id, bool enabled) = 0;
    virtual void SetVisible(int id, bool visible) = 0;
    /// How far a progress bar is filled.
    virtual void SetFill(int id, std::size_t done, std::size_t total) = 0;
    /// The chosen folder; empty when cancelled.
    virtual std::string AskForFolder(const std::string& title, const std::string& startFolder) = 0;
    /// Messages over this window; progress, status and stop requests go through the handlers above.
    virtual UserInterface& Ui() = 0;
    /// Shows the window and returns when it was closed.
    virtual void Run() = 0;
    virtual void Hide() = 0;
    virtual void Close() = 0;
};

/// This system's own; throws RuntimeError where the window cannot be made.
[[nodiscard]] std::unique_ptr<Dialog> MakeDialog(const DialogDesign& design);

} // namespace tamarind::platform
